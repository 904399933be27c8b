#include "exptemplate/exptemplate_p.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/XStaticList.h>

#include <QComboBox>
#include <QLineEdit>
#include <QtDebug>

namespace PickerCtl {

namespace {

/// The control's own pointer shows the hourglass for the guard's life, beside the shared one.
class BusyPointer
{
public:
    explicit BusyPointer(QWidget *control)
        : m_control(control)
    {
        m_control->setCursor(Qt::WaitCursor);
    }
    ~BusyPointer() { m_control->unsetCursor(); }
    BusyPointer(const BusyPointer &) = delete;
    BusyPointer &operator=(const BusyPointer &) = delete;

private:
    QWidget *m_control;
};

FieldsPtr candidates(FieldCatalog &catalog, const QString &appName, const QString &category)
{
    if (category == ExpTemplate::allEntityTypes()) {
        const CategoryTreePtr tree = catalog.GetCategoryTree(appName);
        return tree ? tree->AllFields(0) : nullptr;
    }
    const FieldCategoryPtr found = catalog.GetCategory(appName, category);
    return found ? found->Fields() : nullptr;
}

} // namespace

void XExpTemplate::Private::fillCriteria()
{
    const FieldCatalogPtr catalog = FieldCatalog::instance();
    cboTechTypes->clear();
    cboTechTypes->addItems(catalog->TechnologyComboEntries());
    cboTechTypes->setCurrentIndex(0);
    cboFieldTypes->clear();
    cboFieldTypes->addItems(catalog->FieldTypeComboEntries(appName));
    cboFieldTypes->setCurrentIndex(0);

    // Appended to, never cleared: a second Load repeats the entries after the first ones.
    cboEntityTypes->addItem(ExpTemplate::allEntityTypes());
    const QList<FieldCategoryPtr> categories = catalog->Categories(appName);
    for (const FieldCategoryPtr &category : categories) {
        if (category)
            cboEntityTypes->addItem(category->Name());
    }
    if (cboEntityTypes->count() < 2)
        cboEntityTypes->setEnabled(false);
}

void XExpTemplate::Private::find()
{
    const ExpTemplate::CriteriaTexts now{cboEntityTypes->currentText(), cboFieldTypes->currentText(),
                                         cboTechTypes->currentText(), txtNameFilter->text()};
    if (!searchPending && ExpTemplate::criteriaUnchanged(last, now))
        return;
    readCriteria();
    search();
}

void XExpTemplate::Private::readCriteria()
{
    const FieldCatalogPtr catalog = FieldCatalog::instance();
    last.selectedCategory = cboEntityTypes->currentText();
    last.fieldTypeFilter = cboFieldTypes->currentText();
    fieldTypeCode = cboFieldTypes->currentIndex() > 0 ? catalog->FieldTypeCode(appName, last.fieldTypeFilter)
                                                      : QString();
    last.techFilter = cboTechTypes->currentText();
    techTypeCode.clear();
    if (cboTechTypes->currentIndex() > 0) {
        const TechnologyTypesPtr types = catalog->GetTechnologyTypes();
        const TechnologyTypePtr type = types ? types->Item(last.techFilter) : nullptr;
        if (type)
            techTypeCode = type->Code();
    }
    last.nameFilter = txtNameFilter->text();
}

void XExpTemplate::Private::search()
{
    const BusyPointer pointer(q);
    const WaitCursorGuard wait;
    // A search the catalogue failed or answered with nothing is run again by the next Find, even
    // with the same criteria.
    searchPending = true;
    const FieldsPtr found = candidates(*FieldCatalog::instance(), appName, last.selectedCategory);
    FieldsPtr matches = Fields::create();
    if (found) {
        for (const FieldPtr &field : *found) {
            if (field && field->PassesFilter(techTypeCode, fieldTypeCode, ownerFilter, last.nameFilter, false,
                                             QString(), QString()))
                matches->Add(field);
        }
    }
    stlAvailable->setItems(matches);
    searchPending = !found;
}

void XExpTemplate::Private::findForUser()
{
    try {
        find();
    } catch (const std::exception &e) {
        qWarning("XExpTemplate: the search failed: %s", e.what());
    } catch (...) {
        qWarning("XExpTemplate: the search failed: an exception of unknown type");
    }
}

} // namespace PickerCtl
