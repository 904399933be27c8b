#pragma once

#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/XFieldPicker.h>
#include <PickerCtl/testing/CursorLog.h>

#include <QStringList>

class QTreeView;

#include <memory>

namespace PickerCtl::testsupport {

inline constexpr auto ReportsApp = "Reports";
inline constexpr auto OtherApp = "Planning";

/**
 * A small catalogue of the application "Reports":
 *
 *   Catalogue (root)
 *   +- Network          node "Entities", entity 1
 *   |  +- Site          entity 4      (2 fields)
 *   |  +- Region        entity 2      (3 fields)
 *   |     +- Cell       entity 3      (2 fields)
 *   +- Generic          node genericLabel()
 *      +- SYSTEM        full name "System", a top of its own
 *      |  +- Performance              (1 field)
 *      +- Traffic                     (2 fields)
 *
 * and the application "Planning" with a single category "Plans".
 */
std::shared_ptr<MemoryCatalog> makeSampleCatalog();
/// Adds a category to the last added application of the catalogue.
void addCategory(MemoryCatalog &catalog, const QString &key, const QString &parentKey, const QString &name,
                 qint32 entityId = 0, const QString &nodeKey = QString());

/// Adds the sample content to a catalogue (for catalogue doubles).
void fillSampleCatalog(MemoryCatalog &catalog);

/// A catalogue that fails on purpose in the call a test names.
class FailingCatalog : public MemoryCatalog
{
public:
    bool failTree = false;
    bool failCategory = false;
    bool failDelete = false;
    bool failOwner = false;
    /// The services a control asks for while it is created.
    bool failServices = false;
    /// NewCategoryTree answers null.
    bool nullNewTree = false;
    /// Failing calls throw an int instead of a CatalogError.
    bool throwForeign = false;

    CategoryTreePtr GetCategoryTree(const QString &appName) override;
    FieldCategoryPtr GetCategory(const QString &appName, const QString &categoryName) override;
    void DeleteFields(const FieldsPtr &fields, const FieldsPtr &exceptions) override;
    void ChangeOwner(const FieldsPtr &fields, const QVariant &owner) override;
    CategoryTreePtr NewCategoryTree(const QString &appName) override;
    FieldClipDataPtr NewClipData(bool primary) override;
    PropertyStorePtr GetProperties() override;
    std::shared_ptr<FieldUpdates> GetFieldUpdates() override;

private:
    [[noreturn]] void fail(const char *what) const;
};

/// The control's category tree ("tvw") and field list ("stl").
QTreeView *treeOf(const XFieldPicker &picker);
XStaticList *listOf(const XFieldPicker &picker);
/// The ids of the fields, in their order.
QList<qint32> idsOf(const FieldsPtr &fields);

/// Records the events of a control by name, in the order they were raised.
class EventLog : public QObject
{
public:
    explicit EventLog(XFieldPicker &picker);
    QStringList names;
    FieldPtr lastField;
    FieldsPtr lastFields;
    QString lastCategoryName;
};

/// Installs a catalogue and cursor-logging services for the test's lifetime.
class ServicesScope
{
public:
    explicit ServicesScope(std::shared_ptr<FieldCatalog> catalog, bool entityView = true);
    ~ServicesScope();

    const std::shared_ptr<CursorLog> &cursor() const { return m_services->log(); }
    CursorLogServices &services() const { return *m_services; }

private:
    std::shared_ptr<CursorLogServices> m_services;
};

} // namespace PickerCtl::testsupport
