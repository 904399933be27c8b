#include "exptemplate_helpers.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace PickerCtl;
using namespace TemplateTest;

namespace {

QStringList entries(const QComboBox *combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts.append(combo->itemText(i));
    return texts;
}

struct Band
{
    explicit Band(const XExpTemplate &editor)
        : entity(child<QComboBox>(editor, "cboEntityTypes"))
        , tech(child<QComboBox>(editor, "cboTechTypes"))
        , fieldType(child<QComboBox>(editor, "cboFieldTypes"))
        , name(child<QLineEdit>(editor, "txtNameFilter"))
        , apply(child<QPushButton>(editor, "cmdApply"))
    {
    }
    QComboBox *entity;
    QComboBox *tech;
    QComboBox *fieldType;
    QLineEdit *name;
    QPushButton *apply;
};

} // namespace

class TemplateSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldFillTheCriteriaFromTheCatalogueOnEveryLoad()
    {
        Services services;
        XExpTemplate editor;
        const Band band(editor);

        editor.Load(App, QStringLiteral("Cell"), nullptr);

        QCOMPARE(entries(band.entity), (QStringList{"<All Entity Types>", "Network", "Cell", "Traffic"}));
        QCOMPARE(band.entity->currentText(), QStringLiteral("Cell"));
        QVERIFY(band.entity->isEnabled());
        QCOMPARE(entries(band.tech), (QStringList{"<All Tech Types>", "Tech A", "Tech B", "Tech C"}));
        QCOMPARE(band.tech->currentIndex(), 0);
        QCOMPARE(entries(band.fieldType), (QStringList{"<All Field Types>", "Counter", "Expression", "User Calculation"}));
        QCOMPARE(band.fieldType->currentIndex(), 0);
        QCOMPARE(names(*available(editor)), QStringLiteral("Cell Attempts|Cell Drops|Cell Load|Drop Rate|Bad Rate|Handover"));
        QCOMPARE(editor.AppName(), App);
        QCOMPARE(editor.SelectedCategory(), QStringLiteral("Cell"));
        QCOMPARE(band.entity->toolTip(), QStringLiteral("Entity types"));
        QCOMPARE(band.tech->toolTip(), QStringLiteral("Technology types"));
        QCOMPARE(band.fieldType->toolTip(), QStringLiteral("Field types"));
        QCOMPARE(band.name->toolTip(), QStringLiteral("Expression for matching field names"));
        QCOMPARE(band.apply->text(), QStringLiteral("Find"));
        QCOMPARE(band.apply->toolTip(), QStringLiteral("Find the matching fields"));

        // Another load appends the entity types again but refills the other criteria
        editor.Load(App, QStringLiteral("Traffic"), nullptr);
        QCOMPARE(band.entity->count(), 8);
        QCOMPARE(band.entity->itemText(4), QStringLiteral("<All Entity Types>"));
        QCOMPARE(band.tech->count(), 4);
        QCOMPARE(band.fieldType->count(), 4);
        QCOMPARE(names(*available(editor)), QStringLiteral("Traffic Volume|Traffic Errors"));
    }

    void shouldStartOnTheFirstCategoryForAnUnknownName_data()
    {
        QTest::addColumn<QString>("app");
        QTest::addColumn<QString>("category");
        QTest::addColumn<QString>("selectedCategory");
        QTest::addColumn<QString>("shown");

        QTest::newRow("known category") << App << "Traffic" << "Traffic" << "Traffic Volume|Traffic Errors";
        QTest::newRow("unknown name ends on the first category") << App << "Nowhere" << "Network" << "";
        QTest::newRow("all entity types ends on the first category, not on all") << App << "<All Entity Types>" << "Network" << "";
        QTest::newRow("empty name") << App << "" << "Network" << "";
        QTest::newRow("no categories: entity types disabled") << EmptyApp << "Anything" << "" << "";
    }

    void shouldStartOnTheFirstCategoryForAnUnknownName()
    {
        QFETCH(QString, app);
        QFETCH(QString, category);
        QFETCH(QString, selectedCategory);
        QFETCH(QString, shown);

        Services services;
        XExpTemplate editor;
        editor.Load(app, category, nullptr);

        const auto *entity = child<QComboBox>(editor, "cboEntityTypes");
        QCOMPARE(editor.SelectedCategory(), selectedCategory);
        QCOMPARE(entity->currentText(), selectedCategory.isEmpty() ? QStringLiteral("<All Entity Types>") : selectedCategory);
        QCOMPARE(names(*available(editor)), shown);
        QCOMPARE(entity->isEnabled(), app == App);
        QCOMPARE(entity->count(), app == App ? 4 : 1);
    }

    void shouldSearchOnlyWhenTheCriteriaChanged_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<bool>("searches");

        QTest::newRow("Find twice without a change searches once") << "none" << false;
        QTest::newRow("another entity type") << "entity" << true;
        QTest::newRow("another field type") << "fieldType" << true;
        QTest::newRow("another technology") << "tech" << true;
        QTest::newRow("another name") << "name" << true;
        QTest::newRow("name changed and changed back") << "name and back" << false;
        QTest::newRow("name differing only in case") << "name case" << true;
        QTest::newRow("host set NameFilter to something else") << "host name" << true;
        QTest::newRow("host set SelectedCategory to something else") << "host category" << true;
        QTest::newRow("host set TechFilter to what the combo shows") << "host same tech" << false;
    }

    void shouldSearchOnlyWhenTheCriteriaChanged()
    {
        QFETCH(QString, change);
        QFETCH(bool, searches);

        // Given an editor loaded with a template under one wait cursor, that has searched with the criteria
        // its widgets show
        Services services;
        XExpTemplate editor;
        QSignalSpy changed(&editor, &XExpTemplate::Changed);
        editor.Load(App, QStringLiteral("Cell"), templateOf(services.catalog(), {"Traffic Volume"}));
        QCOMPARE(services.cursor().pushed(), QList<qint16>{11});
        QCOMPARE(services.cursor().popCount(), 1);
        const Band band(editor);
        band.name->setText(QStringLiteral("rate"));
        band.apply->click();
        const int pushes = services.cursor().pushCount();

        // When a criterion changes (or none) and Find is pressed
        if (change == QLatin1String("entity"))
            band.entity->setCurrentText(QStringLiteral("Traffic"));
        else if (change == QLatin1String("fieldType"))
            band.fieldType->setCurrentIndex(1);
        else if (change == QLatin1String("tech"))
            band.tech->setCurrentIndex(2);
        else if (change == QLatin1String("name"))
            band.name->setText(QStringLiteral("drop"));
        else if (change == QLatin1String("name and back")) {
            band.name->setText(QStringLiteral("drop"));
            band.name->setText(QStringLiteral("rate"));
        } else if (change == QLatin1String("name case"))
            band.name->setText(QStringLiteral("Rate"));
        else if (change == QLatin1String("host name"))
            editor.setNameFilter(QStringLiteral("other"));
        else if (change == QLatin1String("host category"))
            editor.setSelectedCategory(QStringLiteral("Traffic"));
        else if (change == QLatin1String("host same tech"))
            editor.setTechFilter(band.tech->currentText());
        band.apply->click();

        // Then the catalogue is searched under the wait cursor only for a real change, and the template is left alone
        QCOMPARE(services.cursor().pushCount() - pushes, searches ? 1 : 0);
        QCOMPARE(services.cursor().pushed(), QList<qint16>(services.cursor().pushCount(), 11));
        QCOMPARE(services.cursor().Depth(), 0);
        QCOMPARE(editor.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(names(*selected(editor)), QStringLiteral("Traffic Volume"));
        QCOMPARE(changed.count(), 0);
        if (searches) {
            QCOMPARE(editor.NameFilter(), band.name->text());
            QCOMPARE(editor.SelectedCategory(), band.entity->currentText());
            QCOMPARE(editor.TechFilter(), band.tech->currentText());
            QCOMPARE(editor.FieldTypeFilter(), band.fieldType->currentText());
        }
    }

    void shouldShowTheFieldsThatPassTheCriteria_data()
    {
        QTest::addColumn<QString>("entity");
        QTest::addColumn<int>("tech");
        QTest::addColumn<int>("fieldType");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("owner");
        QTest::addColumn<QString>("shown");

        QTest::newRow("all entity types: every field of the application")
            << "<All Entity Types>" << 0 << 0 << "" << ""
            << "Cell Attempts|Cell Drops|Cell Load|Drop Rate|Bad Rate|Handover|Traffic Volume|Traffic Errors";
        QTest::newRow("technology by its code") << "Cell" << 2 << 0 << "" << "" << "Cell Drops|Cell Load";
        QTest::newRow("field type by its code") << "Cell" << 0 << 2 << "" << "" << "Drop Rate|Bad Rate";
        QTest::newRow("name, any case") << "<All Entity Types>" << 0 << 0 << "RATE" << "" << "Drop Rate|Bad Rate";
        QTest::newRow("all criteria together") << "<All Entity Types>" << 1 << 1 << "cell" << "" << "Cell Attempts|Cell Load";
        QTest::newRow("owner set by the host") << "<All Entity Types>" << 0 << 0 << "" << "2" << "";
        QTest::newRow("category without fields") << "Network" << 0 << 0 << "" << "" << "";
    }

    void shouldShowTheFieldsThatPassTheCriteria()
    {
        QFETCH(QString, entity);
        QFETCH(int, tech);
        QFETCH(int, fieldType);
        QFETCH(QString, name);
        QFETCH(QString, owner);
        QFETCH(QString, shown);

        Services services;
        XExpTemplate editor;
        editor.Load(App, QStringLiteral("Cell"), nullptr);
        const Band band(editor);
        band.entity->setCurrentText(entity);
        band.tech->setCurrentIndex(tech);
        band.fieldType->setCurrentIndex(fieldType);
        band.name->setText(name);
        editor.setOwnerFilter(owner);
        editor.setNameFilter(QStringLiteral("force a search"));
        band.apply->click();

        QCOMPARE(names(*available(editor)), shown);
        QCOMPARE(editor.OwnerFilter(), owner);
    }

    void shouldKeepFilterPropertiesAsPlainStores()
    {
        Services services;
        XExpTemplate editor;
        editor.Load(App, QStringLiteral("Cell"), nullptr);
        const int pushes = services.cursor().pushCount();

        editor.setTechFilter(QStringLiteral("t"));
        editor.setFieldTypeFilter(QStringLiteral("f"));
        editor.setNameFilter(QStringLiteral("n"));
        editor.setOwnerFilter(QStringLiteral("o"));
        editor.setSelectedCategory(QStringLiteral("c"));
        editor.setAppName(QStringLiteral("a"));

        QCOMPARE(services.cursor().pushCount(), pushes);
        QCOMPARE(editor.TechFilter() + editor.FieldTypeFilter() + editor.NameFilter() + editor.OwnerFilter()
                     + editor.SelectedCategory() + editor.AppName(), QStringLiteral("tfnoca"));
        QCOMPARE(child<QLineEdit>(editor, "txtNameFilter")->text(), QString());
        QCOMPARE(child<QComboBox>(editor, "cboEntityTypes")->currentText(), QStringLiteral("Cell"));
    }

    void shouldRouteEnter_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("searches");

        QTest::newRow("name box") << "txtNameFilter" << true;
        QTest::newRow("entity types") << "cboEntityTypes" << true;
        QTest::newRow("tech types") << "cboTechTypes" << true;
        QTest::newRow("field types") << "cboFieldTypes" << true;
        QTest::newRow("template list passes Enter on") << "stlSelected" << false;
        QTest::newRow("available list passes Enter on") << "stlAvailable" << false;
    }

    void shouldRouteEnter()
    {
        QFETCH(QString, target);
        QFETCH(bool, searches);

        // Given the editor in a dialog with a default button, and criteria that differ from the last search
        Services services;
        QDialog dialog;
        auto *editor = new XExpTemplate(&dialog);
        auto *ok = new QPushButton(QStringLiteral("OK"), &dialog);
        ok->setDefault(true);
        auto *layout = new QVBoxLayout(&dialog);
        layout->addWidget(editor);
        layout->addWidget(ok);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        editor->Load(App, QStringLiteral("Cell"), nullptr);
        child<QLineEdit>(*editor, "txtNameFilter")->setText(QStringLiteral("drop"));
        QSignalSpy okClicked(ok, &QPushButton::clicked);
        const int pushes = services.cursor().pushCount();

        // When Enter is pressed in the target
        QWidget *widget = editor->findChild<QWidget *>(target);
        if (auto *list = qobject_cast<XStaticList *>(widget))
            widget = list->view();
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Return);

        // Then a criterion box searches and keeps the key; elsewhere the dialog gets it
        QCOMPARE(services.cursor().pushCount() - pushes, searches ? 1 : 0);
        QCOMPARE(okClicked.count(), searches ? 0 : 1);
    }
};

QTEST_MAIN(TemplateSearchTest)
#include "tst_templatesearch.moc"
