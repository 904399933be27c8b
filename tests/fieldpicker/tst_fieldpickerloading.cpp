#include "fieldpicker_helpers.h"

#include "fieldpicker/fieldpicker_header.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/MemoryPropertyStore.h>
#include <PickerCtl/XFieldPicker.h>

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;

namespace {

constexpr int SortedRole = Qt::UserRole + 4;
constexpr int KeyRole = Qt::UserRole + 1;
const QString EmptyViewText = QStringLiteral("There are no fields/expressions to show in this view.");

QString headerOf(const XFieldPicker &picker)
{
    return picker.findChild<QLabel *>(QStringLiteral("lblHeaderRight"))->text();
}

// "Entities(Network(Region(Cell),Site))": node texts in display order, children in brackets.
QString dump(const QAbstractItemModel &model, const QModelIndex &parent = QModelIndex())
{
    QStringList parts;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        QString part = index.data().toString();
        if (model.rowCount(index) > 0)
            part += QLatin1Char('(') + dump(model, index) + QLatin1Char(')');
        parts.append(part);
    }
    return parts.join(QLatin1Char(','));
}

QString selectedKey(const XFieldPicker &picker)
{
    return treeOf(picker)->currentIndex().data(KeyRole).toString();
}

/// A catalogue whose tree starts at a grouping node: the root carries no category.
class GroupingRootCatalog : public MemoryCatalog
{
public:
    CategoryTreePtr GetCategoryTree(const QString &appName) override
    {
        const CategoryTreePtr real = MemoryCatalog::GetCategoryTree(appName);
        return std::make_shared<Tree>(real);
    }

private:
    struct Root : CategoryNode
    {
        explicit Root(CategoryNodePtr real)
            : m_real(std::move(real))
        {
        }
        FieldCategoryPtr Category() const override { return nullptr; }
        qint32 ChildCount() const override { return 1; }
        CategoryNodePtr FirstChild() const override { return m_real; }
        CategoryNodePtr NextSibling() const override { return nullptr; }
        QString Key() const override { return QStringLiteral("group"); }
        CategoryNodePtr m_real;
    };
    struct Nodes : CategoryNodes
    {
        explicit Nodes(std::shared_ptr<CategoryNodes> real)
            : m_real(std::move(real))
        {
        }
        CategoryNodePtr Root() const override { return std::make_shared<GroupingRootCatalog::Root>(m_real->Root()); }
        CategoryNodePtr Find(const QString &key, const QString &parentKey) const override
        {
            return m_real->Find(key, parentKey);
        }
        FieldCategoryPtr CategoryByKey(const QVariant &key) const override { return m_real->CategoryByKey(key); }
        std::shared_ptr<CategoryNodes> m_real;
    };
    struct Tree : CategoryTree
    {
        explicit Tree(CategoryTreePtr real)
            : m_real(std::move(real))
        {
        }
        std::shared_ptr<CategoryNodes> Nodes() const override
        {
            return std::make_shared<GroupingRootCatalog::Nodes>(m_real->Nodes());
        }
        FieldsPtr AllFields(qint32 which) const override { return m_real->AllFields(which); }
        CategoryNodePtr Add(const FieldCategoryPtr &category, const QString &parentKey) override
        {
            return m_real->Add(category, parentKey);
        }
        CategoryTreePtr m_real;
    };
};

} // namespace

class TestFieldPickerLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldBuildTheTreeOfTheCatalogue_data();
    void shouldBuildTheTreeOfTheCatalogue();
    void shouldShowOnlyTheRootWhenTheCatalogueRootHasNoCategory_data();
    void shouldShowOnlyTheRootWhenTheCatalogueRootHasNoCategory();
    void shouldSortExactlyTheNodesWithSeveralChildren();
    void shouldKeepTheTreeWhenTheSameApplicationLoadsAgain();
    void shouldFailLoadAndRestoreTheCursorWhenTheCatalogueFails_data();
    void shouldFailLoadAndRestoreTheCursorWhenTheCatalogueFails();
    void shouldNameTheKindOfFieldsByTheEditor_data();
    void shouldNameTheKindOfFieldsByTheEditor();
    void shouldSelectCategoriesByNameAndFallBackToTheSelectedNode();
    void shouldLeaveTheListAloneInTreeOnlyMode();
    void shouldTakeTheClipboardFormatAndFullRowSettingFromTheLoad();
};

void TestFieldPickerLoading::shouldBuildTheTreeOfTheCatalogue_data()
{
    QTest::addColumn<bool>("entityView");
    QTest::addColumn<int>("rootLbl");
    QTest::addColumn<int>("branch");
    QTest::addColumn<QString>("app");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("header");
    QTest::addColumn<int>("listCount");

    QTest::newRow("entity view")
        << true << int(tplEntities) << int(tplNormal) << "Reports" << "Cell"
        << "Entities(Network(Region(Cell),Site))" << "cell" << "Available Cell Fields" << 2;
    // An unknown category selects the first node under the root and shows its category.
    QTest::newRow("unknown category")
        << true << int(tplEntities) << int(tplNormal) << "Reports" << "No such category"
        << "Entities(Network(Region(Cell),Site))" << "net" << "Available Network Fields" << 0;
    QTest::newRow("generic root label")
        << true << int(tplGeneric) << int(tplNormal) << "Reports" << "Traffic"
        << "Generic(Generic Categories(Generic(SYSTEM(Performance),Traffic)))" << "traffic"
        << "Available Traffic Fields" << 2;
    QTest::newRow("generic branch node shows no category")
        << true << int(tplGeneric) << int(tplNormal) << "Reports" << "No such category"
        << "Generic(Generic Categories(Generic(SYSTEM(Performance),Traffic)))" << genericLabel()
        << "Available Fields" << 0;
    QTest::newRow("catalogue view starts at the catalogue root")
        << false << int(tplEntities) << int(tplNormal) << "Reports" << "Traffic"
        << "Entities(Catalogue(Generic(SYSTEM(Performance),Traffic),Network(Region(Cell),Site)))"
        << "traffic" << "Available Traffic Fields" << 2;
    QTest::newRow("unknown application: the root alone")
        << true << int(tplEntities) << int(tplNormal) << "Nowhere" << "Cell" << "Entities"
        << "Entities" << "Available Fields" << 0;
    QTest::newRow("single branch up to the top")
        << false << int(tplEntities) << int(tplSingle) << "Reports" << "Cell"
        << "Entities(Catalogue(Network(Region(Cell))))" << "cell" << "Available Cell Fields" << 2;
    QTest::newRow("single branch ends at SYSTEM")
        << false << int(tplEntities) << int(tplSingle) << "Reports" << "Performance"
        << "Entities(SYSTEM(Performance))" << "perf" << "Available Performance Fields" << 1;
    QTest::newRow("single branch with the children of the category")
        << false << int(tplEntities) << int(tplSinglechildren) << "Reports" << "Network"
        << "Entities(Catalogue(Network(Region,Site)))" << "net" << "Available Network Fields" << 0;
    // In the entity view the branch starts at the node that starts the entities.
    QTest::newRow("entity view, single branch from the entity root")
        << true << int(tplEntities) << int(tplSingle) << "Reports" << "Cell"
        << "Entities(Network(Region(Cell)))" << "cell" << "Available Cell Fields" << 2;
    QTest::newRow("entity view, single branch with the children of the category")
        << true << int(tplEntities) << int(tplSinglechildren) << "Reports" << "Region"
        << "Entities(Network(Region(Cell)))" << "region" << "Available Region Fields" << 3;
    QTest::newRow("entity view, single branch of the entity root with its children")
        << true << int(tplEntities) << int(tplSinglechildren) << "Reports" << "Network"
        << "Entities(Network(Region,Site))" << "net" << "Available Network Fields" << 0;
    QTest::newRow("entity view, single branch outside the entities: the root alone")
        << true << int(tplEntities) << int(tplSingle) << "Reports" << "Traffic"
        << "Entities" << "Entities" << "Available Fields" << 0;
    QTest::newRow("generic root label, single branch under the generic node")
        << true << int(tplGeneric) << int(tplSingle) << "Reports" << "Traffic"
        << "Generic(Generic Categories(Generic(Traffic)))" << "traffic" << "Available Traffic Fields" << 2;
    QTest::newRow("single branch of an unknown category: the root alone")
        << false << int(tplEntities) << int(tplSingle) << "Reports" << "No such category"
        << "Entities" << "Entities" << "Available Fields" << 0;
}

void TestFieldPickerLoading::shouldBuildTheTreeOfTheCatalogue()
{
    QFETCH(bool, entityView);
    QFETCH(int, rootLbl);
    QFETCH(int, branch);
    QFETCH(QString, app);
    QFETCH(QString, category);
    QFETCH(QString, tree);
    QFETCH(QString, selected);
    QFETCH(QString, header);
    QFETCH(int, listCount);

    // Given
    ServicesScope scope(makeSampleCatalog(), entityView);
    XFieldPicker picker;
    picker.InitProperties();
    picker.setRootLbl(ETPLRootLbl(rootLbl));
    picker.setSingleBranch(ETPLSingleBranch(branch));
    QAbstractItemModelTester tester(treeOf(picker)->model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy categoryClicks(&picker, &XFieldPicker::CategoryClick);

    // When
    QVERIFY(picker.Load(app, category));

    // Then
    QCOMPARE(dump(*treeOf(picker)->model()), tree);
    QCOMPARE(selectedKey(picker), selected);
    QCOMPARE(headerOf(picker), header);
    QCOMPARE(picker.findChild<QLabel *>(QStringLiteral("lblHeaderRight"))->toolTip(), header);
    QCOMPARE(picker.ListCount(), listCount);
    QCOMPARE(listOf(picker)->ShowEmptyText(), listCount == 0);
    QCOMPARE(listOf(picker)->EmptyText(), EmptyViewText);
    QVERIFY(picker.IsDataValid());
    QCOMPARE(categoryClicks.count(), 1);
    QCOMPARE(picker.IsAtRoot(), categoryClicks.at(0).at(0).value<FieldCategoryPtr>() == nullptr);
    QCOMPARE(scope.cursor()->Depth(), 0);
    QVERIFY(scope.cursor()->pushCount() > 0);
}

void TestFieldPickerLoading::shouldShowOnlyTheRootWhenTheCatalogueRootHasNoCategory_data()
{
    QTest::addColumn<bool>("showAll");
    QTest::addColumn<int>("listCount");

    QTest::newRow("show all: every field of the application") << true << 10;
    QTest::newRow("without show all: an empty list") << false << 0;
}

void TestFieldPickerLoading::shouldShowOnlyTheRootWhenTheCatalogueRootHasNoCategory()
{
    QFETCH(bool, showAll);
    QFETCH(int, listCount);

    // Given a catalogue whose root node is a pure grouping node
    auto catalog = std::make_shared<GroupingRootCatalog>();
    fillSampleCatalog(*catalog);
    ServicesScope scope(catalog, false);
    XFieldPicker picker;
    picker.InitProperties();
    picker.setShowAll(showAll);

    // When
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell")));

    // Then the root is the only node, and the root's view is the application-wide list
    QCOMPARE(dump(*treeOf(picker)->model()), QStringLiteral("Entities"));
    QCOMPARE(selectedKey(picker), QStringLiteral("Entities"));
    QVERIFY(picker.IsAtRoot());
    QCOMPARE(picker.ListCount(), listCount);
    QCOMPARE(headerOf(picker), QStringLiteral("Available Fields"));
}

void TestFieldPickerLoading::shouldSortExactlyTheNodesWithSeveralChildren()
{
    ServicesScope scope(makeSampleCatalog(), false);
    XFieldPicker picker;
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell")));

    QStringList sorted;
    const QAbstractItemModel &model = *treeOf(picker)->model();
    std::function<void(const QModelIndex &)> visit = [&](const QModelIndex &parent) {
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            if (index.data(SortedRole).toBool())
                sorted.append(index.data().toString());
            visit(index);
        }
    };
    visit(QModelIndex());
    QCOMPARE(sorted, (QStringList{QStringLiteral("Catalogue"), QStringLiteral("Generic"),
                                  QStringLiteral("Network")}));
}

void TestFieldPickerLoading::shouldKeepTheTreeWhenTheSameApplicationLoadsAgain()
{
    // Given
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell")));
    QSignalSpy resets(treeOf(picker)->model(), &QAbstractItemModel::modelReset);

    // When the same application loads another category
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Site")));

    // Then only the selection moved
    QCOMPARE(resets.count(), 0);
    QCOMPARE(selectedKey(picker), QStringLiteral("site"));
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Site"));

    // When another application loads, the tree is rebuilt
    QVERIFY(picker.Load(QLatin1String(OtherApp), QStringLiteral("Plans")));
    QVERIFY(resets.count() > 0);
    QCOMPARE(dump(*treeOf(picker)->model()), QStringLiteral("Entities"));

    // ClearAll keeps the application name: the same application does not rebuild the tree
    picker.ClearAll();
    QVERIFY(picker.IsAtRoot());
    QCOMPARE(picker.ListCount(), 0);
    QVERIFY(picker.Load(QLatin1String(OtherApp), QStringLiteral("Plans")));
    QCOMPARE(treeOf(picker)->model()->rowCount(), 0);
    QVERIFY(picker.IsAtRoot());
    QCOMPARE(scope.cursor()->Depth(), 0);
}

void TestFieldPickerLoading::shouldFailLoadAndRestoreTheCursorWhenTheCatalogueFails_data()
{
    QTest::addColumn<bool>("failTree");
    QTest::addColumn<bool>("failCategory");
    QTest::addColumn<bool>("duplicateKey");

    QTest::newRow("category tree fails") << true << false << false;
    QTest::newRow("category look-up fails") << false << true << false;
    QTest::newRow("a category keyed like the root") << false << false << true;
}

void TestFieldPickerLoading::shouldFailLoadAndRestoreTheCursorWhenTheCatalogueFails()
{
    QFETCH(bool, failTree);
    QFETCH(bool, failCategory);
    QFETCH(bool, duplicateKey);

    // Given
    auto catalog = std::make_shared<FailingCatalog>();
    if (duplicateKey) {
        // The category's own key equals the root label, though its catalogue node key does not.
        catalog->addApplication(QLatin1String(ReportsApp));
        addCategory(*catalog, QStringLiteral("root"), QString(), QStringLiteral("Catalogue"));
        addCategory(*catalog, QStringLiteral("net"), QStringLiteral("root"), QStringLiteral("Network"), 1,
                    QStringLiteral("Entities"));
        addCategory(*catalog, QStringLiteral("Entities"), QStringLiteral("Entities"), QStringLiteral("Cell"), 3,
                    QStringLiteral("clash"));
    } else {
        fillSampleCatalog(*catalog);
    }
    catalog->failTree = failTree;
    catalog->failCategory = failCategory;
    ServicesScope scope(catalog);
    XFieldPicker picker;
    picker.InitProperties();

    // When
    const bool loaded = picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell"));

    // Then
    QVERIFY(!loaded);
    QVERIFY(!picker.IsDataValid());
    QCOMPARE(picker.GetStatus(), QStringLiteral("Hierarchy incomplete (Load failed/cancelled)."));
    QVERIFY(scope.cursor()->pushCount() > 0);
    QCOMPARE(scope.cursor()->Depth(), 0);
    QCOMPARE(scope.cursor()->unbalancedPops(), 0);

    // And a later good load of the same application builds the tree and is valid again
    catalog->failTree = false;
    catalog->failCategory = false;
    if (!duplicateKey) {
        QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell")));
        QVERIFY(picker.IsDataValid());
        QCOMPARE(selectedKey(picker), QStringLiteral("cell"));
    }
}

void TestFieldPickerLoading::shouldNameTheKindOfFieldsByTheEditor_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("withCategory");
    QTest::addColumn<QString>("withoutCategory");

    QTest::newRow("no editor") << "" << "Available Traffic Fields" << "Available Fields";
    QTest::newRow("UDC editor") << "Network User-Defined Calculation" << "Available Traffic UDC's"
                                << "Available UDC's";
    QTest::newRow("the mark alone, with its blank") << " User-Defined Calculation"
                                                    << "Available Traffic UDC's" << "Available UDC's";
    QTest::newRow("without the leading blank") << "User-Defined Calculation" << "Available Traffic Fields"
                                               << "Available Fields";
    QTest::newRow("other case") << "x user-defined calculation" << "Available Traffic Fields"
                                << "Available Fields";
}

void TestFieldPickerLoading::shouldNameTheKindOfFieldsByTheEditor()
{
    QFETCH(QString, editor);
    QFETCH(QString, withCategory);
    QFETCH(QString, withoutCategory);

    QCOMPARE(fieldpicker::listHeaderCaption(editor, QStringLiteral("Traffic")), withCategory);
    QCOMPARE(fieldpicker::listHeaderCaption(editor, std::nullopt), withoutCategory);

    // The control heads its list the same way
    ServicesScope scope(makeSampleCatalog(), false);
    XFieldPicker picker;
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Traffic"), editor));
    QCOMPARE(headerOf(picker), withCategory);
}

void TestFieldPickerLoading::shouldSelectCategoriesByNameAndFallBackToTheSelectedNode()
{
    // Given
    ServicesScope scope(makeSampleCatalog(), false);
    XFieldPicker picker;
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell")));
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Catalogue\\Network\\Region\\Cell"));
    QSignalSpy categoryClicks(&picker, &XFieldPicker::CategoryClick);

    // When a known category is set
    picker.setSelectedCategory(QStringLiteral("Traffic"));

    // Then its node is selected and shown
    QCOMPARE(selectedKey(picker), QStringLiteral("traffic"));
    QCOMPARE(picker.ListCount(), 2);
    QCOMPARE(categoryClicks.last().at(0).value<FieldCategoryPtr>()->Key(), QStringLiteral("traffic"));

    // When an unknown name is set, the node already selected stays current
    picker.setSelectedCategory(QStringLiteral("No such category"));
    QCOMPARE(selectedKey(picker), QStringLiteral("traffic"));
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Catalogue\\Generic\\Traffic"));
    QCOMPARE(headerOf(picker), QStringLiteral("Available Traffic Fields"));

    // In the entity view the short name is answered
    scope.services().setUseEntityView(true);
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Traffic"));
}

void TestFieldPickerLoading::shouldLeaveTheListAloneInTreeOnlyMode()
{
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    picker.setTemplateView(tplTreeOnly);
    QSignalSpy categoryClicks(&picker, &XFieldPicker::CategoryClick);

    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));

    QCOMPARE(selectedKey(picker), QStringLiteral("region"));
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Region"));
    QCOMPARE(categoryClicks.count(), 1);
    QCOMPARE(picker.ListCount(), 0);
}

void TestFieldPickerLoading::shouldTakeTheClipboardFormatAndFullRowSettingFromTheLoad()
{
    // Given an application whose settings ask for full-row selection
    auto catalog = makeSampleCatalog();
    auto store = std::make_shared<MemoryPropertyStore>();
    store->SetItem(QStringLiteral("Full Row Selection"), true);
    catalog->setProperties(store);
    ServicesScope scope(catalog);
    XFieldPicker picker;
    picker.InitProperties();
    QCOMPARE(picker.ClipBoardFormatId(), quint16(0));
    QVERIFY(!picker.FullRowSelect());

    // When it loads with an editor
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell"), QStringLiteral("Fields")));

    // Then the format of application and editor is registered and the setting applied
    const QString name = QStringLiteral("Reports:Fields:%1").arg(currentThreadId());
    QVERIFY(picker.ClipBoardFormatId() >= FirstClipboardFormatId);
    QCOMPARE(ClipboardFormats::Name(picker.ClipBoardFormatId()), name);
    QVERIFY(picker.FullRowSelect());
}

QTEST_MAIN(TestFieldPickerLoading)
#include "tst_fieldpickerloading.moc"
