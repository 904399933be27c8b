#include <PickerCtl/XTreeOpt.h>

#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace PickerCtl;

namespace {

const QString RootKey = QStringLiteral("Tech Types");

void buildTechTree(XTreeOpt &tree)
{
    tree.AddNode(RootKey, QString(), RootKey, 2, true);
    tree.setCheckValue(RootKey, 0);
    for (const char *name : {"GSM", "UMTS", "LTE"}) {
        const QString key = QString::fromLatin1(name);
        tree.AddChild(key, RootKey, key, 0);
        tree.setTag(key, key.left(1));
    }
    tree.EnsureVisible(1);
    tree.Refresh();
}

QModelIndex indexOf(XTreeOpt &tree, const QString &key)
{
    const QModelIndexList found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, key,
                                                      1, Qt::MatchExactly | Qt::MatchRecursive);
    return found.value(0);
}

// Where the view draws the node's check box.
QPoint checkBoxCentre(XTreeOpt &tree, const QModelIndex &index)
{
    QStyleOptionViewItem option;
    option.initFrom(tree.viewport());
    option.rect = tree.visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    option.text = index.data().toString();
    option.checkState = index.data(Qt::CheckStateRole).value<Qt::CheckState>();
    return tree.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &tree).center();
}

} // namespace

class XTreeOptTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldToggleOnUserClickAndSpace_data()
    {
        QTest::addColumn<bool>("useKeyboard");
        QTest::addColumn<bool>("locked");
        QTest::newRow("click") << false << false;
        QTest::newRow("space") << true << false;
        QTest::newRow("click while locked") << false << true;
        QTest::newRow("space while locked") << true << true;
    }

    void shouldToggleOnUserClickAndSpace()
    {
        QFETCH(bool, useKeyboard);
        QFETCH(bool, locked);
        // Given the technology tree with one of three types ticked (root partly)
        XTreeOpt tree;
        buildTechTree(tree);
        tree.setCheckValue(QStringLiteral("GSM"), 1);
        tree.setLocked(locked);
        tree.resize(300, 200);
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        QSignalSpy changed(&tree, &XTreeOpt::CheckChanged);
        const QModelIndex root = indexOf(tree, RootKey);

        auto toggleRoot = [&] {
            if (useKeyboard) {
                tree.setCurrentIndex(root);
                QTest::keyClick(&tree, Qt::Key_Space);
            } else {
                QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, checkBoxCentre(tree, root));
            }
        };

        // When the user toggles the partly checked root twice
        toggleRoot();
        const int afterFirst = tree.CheckValue(RootKey);
        toggleRoot();

        if (locked) {
            // Then nothing changes, but the host can still tick, reported once
            QCOMPARE(afterFirst, 2);
            QCOMPARE(tree.CheckValue(RootKey), 2);
            QCOMPARE(changed.count(), 0);
            tree.setCheckValue(RootKey, 1);
            QCOMPARE(tree.CheckValue(QStringLiteral("UMTS")), 1);
            QCOMPARE(changed.count(), 1);
        } else {
            // Then partly becomes checked, checked becomes unchecked, reported once each
            QCOMPARE(afterFirst, 1);
            QCOMPARE(tree.CheckValue(RootKey), 0);
            QCOMPARE(tree.CheckValue(QStringLiteral("LTE")), 0);
            QCOMPARE(changed.count(), 2);
            QCOMPARE(changed.at(0).at(0).toString(), RootKey);
        }
    }

    void shouldRoundTripIndexKeyAndTag()
    {
        XTreeOpt tree;
        buildTechTree(tree);
        QCOMPARE(tree.Count(), 4);
        QCOMPARE(tree.Find(QStringLiteral("UMTS")), 3);
        QCOMPARE(tree.Key(3), QStringLiteral("UMTS"));
        QCOMPARE(tree.TagAt(tree.Index(QStringLiteral("LTE"))), QStringLiteral("L"));
        tree.setTagAt(2, QStringLiteral("G2"));
        QCOMPARE(tree.Tag(QStringLiteral("GSM")), QStringLiteral("G2"));
        tree.setCheckValueAt(4, 1);
        QCOMPARE(tree.CheckValueAt(1), 2);
        QCOMPARE(tree.Find(QStringLiteral("gsm")), 0); // keys are exact
        QCOMPARE(tree.CheckValue(QStringLiteral("nope")), 0);
        tree.Clear();
        QCOMPARE(tree.Count(), 0);
        QCOMPARE(tree.Find(RootKey), 0);
    }

    void shouldReportNodeClicks()
    {
        XTreeOpt tree;
        buildTechTree(tree);
        tree.resize(300, 200);
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        QSignalSpy clicked(&tree, &XTreeOpt::NodeClicked);
        const QModelIndex lte = indexOf(tree, QStringLiteral("LTE"));
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(lte).center());
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).toString(), QStringLiteral("LTE"));
    }

    void shouldShowEveryValueAfterFinishRebuild()
    {
        // Given a root added closed, as the enum filter does
        XTreeOpt tree;
        tree.AddNode(QStringLiteral("Priority"), QString(), QStringLiteral("Priority"));
        tree.AddChild(QStringLiteral("High"), QStringLiteral("Priority"), QStringLiteral("High"));
        QVERIFY(!tree.isExpanded(indexOf(tree, QStringLiteral("Priority"))));
        // When the rebuild is finished
        tree.FinishRebuild();
        // Then the root is open
        QVERIFY(tree.isExpanded(indexOf(tree, QStringLiteral("Priority"))));
    }
};

QTEST_MAIN(XTreeOptTest)
#include "tst_treeopt.moc"
