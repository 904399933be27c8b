#include "fieldpicker_helpers.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/Notifiers.h>
#include <PickerCtl/XFieldPicker.h>

#include <QAbstractItemView>
#include <QRegularExpression>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;

namespace {

constexpr int KeyRole = Qt::UserRole + 1;

QModelIndex nodeWithKey(const QAbstractItemModel &model, const QString &key, const QModelIndex &parent = {})
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data(KeyRole).toString() == key)
            return index;
        if (const QModelIndex found = nodeWithKey(model, key, index); found.isValid())
            return found;
    }
    return {};
}

void showLoaded(XFieldPicker &picker, const QString &category)
{
    picker.InitProperties();
    picker.resize(800, 500);
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));
    QVERIFY(picker.Load(QLatin1String(ReportsApp), category));
}

void addFailureKindRows()
{
    QTest::addColumn<bool>("foreign");
    QTest::newRow("a catalogue error") << false;
    QTest::newRow("an exception of no standard kind") << true;
}

QPoint centreOfRow(QAbstractItemView &view, int row)
{
    return view.visualRect(view.model()->index(row, 0)).center();
}

/// A properties store that cannot be read or written.
class BrokenStore : public PropertyStore
{
public:
    bool foreign = false;
    QVariant Item(const QString &) const override { fail(); }
    void SetItem(const QString &, const QVariant &) override { fail(); }
    bool Contains(const QString &) const override { fail(); }
    void Remove(const QString &) override { fail(); }

private:
    [[noreturn]] void fail() const
    {
        if (foreign)
            throw 7;
        throw CatalogError(QStringLiteral("The settings cannot be read."));
    }
};

} // namespace

class TestFieldPickerEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldRaiseTheEventsOfClicksAndFocus();
    void shouldSelectTheClickedNodeOnce();
    void shouldRebuildTheListOnlyForTheCurrentEntity_data();
    void shouldRebuildTheListOnlyForTheCurrentEntity();
    void shouldSurviveAFailingCatalogue_data();
    void shouldSurviveAFailingCatalogue();
    void shouldLoadTheRootAloneWhenTheCatalogueGivesNoNewTree();
    void shouldSurviveAPropertiesStoreThatFails_data();
    void shouldSurviveAPropertiesStoreThatFails();
};

void TestFieldPickerEvents::shouldRaiseTheEventsOfClicksAndFocus()
{
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    showLoaded(picker, QStringLiteral("Region"));
    EventLog events(picker);
    QAbstractItemView *view = listOf(picker)->view();

    // A click raises ItemClick, then StateChange, and no Change
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centreOfRow(*view, 1));
    QVERIFY(events.names.size() >= 2);
    QCOMPARE(events.names.mid(events.names.size() - 2),
             (QStringList{QStringLiteral("ItemClick"), QStringLiteral("StateChange")}));
    QCOMPARE(events.lastField->Id(), 201);
    QVERIFY(!events.names.contains(QStringLiteral("Change")));

    // A double click raises DblClick once, with the field and the category's name
    const QPoint at = centreOfRow(*view, 2);
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(events.names.count(QStringLiteral("DblClick")), 1);
    QCOMPARE(events.lastField->Id(), 202);
    QCOMPARE(events.lastCategoryName, QStringLiteral("Region"));

    // The tree gaining and losing focus each raise StateChange, and nothing else
    events.names.clear();
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(treeOf(picker), &in);
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(treeOf(picker), &out);
    QCOMPARE(events.names, (QStringList{QStringLiteral("StateChange"), QStringLiteral("StateChange")}));
}

void TestFieldPickerEvents::shouldSelectTheClickedNodeOnce()
{
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    showLoaded(picker, QStringLiteral("Region"));
    QTreeView *tree = treeOf(picker);
    EventLog events(picker);

    // A click on another node makes its category current once
    const QModelIndex cell = nodeWithKey(*tree->model(), QStringLiteral("cell"));
    QVERIFY(cell.isValid());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(cell).center());
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Cell"));
    QCOMPARE(events.names.count(QStringLiteral("CategoryClick")), 1);
    QCOMPARE(events.names.last(), QStringLiteral("StateChange"));

    // A click on the current node selects it again
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(cell).center());
    QCOMPARE(events.names.count(QStringLiteral("CategoryClick")), 2);
    QCOMPARE(scope.cursor()->Depth(), 0);
}

void TestFieldPickerEvents::shouldRebuildTheListOnlyForTheCurrentEntity_data()
{
    QTest::addColumn<qint32>("entity");
    QTest::addColumn<bool>("rebuilds");

    QTest::newRow("the current category's entity") << 2 << true;
    QTest::newRow("another entity") << 3 << false;
}

void TestFieldPickerEvents::shouldRebuildTheListOnlyForTheCurrentEntity()
{
    QFETCH(qint32, entity);
    QFETCH(bool, rebuilds);

    const auto catalog = makeSampleCatalog();
    ServicesScope scope(catalog);
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    const FieldsPtr before = picker.Fields();
    scope.cursor()->clear();

    catalog->GetFieldUpdates()->RaiseFieldsChange(entity, Fields::create(), FieldUpdates::Changed);

    QCOMPARE(scope.cursor()->pushCount(), rebuilds ? 2 : 0);
    QCOMPARE(picker.Fields() != before, rebuilds);
}

void TestFieldPickerEvents::shouldSurviveAFailingCatalogue_data()
{
    addFailureKindRows();
}

void TestFieldPickerEvents::shouldSurviveAFailingCatalogue()
{
    QFETCH(bool, foreign);

    // Given a catalogue that fails while the control is created
    const auto catalog = std::make_shared<FailingCatalog>();
    fillSampleCatalog(*catalog);
    catalog->throwForeign = foreign;
    catalog->failServices = true;
    ServicesScope scope(catalog);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("connecting the catalogue failed")));
    XFieldPicker picker;
    picker.InitProperties();
    catalog->failServices = false;

    // Then the control still loads and copies nothing
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Site")));
    QCOMPARE(picker.ListCount(), 2);
    picker.SelectAll();
    picker.Copy();

    // When a busy-hour view outside its cluster is rebuilt while the catalogue fails
    XFieldPicker watching;
    watching.InitProperties();
    QVERIFY(watching.Load(QLatin1String(ReportsApp), QStringLiteral("Site")));
    watching.setShowAll(true);
    watching.setClusterEntityId(2);
    watching.setUseForBusyHour(true);
    catalog->failTree = true;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("catalogue change failed")));
    catalog->GetFieldUpdates()->RaiseFieldsChange(4, Fields::create(), FieldUpdates::Changed);

    // And a load fails
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("loading failed")));
    QVERIFY(!picker.Load(QLatin1String(OtherApp), QString()));

    // Then nothing escaped, the load reports its failure and the cursor is balanced
    QVERIFY(!picker.IsDataValid());
    QCOMPARE(scope.cursor()->Depth(), 0);
    QCOMPARE(scope.cursor()->unbalancedPops(), 0);
}

void TestFieldPickerEvents::shouldLoadTheRootAloneWhenTheCatalogueGivesNoNewTree()
{
    const auto catalog = std::make_shared<FailingCatalog>();
    fillSampleCatalog(*catalog);
    catalog->nullNewTree = true;
    ServicesScope scope(catalog);
    XFieldPicker picker;
    picker.InitProperties();
    picker.setSingleBranch(tplSingle);

    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell")));

    QCOMPARE(treeOf(picker)->model()->rowCount(), 1);
    QCOMPARE(treeOf(picker)->model()->rowCount(treeOf(picker)->model()->index(0, 0)), 0);
    QCOMPARE(scope.cursor()->Depth(), 0);
}

void TestFieldPickerEvents::shouldSurviveAPropertiesStoreThatFails_data()
{
    addFailureKindRows();
}

void TestFieldPickerEvents::shouldSurviveAPropertiesStoreThatFails()
{
    QFETCH(bool, foreign);

    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    auto store = std::make_shared<BrokenStore>();
    store->foreign = foreign;
    picker.setProperties(store);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("reading the column layout failed")));
    picker.LoadProperties();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("saving the column layout failed")));
    picker.SaveProperties();
}

QTEST_MAIN(TestFieldPickerEvents)
#include "tst_fieldpickerevents.moc"
