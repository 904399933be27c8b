#include "exptemplate_helpers.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/XStaticList.h>
#include <PickerCtl/testing/CatalogSpecs.h>

using namespace PickerCtl;

namespace TemplateTest {

namespace {

// Every field of the template tests belongs to user 1; a counter is the only field that is no expression.
FieldSpec field(qint32 id, const QString &category, const QString &name, const QString &type, const QString &mask,
                const QString &status = QStringLiteral("V"))
{
    FieldSpec spec = fieldSpec(id, category, name, type, 1, mask);
    spec.validationStatus = status;
    return spec;
}

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
    const QString cell = QStringLiteral("cell");
    const QString traffic = QStringLiteral("traffic");
    catalog->addField(field(1, cell, QStringLiteral("Cell Attempts"), QStringLiteral("CNT"), QStringLiteral("A")));
    catalog->addField(field(2, cell, QStringLiteral("Cell Drops"), QStringLiteral("CNT"), QStringLiteral("B")));
    catalog->addField(field(3, cell, QStringLiteral("Cell Load"), QStringLiteral("CNT"), QStringLiteral("AB")));
    catalog->addField(field(4, cell, QStringLiteral("Drop Rate"), QStringLiteral("EXP"), QStringLiteral("A")));
    catalog->addField(field(5, cell, QStringLiteral("Bad Rate"), QStringLiteral("EXP"), QStringLiteral("A"),
                            QStringLiteral("N")));
    catalog->addField(field(6, cell, QStringLiteral("Handover"), QStringLiteral("CNT"), QString()));
    catalog->addField(field(7, traffic, QStringLiteral("Traffic Volume"), QStringLiteral("CNT"), QStringLiteral("C")));
    catalog->addField(field(8, traffic, QStringLiteral("Traffic Errors"), QStringLiteral("UDC"), QStringLiteral("C"),
                            QStringLiteral("N")));
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
