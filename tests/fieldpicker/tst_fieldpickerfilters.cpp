#include "fieldpicker_helpers.h"

#include "fieldpicker/fieldview.h"
#include "fieldpicker/filterpass.h"

#include <PickerCtl/XFieldPicker.h>

#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;
using PickerCtl::fieldpicker::FieldFilterValues;

namespace {

using Setter = void (XFieldPicker::*)(const QString &);

Setter setterNamed(const QString &name)
{
    if (name == QLatin1String("TechFilter"))
        return &XFieldPicker::setTechFilter;
    if (name == QLatin1String("OwnerFilter"))
        return &XFieldPicker::setOwnerFilter;
    if (name == QLatin1String("FieldTypeFilter"))
        return &XFieldPicker::setFieldTypeFilter;
    return &XFieldPicker::setNameFilter;
}

/// The sample catalogue with RCV forms: the default form stands for Traffic, "Cells form" for
/// Cell, whose first field is the form's "Drops".
std::shared_ptr<MemoryCatalog> makeRcvCatalog()
{
    auto catalog = makeSampleCatalog();
    catalog->addRcvForm(QStringLiteral("DefaultOnly"), QStringLiteral("Traffic"));
    catalog->addRcvForm(QStringLiteral("Cells form"), QStringLiteral("Cell"));
    catalog->addRcvField(QStringLiteral("Cells form"), QStringLiteral("Drops"), 300);
    return catalog;
}

FieldFilterValues withName(const QString &name)
{
    FieldFilterValues values;
    values.name = name;
    return values;
}

} // namespace

class TestFieldPickerFilters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldRefillExactlyWhenAFilterChanges_data();
    void shouldRefillExactlyWhenAFilterChanges();
    void shouldFillTheListUnderItsOwnCursorInsideARefresh();
    void shouldNotRefillWhenBusyHourUseChanges();
    void shouldMoveToTheCategoryOfTheRcvForm_data();
    void shouldMoveToTheCategoryOfTheRcvForm();
    void shouldSelectTheRcvFieldWithoutKeepingItsName();
    void shouldIgnoreTheRcvFieldWithoutAForm();
    void shouldBoundABusyHourViewByTheClusterEntity_data();
    void shouldBoundABusyHourViewByTheClusterEntity();
    void shouldKeepTheClusterEntityTheCatalogueKnows();
    void shouldNarrowOnlyWhenTheNameFilterIsExtended_data();
    void shouldNarrowOnlyWhenTheNameFilterIsExtended();
    void shouldNarrowToWhatAFullPassFinds();
    void shouldNotReuseAResultTheListAppendedTo();
    void shouldPassTheWholeSourceAgainAfterTheSourceShrank();
};

void TestFieldPickerFilters::shouldRefillExactlyWhenAFilterChanges_data()
{
    QTest::addColumn<QString>("setter");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("refills");
    QTest::addColumn<int>("listed");

    QTest::newRow("a new name filter refills") << "NameFilter" << "" << "field 2" << true << 1;
    QTest::newRow("the same name filter does nothing") << "NameFilter" << "field 2" << "field 2" << false << 1;
    QTest::newRow("a name filter in another case is another value")
        << "NameFilter" << "field 2" << "FIELD 2" << true << 1;
    QTest::newRow("clearing the name filter refills") << "NameFilter" << "field 2" << "" << true << 3;
    QTest::newRow("a new field type refills") << "FieldTypeFilter" << "" << "EXP" << true << 0;
    QTest::newRow("the same field type does nothing") << "FieldTypeFilter" << "CNT" << "CNT" << false << 3;
    QTest::newRow("a trailing blank is another field type") << "FieldTypeFilter" << "CNT" << "CNT " << true << 0;
    QTest::newRow("a new owner refills") << "OwnerFilter" << "" << "7" << true << 0;
    QTest::newRow("the same owner does nothing") << "OwnerFilter" << "7" << "7" << false << 0;
    QTest::newRow("a new technology refills") << "TechFilter" << "" << "GSM" << true << 0;
    QTest::newRow("the same technology does nothing") << "TechFilter" << "GSM" << "GSM" << false << 0;
}

void TestFieldPickerFilters::shouldRefillExactlyWhenAFilterChanges()
{
    QFETCH(QString, setter);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(bool, refills);
    QFETCH(int, listed);

    // Given a control showing Region's three fields under the first filter value
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    (picker.*setterNamed(setter))(before);
    scope.cursor()->clear();

    // When the filter is set to the second value
    (picker.*setterNamed(setter))(after);

    // Then a change refreshes the view and fills the list, each under its own cursor; the same
    // value shows no cursor at all
    QCOMPARE(scope.cursor()->pushCount(), refills ? 2 : 0);
    QCOMPARE(scope.cursor()->Depth(), 0);
    QCOMPARE(picker.ListCount(), listed);
}

void TestFieldPickerFilters::shouldFillTheListUnderItsOwnCursorInsideARefresh()
{
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    scope.cursor()->clear();

    QVERIFY(picker.Refresh());

    // Refresh, the view's refresh and the fill each push and pop their own hourglass.
    QCOMPARE(scope.cursor()->pushed(), (QList<qint16>{11, 11, 11}));
    QCOMPARE(scope.cursor()->maxDepth(), 3);
    QCOMPARE(scope.cursor()->Depth(), 0);
}

void TestFieldPickerFilters::shouldNotRefillWhenBusyHourUseChanges()
{
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    scope.cursor()->clear();

    picker.setUseForBusyHour(true);

    QCOMPARE(scope.cursor()->pushCount(), 0);
    QCOMPARE(picker.ListCount(), 3);
    QVERIFY(!picker.MultiSelect());
}

void TestFieldPickerFilters::shouldMoveToTheCategoryOfTheRcvForm_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("category");

    QTest::newRow("the scenario form is the default form") << "Cells form" << "Scenario Data" << "Traffic";
    QTest::newRow("no form is the default form too") << "Cells form" << "" << "Traffic";
    QTest::newRow("a form of its own") << "" << "Cells form" << "Cell";
    QTest::newRow("no form while none is stored changes nothing") << "" << "" << "Region";
    QTest::newRow("a form the registry does not know keeps the category") << "" << "Unknown form" << "Region";
}

void TestFieldPickerFilters::shouldMoveToTheCategoryOfTheRcvForm()
{
    QFETCH(QString, before);
    QFETCH(QString, form);
    QFETCH(QString, category);

    ServicesScope scope(makeRcvCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    if (!before.isEmpty()) {
        picker.setRcvFormFilter(before);
        picker.setSelectedCategory(QStringLiteral("Region"));
    }

    picker.setRcvFormFilter(form);

    QCOMPARE(picker.SelectedCategory(), category);
    QCOMPARE(picker.RcvFormFilter(), form);
    QCOMPARE(scope.cursor()->Depth(), 0);
}

void TestFieldPickerFilters::shouldSelectTheRcvFieldWithoutKeepingItsName()
{
    // Given a control on Region with the form of the cells
    ServicesScope scope(makeRcvCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    picker.setRcvFormFilter(QStringLiteral("Cells form"));
    picker.setSelectedCategory(QStringLiteral("Region"));

    // When the form's field is asked for
    picker.setRcvFieldFilter(QStringLiteral("Drops"));

    // Then its category is shown with the field selected, and the name is not kept
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Cell"));
    QCOMPARE(idsOf(picker.Selection()), QList<qint32>{300});
    QCOMPARE(picker.RcvFieldFilter(), QString());

    // And a field the form does not have leaves the selection as it was
    picker.setRcvFieldFilter(QStringLiteral("No such field"));
    QCOMPARE(idsOf(picker.Selection()), QList<qint32>{300});
}

void TestFieldPickerFilters::shouldIgnoreTheRcvFieldWithoutAForm()
{
    ServicesScope scope(makeRcvCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    scope.cursor()->clear();

    picker.setRcvFieldFilter(QStringLiteral("Drops"));

    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Region"));
    QCOMPARE(picker.SelectionCount(), 0);
    QCOMPARE(scope.cursor()->pushCount(), 0);
}

void TestFieldPickerFilters::shouldBoundABusyHourViewByTheClusterEntity_data()
{
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("cluster");
    QTest::addColumn<bool>("busyHour");
    QTest::addColumn<bool>("inside");

    QTest::newRow("a category below the cluster is inside") << "Cell" << "Region" << true << true;
    QTest::newRow("a category beside the cluster is outside") << "Site" << "Region" << true << false;
    QTest::newRow("the cluster category itself is inside") << "Region" << "Region" << true << true;
    QTest::newRow("the cluster's parent is outside") << "Network" << "Region" << true << false;
    QTest::newRow("without busy-hour use the cluster is ignored") << "Site" << "Region" << false << true;
    QTest::newRow("without a cluster every category is inside") << "Site" << "" << true << true;
    QTest::newRow("without a current category the view is inside") << "" << "Region" << true << true;
}

void TestFieldPickerFilters::shouldBoundABusyHourViewByTheClusterEntity()
{
    QFETCH(QString, current);
    QFETCH(QString, cluster);
    QFETCH(bool, busyHour);
    QFETCH(bool, inside);

    const auto catalog = makeSampleCatalog();
    const QString app = QLatin1String(ReportsApp);
    const FieldCategoryPtr currentCategory = current.isEmpty() ? nullptr : catalog->GetCategory(app, current);
    const FieldCategoryPtr clusterCategory = cluster.isEmpty() ? nullptr : catalog->GetCategory(app, cluster);

    QCOMPARE(fieldpicker::insideCluster(currentCategory, clusterCategory, busyHour), inside);

    // Outside the cluster the view takes the application-wide source, empty without ShowAll.
    fieldpicker::FieldView view;
    view.setCurrentCategory(currentCategory);
    view.setClusterCategory(clusterCategory);
    view.filters().useForBusyHour = busyHour;
    QCOMPARE(view.showsApplicationWideList(true), !currentCategory || !inside);
    view.fill(*catalog, app, false, true);
    const qsizetype ownFields = currentCategory && inside ? currentCategory->Fields()->size() : 0;
    QCOMPARE(view.shownFields()->size(), ownFields);
}

void TestFieldPickerFilters::shouldKeepTheClusterEntityTheCatalogueKnows()
{
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Site")));
    QCOMPARE(picker.ClusterEntityId(), 0);

    picker.setClusterEntityId(2);
    QCOMPARE(picker.ClusterEntityId(), 2);

    picker.setClusterEntityId(99);
    QCOMPARE(picker.ClusterEntityId(), 0);
    QCOMPARE(scope.cursor()->Depth(), 0);
}

void TestFieldPickerFilters::shouldNarrowOnlyWhenTheNameFilterIsExtended_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("otherFilterChanges");
    QTest::addColumn<bool>("narrows");

    QTest::newRow("a character typed") << "fie" << "fiel" << false << true;
    QTest::newRow("the first character typed") << "" << "f" << false << true;
    QTest::newRow("a wildcard typed") << "fie" << "fie*" << false << true;
    QTest::newRow("a character deleted widens") << "fiel" << "fie" << false << false;
    QTest::newRow("another text") << "fie" << "xfie" << false << false;
    QTest::newRow("the same name but another field type") << "fie" << "fiel" << true << false;
}

void TestFieldPickerFilters::shouldNarrowOnlyWhenTheNameFilterIsExtended()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(bool, otherFilterChanges);
    QFETCH(bool, narrows);

    FieldFilterValues next = withName(to);
    if (otherFilterChanges)
        next.fieldType = QStringLiteral("CNT");
    QCOMPARE(fieldpicker::narrows(withName(from), next), narrows);
}

void TestFieldPickerFilters::shouldNarrowToWhatAFullPassFinds()
{
    const auto catalog = makeSampleCatalog();
    const FieldsPtr all = catalog->GetCategoryTree(QLatin1String(ReportsApp))->AllFields(0);
    fieldpicker::NarrowingFilterPass pass;
    QString typed;
    for (const QChar c : QStringLiteral("re*n field 1")) {
        typed += c;
        const FieldsPtr narrowed = pass.run(all, withName(typed));
        QCOMPARE(idsOf(narrowed), idsOf(fieldpicker::filterPass(*all, withName(typed))));
    }
    QCOMPARE(idsOf(pass.run(all, withName(typed))), QList<qint32>{200});

    // Taking characters back finds what a full pass finds, too
    while (!typed.isEmpty()) {
        typed.chop(1);
        QCOMPARE(idsOf(pass.run(all, withName(typed))), idsOf(fieldpicker::filterPass(*all, withName(typed))));
    }
}

void TestFieldPickerFilters::shouldNotReuseAResultTheListAppendedTo()
{
    const auto catalog = makeSampleCatalog();
    const FieldsPtr all = catalog->GetCategoryTree(QLatin1String(ReportsApp))->AllFields(0);
    fieldpicker::NarrowingFilterPass pass;
    const FieldsPtr shown = pass.run(all, withName(QStringLiteral("site")));
    QCOMPARE(shown->size(), 2);
    pass.run(all, withName(QStringLiteral("site field 1")));

    // The host appended a field to the shown list
    shown->Add(catalog->GetField(QLatin1String(ReportsApp), 500));

    QCOMPARE(idsOf(pass.run(all, withName(QStringLiteral("site")))), (QList<qint32>{100, 101}));
    QCOMPARE(idsOf(pass.run(all, withName(QStringLiteral("site f")))), (QList<qint32>{100, 101}));
}

void TestFieldPickerFilters::shouldPassTheWholeSourceAgainAfterTheSourceShrank()
{
    auto source = Fields::create();
    const auto catalog = makeSampleCatalog();
    for (const qint32 id : {100, 101, 200})
        source->Add(catalog->GetField(QLatin1String(ReportsApp), id));
    fieldpicker::NarrowingFilterPass pass;
    QCOMPARE(pass.run(source, withName(QStringLiteral("field")))->size(), 3);

    // The catalogue removed a field in place and added one of another category.
    source->removeAt(0);
    source->Add(catalog->GetField(QLatin1String(ReportsApp), 500));
    source->Add(catalog->GetField(QLatin1String(ReportsApp), 501));

    QCOMPARE(idsOf(pass.run(source, withName(QStringLiteral("field 2")))), (QList<qint32>{101, 501}));
}

QTEST_MAIN(TestFieldPickerFilters)
#include "tst_fieldpickerfilters.moc"
