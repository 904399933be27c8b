#pragma once

#include <PickerCtl/MemoryCatalog.h>

#include <QList>
#include <QMetaType>
#include <QModelIndex>
#include <QPoint>
#include <memory>

namespace PickerCtl {
class XTreeOpt;
}

namespace TechTest {

struct Tech
{
    QString name;
    QString code;
    qint32 bit;
};

/// GSM "G" 1, UMTS "U" 2, LTE "L" 4, NR "N" 8: codes that never occur inside one another.
QList<Tech> distinctTechs();

/// A catalogue with those technology types, in that order, counting GetTechnologyTypes calls.
class TechCatalog : public PickerCtl::MemoryCatalog
{
public:
    explicit TechCatalog(const QList<Tech> &techs);

    PickerCtl::TechnologyTypesPtr GetTechnologyTypes() override;

    int typeListCalls = 0;
    /// When set, GetTechnologyTypes throws CatalogError.
    bool fail = false;
};

/// Installs a catalogue as the thread's FieldCatalog for the scope's lifetime.
struct CatalogScope
{
    explicit CatalogScope(std::shared_ptr<PickerCtl::FieldCatalog> catalog)
    {
        PickerCtl::FieldCatalog::setInstance(std::move(catalog));
    }
    ~CatalogScope() { PickerCtl::FieldCatalog::setInstance(nullptr); }
};

/// The tree node captioned so.
QModelIndex nodeIndex(const PickerCtl::XTreeOpt &tree, const QString &caption);

/// Where the tree draws the node's check box, in viewport coordinates.
QPoint checkBoxCentre(const PickerCtl::XTreeOpt &tree, const QModelIndex &index);

} // namespace TechTest

Q_DECLARE_METATYPE(TechTest::Tech)
