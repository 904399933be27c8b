#include "exptemplate_helpers.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/XStaticList.h>
#include <PickerCtl/testing/CatalogSpecs.h>

#include <QTest>
#include <QTreeView>

using namespace PickerCtl;

namespace TemplateTest {

namespace {

FieldPtr fieldNamed(const MemoryCatalog &catalog, const QString &name)
{
    const FieldsPtr all = const_cast<MemoryCatalog &>(catalog).GetCategoryTree(App)->AllFields(0);
    for (const FieldPtr &f : *all) {
        if (f->Name() == name)
            return f;
    }
    return nullptr;
}

} // namespace

std::shared_ptr<MemoryCatalog> makeCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    catalog->addUser(UserSpec{1, QStringLiteral("admin"), true, true, false});
    catalog->addTechnology(QStringLiteral("Tech A"), QStringLiteral("A"), 1);
    catalog->addTechnology(QStringLiteral("Tech B"), QStringLiteral("B"), 2);
    catalog->addTechnology(QStringLiteral("Tech C"), QStringLiteral("C"), 4);
    catalog->addFieldType(QStringLiteral("CNT"), QStringLiteral("Counter"));
    catalog->addFieldType(QStringLiteral("EXP"), QStringLiteral("Expression"));
    catalog->addFieldType(QStringLiteral("UDC"), QStringLiteral("User Calculation"));
    catalog->addApplication(App);
    catalog->addCategory(categorySpec(QStringLiteral("net"), QString(), QStringLiteral("Network"), 0, QStringLiteral("Entities")));
    catalog->addCategory(categorySpec(QStringLiteral("cell"), QStringLiteral("Entities"), QStringLiteral("Cell")));
    catalog->addCategory(categorySpec(QStringLiteral("traffic"), QStringLiteral("Entities"), QStringLiteral("Traffic")));
    // Every field belongs to user 1; a counter is the only field that is no expression.
    const struct { qint32 id; const char *category, *name, *type, *mask, *status; } fields[] = {
        {1, "cell", "Cell Attempts", "CNT", "A", "V"}, {2, "cell", "Cell Drops", "CNT", "B", "V"},
        {3, "cell", "Cell Load", "CNT", "AB", "V"},    {4, "cell", "Drop Rate", "EXP", "A", "V"},
        {5, "cell", "Bad Rate", "EXP", "A", "N"},      {6, "cell", "Handover", "CNT", "", "V"},
        {7, "traffic", "Traffic Volume", "CNT", "C", "V"}, {8, "traffic", "Traffic Errors", "UDC", "C", "N"}};
    for (const auto &f : fields) {
        FieldSpec spec = fieldSpec(f.id, QLatin1String(f.category), QLatin1String(f.name), QLatin1String(f.type), 1,
                                   QLatin1String(f.mask));
        spec.validationStatus = QLatin1String(f.status);
        catalog->addField(spec);
    }
    catalog->addApplication(EmptyApp);
    return catalog;
}

Services::Services(std::shared_ptr<MemoryCatalog> catalog)
    : m_catalog(std::move(catalog))
    , m_services(std::make_shared<CursorLogServices>())
    , m_messages(std::make_shared<ScriptedMessageService>())
{
    FieldCatalog::setInstance(m_catalog);
    AppServices::setInstance(m_services);
    MessageService::setInstance(m_messages);
}

Services::~Services()
{
    MessageService::setInstance(nullptr);
    AppServices::setInstance(nullptr);
    FieldCatalog::setInstance(nullptr);
}

Fixture::Fixture(const QString &templateNames)
{
    editor.Load(App, QStringLiteral("Cell"), templateOf(services.catalog(), split(templateNames)));
    for (XStaticList *list : {available(editor), selected(editor)})
        testers.push_back(std::make_unique<QAbstractItemModelTester>(
            list->reportView()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest));
}

bool showEditor(XExpTemplate &editor)
{
    editor.resize(900, 500);
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}

XStaticList *available(const XExpTemplate &editor)
{
    return child<XStaticList>(editor, "stlAvailable");
}

XStaticList *selected(const XExpTemplate &editor)
{
    return child<XStaticList>(editor, "stlSelected");
}

QString names(const XStaticList &list)
{
    QStringList result;
    const FieldsPtr items = list.Items();
    for (int row = 0; row < list.Count(); ++row)
        result.append(items->at(row) ? items->at(row)->Name() : QString());
    return result.join(QLatin1Char('|'));
}

void selectByName(XStaticList &list, const QStringList &fieldNames)
{
    FieldsPtr picked = Fields::create();
    for (const QString &name : fieldNames) {
        for (const FieldPtr &f : *list.Items()) {
            if (f && f->Name() == name) {
                picked->Add(f);
                break;
            }
        }
    }
    list.SelectItems(picked);
}

TemplateFieldsPtr templateOf(const MemoryCatalog &catalog, const QStringList &fieldNames)
{
    TemplateFieldsPtr tplfs = TemplateFields::create();
    for (const QString &name : fieldNames) {
        auto item = std::make_shared<TemplateField>();
        item->setField(fieldNamed(catalog, name));
        item->setInclude(false);
        item->setCode(QStringLiteral("X"));
        tplfs->Add(item);
    }
    return tplfs;
}

QString names(const TemplateFieldsPtr &tplfs)
{
    QStringList result;
    for (const TemplateFieldPtr &item : *tplfs)
        result.append(item->Field() ? item->Field()->Name() : QString());
    return result.join(QLatin1Char('|'));
}

} // namespace TemplateTest
