#include "staticlist_testfields.h"

#include <PickerCtl/XStaticList.h>

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

using namespace PickerCtl;

// Drags run through a scripted executor: QDrag::exec would wait for a mouse that an offscreen
// test never moves.
class TestStaticListDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldDragOnlyASelectionThatMayBeDragged_data()
    {
        QTest::addColumn<bool>("allowDragDrop");
        QTest::addColumn<QString>("selection");
        QTest::addColumn<bool>("dragged");
        QTest::newRow("dragging off") << false << ".x." << false;
        QTest::newRow("nothing selected") << true << "..." << false;
        QTest::newRow("dragging on, one selected") << true << ".x." << true;
    }

    void shouldDragOnlyASelectionThatMayBeDragged()
    {
        QFETCH(bool, allowDragDrop);
        QFETCH(QString, selection);
        QFETCH(bool, dragged);

        // Given a list whose drags are answered at once
        XStaticList list;
        list.setItems(testFields("ABC"));
        list.setAllowDragDrop(allowDragDrop);
        selectPattern(list, selection);
        int executed = 0;
        list.setDragExecutor([&executed](std::unique_ptr<QMimeData>, Qt::DropActions) {
            ++executed;
            return Qt::CopyAction;
        });
        QSignalSpy started(&list, &XStaticList::DragStarted);
        QSignalSpy completed(&list, &XStaticList::DragCompleted);

        // When the selection is pulled
        list.startDrag(Qt::CopyAction | Qt::MoveAction);

        // Then a drag runs, announced and finished once, or nothing at all happens
        QCOMPARE(executed, dragged ? 1 : 0);
        QCOMPARE(started.count(), dragged ? 1 : 0);
        QCOMPARE(completed.count(), dragged ? 1 : 0);
        if (dragged) {
            QCOMPARE(started.first().at(1).value<Qt::DropActions>(), Qt::CopyAction | Qt::MoveAction);
            QCOMPARE(completed.first().at(0).value<Qt::DropAction>(), Qt::CopyAction);
        }
    }

    void shouldCarryWhatTheOwnerFilledAndReportTheEffect_data()
    {
        QTest::addColumn<Qt::DropAction>("effect");
        QTest::newRow("copied") << Qt::CopyAction;
        QTest::newRow("moved") << Qt::MoveAction;
        QTest::newRow("dropped nowhere") << Qt::IgnoreAction;
    }

    void shouldCarryWhatTheOwnerFilledAndReportTheEffect()
    {
        QFETCH(Qt::DropAction, effect);

        // Given a list whose owner puts two formats on every drag
        XStaticList list;
        list.setItems(testFields("AB"));
        list.setAllowDragDrop(true);
        list.SelectAll();
        connect(&list, &XStaticList::DragStarted, &list, [](QMimeData *data, Qt::DropActions) {
            data->setText(QStringLiteral("A B"));
            data->setData(QStringLiteral("application/x-field-keys"), "F1 F2");
        });
        QStringList requested;
        connect(&list, &XStaticList::DragDataRequested, &list,
                [&requested](QMimeData *, const QString &format) { requested << format; });
        QStringList carried;
        QStringList events;
        connect(&list, &XStaticList::DragCompleted, &list,
                [&events](Qt::DropAction) { events << QStringLiteral("completed"); });
        list.setDragExecutor([&](std::unique_ptr<QMimeData> data, Qt::DropActions) {
            carried = data->formats();
            events << QStringLiteral("dragged");
            return effect;
        });
        QSignalSpy completed(&list, &XStaticList::DragCompleted);

        // When the selection is dragged
        list.startDrag(Qt::CopyAction);

        // Then every format was asked for, the drag carried them, and its effect came back once
        requested.sort();
        carried.sort();
        QCOMPARE(requested, carried);
        QCOMPARE(carried.size(), 2);
        QCOMPARE(events, (QStringList{QStringLiteral("dragged"), QStringLiteral("completed")}));
        QCOMPARE(completed.count(), 1);
        QCOMPARE(completed.first().at(0).value<Qt::DropAction>(), effect);
    }
};

QTEST_MAIN(TestStaticListDrag)
#include "tst_staticlistdrag.moc"
