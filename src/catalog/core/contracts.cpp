// Out-of-line destructors of the catalogue interfaces, so that each has one home for its vtable.
#include <PickerCtl/AppServices.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/MessageService.h>
#include <PickerCtl/OwnerPicker.h>

namespace PickerCtl {

Field::~Field() = default;
FieldCategory::~FieldCategory() = default;
CategoryNode::~CategoryNode() = default;
CategoryNodes::~CategoryNodes() = default;
CategoryTree::~CategoryTree() = default;
RcvRegistry::~RcvRegistry() = default;
PropertyFilter::~PropertyFilter() = default;
PropertyStore::~PropertyStore() = default;
CurrentUser::~CurrentUser() = default;
UserContext::~UserContext() = default;
MessageService::~MessageService() = default;
OwnerPicker::~OwnerPicker() = default;
WaitCursor::~WaitCursor() = default;
AppServices::~AppServices() = default;
FieldCatalog::~FieldCatalog() = default;
CatalogWriter::~CatalogWriter() = default;

std::optional<QHash<qint32, qint32>> CatalogWriter::storedOwners()
{
    return std::nullopt;
}

namespace {
const QString kGenericLabel = QStringLiteral("Generic Categories");
}

QString genericLabel()
{
    return kGenericLabel;
}

} // namespace PickerCtl
