#include "widgets/treeoptmodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace PickerCtl;

namespace {

// Adds nodes given as "key<parent", an empty parent for a root, each captioned with its key.
void addNodes(TreeOptModel &model, const QStringList &adds)
{
    for (const QString &add : adds) {
        const QStringList parts = add.split(QLatin1Char('<'));
        QVERIFY(model.addNode(parts[0], parts[1], parts[0], 0, false, 0).isValid());
    }
}

// Root "R" with children "A" (leaves "A1", "A2") and "B", "C": deep enough for propagation
// across two levels.
void buildTree(TreeOptModel &model)
{
    addNodes(model, {"R<", "A<R", "A1<A", "A2<A", "B<R", "C<R"});
}

using Assignments = QList<QPair<QString, int>>;
using Values = QHash<QString, int>;

} // namespace

class TreeOptModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldStayConsistentUnderTheModelTester()
    {
        TreeOptModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        buildTree(model);
        model.setCheckValue(model.indexOfKey(QStringLiteral("A1")), 1);
        model.setCheckValue(model.indexOfKey(QStringLiteral("R")), 0);
        model.addNode(QStringLiteral("D"), QStringLiteral("A"), QStringLiteral("D"), 0, false, 1);
        model.clear();
        buildTree(model);
        QCOMPARE(model.nodeCount(), 6);
    }

    void shouldPropagateCheckValues_data()
    {
        QTest::addColumn<Assignments>("assignments");
        QTest::addColumn<Values>("expected");

        QTest::newRow("root checked ticks every node")
            << Assignments{{"R", 1}} << Values{{"R", 1}, {"A", 1}, {"A1", 1}, {"A2", 1}, {"B", 1}, {"C", 1}};
        QTest::newRow("root unchecked clears every node")
            << Assignments{{"R", 1}, {"R", 0}} << Values{{"R", 0}, {"A", 0}, {"A1", 0}, {"B", 0}};
        QTest::newRow("one leaf makes its ancestors partly")
            << Assignments{{"A1", 1}} << Values{{"A1", 1}, {"A2", 0}, {"A", 2}, {"R", 2}};
        QTest::newRow("last child ticked checks the parent")
            << Assignments{{"A1", 1}, {"A2", 1}} << Values{{"A", 1}, {"R", 2}};
        QTest::newRow("every leaf ticked checks the root")
            << Assignments{{"A1", 1}, {"A2", 1}, {"B", 1}, {"C", 1}} << Values{{"A", 1}, {"R", 1}};
        QTest::newRow("unticking a child of a full tree makes it partly")
            << Assignments{{"R", 1}, {"A2", 0}} << Values{{"A", 2}, {"R", 2}, {"B", 1}};
        QTest::newRow("unticking the last leaf clears the root")
            << Assignments{{"B", 1}, {"B", 0}} << Values{{"R", 0}, {"A", 0}};
        QTest::newRow("middle node set checks its subtree only")
            << Assignments{{"A", 1}} << Values{{"A1", 1}, {"A2", 1}, {"B", 0}, {"R", 2}};
        QTest::newRow("other values read as partly on a leaf")
            << Assignments{{"B", 7}} << Values{{"B", 2}, {"R", 2}, {"A", 0}};
        QTest::newRow("partly asked of a parent changes nothing")
            << Assignments{{"A", 2}} << Values{{"A", 0}, {"A1", 0}, {"R", 0}};
    }

    void shouldPropagateCheckValues()
    {
        QFETCH(Assignments, assignments);
        QFETCH(Values, expected);
        // Given a fresh tree with every node unchecked
        TreeOptModel model;
        buildTree(model);
        // When the values are set in order
        for (const auto &[key, value] : assignments)
            model.setCheckValue(model.indexOfKey(key), value);
        // Then every listed node reads its expected value
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QCOMPARE(model.checkValue(model.indexOfKey(it.key())), it.value());
    }

    void shouldReportOneCheckChangePerCallWithTheKeyThatWasSet()
    {
        TreeOptModel model;
        buildTree(model);
        QSignalSpy changed(&model, &TreeOptModel::checkChanged);
        QSignalSpy dataChanged(&model, &QAbstractItemModel::dataChanged);

        model.setCheckValue(model.indexOfKey(QStringLiteral("R")), 1);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("R"));
        QVERIFY(!dataChanged.isEmpty());

        // Setting the value a node already has is no change at all.
        model.setCheckValue(model.indexOfKey(QStringLiteral("A1")), 1);
        QCOMPARE(changed.count(), 1);
    }

    // Nodes added under earlier branches, in every order a host may build a tree.
    void shouldNumberEveryBuildOrderLikeAWalk_data()
    {
        QTest::addColumn<QStringList>("adds");
        QTest::addColumn<QString>("preorder");
        QTest::newRow("breadth first") << QStringList{"R<", "A<R", "B<R", "C<R", "A1<A", "B1<B", "C1<C", "A11<A1"}
                                       << "R A A1 A11 B B1 C C1";
        QTest::newRow("depth first") << QStringList{"R<", "A<R", "A1<A", "A11<A1", "B<R", "B1<B", "C<R"}
                                     << "R A A1 A11 B B1 C";
        QTest::newRow("several roots grown in turn") << QStringList{"R<", "S<", "T<", "S1<S", "R1<R", "T1<T", "R2<R", "S11<S1"}
                                                     << "R R1 R2 S S1 S11 T T1";
        QTest::newRow("first branch grown last") << QStringList{"R<", "A<R", "B<R", "B1<B", "B2<B", "A1<A", "A2<A", "A21<A2"}
                                                 << "R A A1 A2 A21 B B1 B2";
        QTest::newRow("last leaf of an earlier branch") << QStringList{"R<", "A<R", "A1<A", "A2<A", "B<R", "C<R", "A3<A"}
                                                        << "R A A1 A2 A3 B C";
    }

    void shouldNumberEveryBuildOrderLikeAWalk()
    {
        QFETCH(QStringList, adds);
        TreeOptModel model;
        addNodes(model, adds);

        QStringList walk;
        std::function<void(const QModelIndex &)> visit = [&](const QModelIndex &parent) {
            for (int row = 0; row < model.rowCount(parent); ++row) {
                const QModelIndex child = model.index(row, 0, parent);
                walk << model.key(child);
                visit(child);
            }
        };
        visit(QModelIndex());

        QTEST(walk.join(u' '), "preorder");
        for (int i = 0; i < walk.size(); ++i) {
            QCOMPARE(model.preorderIndex(model.indexOfKey(walk[i])), i + 1);
            QCOMPARE(model.key(model.indexAtPreorder(i + 1)), walk[i]);
        }
        QVERIFY(!model.indexAtPreorder(0).isValid());
        QVERIFY(!model.indexAtPreorder(int(walk.size()) + 1).isValid());
    }

    void shouldRefuseDuplicateKeysAndUnknownParents()
    {
        TreeOptModel model;
        buildTree(model);
        QVERIFY(!model.addNode(QStringLiteral("B"), QStringLiteral("R"), QStringLiteral("B"), 0, false, 0).isValid());
        QVERIFY(!model.addNode(QStringLiteral("Z"), QStringLiteral("nope"), QStringLiteral("Z"), 0, false, 0).isValid());
        QCOMPARE(model.nodeCount(), 6);
    }

    void shouldIgnoreUserChecksWhileNotUserCheckable()
    {
        TreeOptModel model;
        buildTree(model);
        const QModelIndex b = model.indexOfKey(QStringLiteral("B"));
        model.setUserCheckable(false);
        QVERIFY(!(model.flags(b) & Qt::ItemIsUserCheckable));
        QVERIFY(!model.setData(b, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(model.checkValue(b), 0);
        QVERIFY(model.setCheckValue(b, 1));
        QCOMPARE(model.data(b, Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
    }

    void shouldDeriveTheParentOfThousandsOfChildrenAsTheyAreAddedAndSet()
    {
        // Given a root whose thousands of children are all added ticked
        TreeOptModel model;
        model.addNode(QStringLiteral("R"), QString(), QStringLiteral("R"), 2, true, 0);
        const int count = 3000;
        for (int i = 0; i < count; ++i)
            model.addNode(QString::number(i), QStringLiteral("R"), QString::number(i), 0, false, 1);
        const auto root = [&model] { return model.checkValue(model.indexOfKey(QStringLiteral("R"))); };
        QCOMPARE(root(), 1);
        // When an unticked child joins, then is ticked, then another is unticked
        model.addNode(QStringLiteral("y"), QStringLiteral("R"), QStringLiteral("y"), 0, false, 0);
        QCOMPARE(root(), 2);
        model.setCheckValue(model.indexOfKey(QStringLiteral("y")), 1);
        QCOMPARE(root(), 1);
        model.setCheckValue(model.indexOfKey(QString::number(count - 1)), 0);
        QCOMPARE(root(), 2);
        QCOMPARE(model.preorderIndex(model.indexOfKey(QString::number(count - 1))), count + 1);
    }
};

QTEST_GUILESS_MAIN(TreeOptModelTest)
#include "tst_treeoptmodel.moc"
