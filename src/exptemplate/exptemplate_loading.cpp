#include "exptemplate/exptemplate_p.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/XStaticList.h>

#include <QComboBox>
#include <QtDebug>

namespace PickerCtl {

namespace {

const QString TemplateCode = QStringLiteral("N");
constexpr int FirstCategoryEntry = 1;

} // namespace

void XExpTemplate::Load(const QString &sAppNameA, const QString &sCategoryNameA, const TemplateFieldsPtr &tplfs)
{
    // The caller learns of a failing catalogue as a CatalogError, whatever the catalogue threw.
    try {
        d->load(sAppNameA, sCategoryNameA, tplfs);
    } catch (const CatalogError &error) {
        qWarning("XExpTemplate: loading failed: %s", error.what());
        throw;
    } catch (const std::exception &e) {
        qWarning("XExpTemplate: loading failed: %s", e.what());
        throw CatalogError(QString::fromLocal8Bit(e.what()));
    } catch (...) {
        qWarning("XExpTemplate: loading failed: an exception of unknown type");
        throw CatalogError(tr("The catalogue failed with an exception of unknown type."));
    }
}

void XExpTemplate::Private::load(const QString &sAppNameA, const QString &sCategoryNameA, const TemplateFieldsPtr &tplfs)
{
    stlSelected->setItems(PickerCtl::Fields::create());
    stlAvailable->setItems(PickerCtl::Fields::create());
    last.selectedCategory = sCategoryNameA;
    appName = sAppNameA;
    const PropertyStorePtr store = FieldCatalog::instance()->GetProperties();
    stlAvailable->setProperties(store);
    stlSelected->setProperties(store);
    fillCriteria();
    q->setFields(tplfs);

    const FieldCategoryPtr category = FieldCatalog::instance()->GetCategory(appName, last.selectedCategory);
    if (category) {
        cboEntityTypes->setCurrentText(category->Name());
    } else {
        // An unknown name, "<All Entity Types>" among them, ends on the first real category. An
        // application without categories has none: the search then finds nothing.
        last.selectedCategory = cboEntityTypes->itemText(FirstCategoryEntry);
        if (cboEntityTypes->count() > FirstCategoryEntry)
            cboEntityTypes->setCurrentIndex(FirstCategoryEntry);
    }
    search();
}

TemplateFieldsPtr XExpTemplate::Fields() const
{
    TemplateFieldsPtr tplfs = TemplateFields::create();
    for (const FieldPtr &field : *d->stlSelected->Items()) {
        auto item = std::make_shared<TemplateField>();
        item->setField(field);
        item->setInclude(true);
        item->setCode(TemplateCode);
        tplfs->Add(item);
    }
    return tplfs;
}

void XExpTemplate::setFields(const TemplateFieldsPtr &tplfs)
{
    FieldsPtr fields = PickerCtl::Fields::create();
    if (tplfs) {
        // An item without a field has nothing to show and is left out.
        for (const TemplateFieldPtr &item : *tplfs) {
            if (item && item->Field())
                fields->Add(item->Field());
        }
    }
    d->stlSelected->setItems(fields);
}

} // namespace PickerCtl
