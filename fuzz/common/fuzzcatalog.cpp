#include "fuzzcatalog.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/Fields.h>
#include <PickerCtl/RcvRegistry.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/UserContext.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace PickerCtl::fuzz {

namespace {

void exerciseField(const Field &field)
{
    field.Id();
    field.CategoryName();
    field.Name();
    field.Key();
    field.OwnerId();
    field.TechMask();
    field.FieldTypeCode();
    field.IsExpression();
    field.ValidationStatus();
    field.UseForBusyHour();
    field.OwnerName();
    field.Description();
    field.Unit();
    field.PassesFilter(QStringLiteral("G"), QStringLiteral("CNT,UDC"), QStringLiteral("admin"),
                       QStringLiteral("*a?"), true, QString(), QString());
}

void exerciseNode(const CategoryNodePtr &node, int depth)
{
    // A tree deeper than any catalogue has means a cycle slipped through; stop rather than recurse on.
    if (!node || depth > 10000)
        return;
    node->Key();
    if (const FieldCategoryPtr category = node->Category()) {
        category->FullName();
        category->Parent();
    }
    node->ChildCount();
    for (CategoryNodePtr child = node->FirstChild(); child; child = child->NextSibling())
        exerciseNode(child, depth + 1);
}

} // namespace

void exerciseCatalog(MemoryCatalog &catalog)
{
    for (const CurrentUserPtr &user : catalog.Users()) {
        user->Name();
        user->IsAdministrator();
    }
    catalog.TechnologyComboEntries();
    catalog.GetTechnologyTypes();
    for (const QString &app : catalog.Applications()) {
        catalog.FieldTypeComboEntries(app);
        const CategoryTreePtr tree = catalog.GetCategoryTree(app);
        if (!tree)
            continue;
        if (const auto nodes = tree->Nodes())
            exerciseNode(nodes->Root(), 0);
        if (const FieldsPtr fields = tree->AllFields()) {
            for (const FieldPtr &field : *fields) {
                if (field) {
                    exerciseField(*field);
                    catalog.GetField(app, field->Id());
                }
            }
        }
        for (const FieldCategoryPtr &category : catalog.Categories(app)) {
            if (category)
                catalog.GetCategory(app, category->Name());
        }
    }
    if (const RcvRegistryPtr registry = catalog.GetRcvRegistry())
        registry->FieldFor(QString(), QString());
    catalog.GetProperties();
}

ScratchFile::ScratchFile(const QString &name)
{
    // One folder for the whole run, removed when the process ends.
    static QTemporaryDir folder;
    m_path = QDir(folder.path()).filePath(name);
}

void ScratchFile::rewrite(const QByteArray &content) const
{
    for (const char *suffix : {"-journal", "-wal", "-shm"})
        QFile::remove(m_path + QLatin1String(suffix));
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size())
        qFatal("cannot write the scratch file %s", qPrintable(m_path));
}

std::shared_ptr<MemoryCatalog> openCatalog(const QString &path)
{
    try {
        return SqlCatalog::open(path);
    } catch (const CatalogError &) {
        return nullptr;
    }
}

} // namespace PickerCtl::fuzz
