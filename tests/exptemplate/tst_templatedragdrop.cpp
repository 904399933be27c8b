#include "exptemplate_helpers.h"

#include <PickerCtl/FieldClipboard.h>

#include <QDropEvent>
#include <QMimeData>
#include <QTreeView>

using namespace PickerCtl;
using namespace TemplateTest;

namespace {

QString formatOf(const QString &app, const QString &editor, quint64 thread = currentThreadId())
{
    return clipboardFormatName(app, editor, thread);
}

/// What an XFieldPicker puts into a drag: the rendering of its clip data under its format.
std::unique_ptr<QMimeData> pickerPayload(const MemoryCatalog &catalog, const QStringList &fieldNames,
                                         const QString &format)
{
    FieldClipData clip;
    clip.setFormatId(ClipboardFormats::Register(format));
    FieldsPtr fields = Fields::create();
    const TemplateFieldsPtr items = templateOf(catalog, fieldNames);
    for (const TemplateFieldPtr &item : *items)
        fields->Add(item->Field());
    clip.setFields(fields);
    return renderFieldClipData(clip);
}

/// A well-formed payload of one reference, as documented with renderFieldClipData.
QByteArray encodedRef(const FieldRef &ref)
{
    QByteArray bytes("PCFD");
    const auto append = [&bytes](quint32 value, int size) {
        for (int i = 0; i < size; ++i)
            bytes.append(char((value >> (8 * i)) & 0xff));
    };
    append(1, 2);
    append(1, 4);
    append(quint32(ref.id), 4);
    append(quint32(ref.key.size()), 4);
    for (const QChar c : ref.key)
        append(c.unicode(), 2);
    return bytes;
}

/// The viewport point where a drop lands before `row` (past the last row: the empty area).
QPoint dropPoint(XStaticList &list, int row)
{
    QTreeView *view = list.reportView();
    if (row >= list.Count())
        return QPoint(10, view->viewport()->height() - 2);
    return view->visualRect(view->model()->index(row, 0)).topLeft() + QPoint(10, 1);
}

/// Enters the list's viewport, moves to the row and drops there, as a drag does; false when the
/// list refused the data on entering or on the drop.
bool dropOn(XStaticList &list, const QMimeData *data, int row)
{
    QWidget *viewport = list.reportView()->viewport();
    const QPoint at = dropPoint(list, row);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(at, actions, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &move);
    QDropEvent drop(at, actions, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &drop);
    return drop.isAccepted();
}

} // namespace

class TemplateDragDropTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldTakeFieldsDroppedFromAFieldPicker_data()
    {
        QTest::addColumn<QString>("editorName");
        QTest::addColumn<QString>("dropped");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("changes");

        QTest::newRow("between two rows") << "Fields" << "Traffic Volume|Cell Drops" << 1 << "Cell Attempts|Traffic Volume|Cell Drops|Drop Rate" << 1;
        QTest::newRow("before the first row") << "Fields" << "Handover" << 0 << "Handover|Cell Attempts|Drop Rate" << 1;
        QTest::newRow("on the empty area: at the end") << "Fields" << "Handover" << 99 << "Cell Attempts|Drop Rate|Handover" << 1;
        QTest::newRow("fields already there are skipped") << "Fields" << "Drop Rate|Handover" << 0 << "Handover|Cell Attempts|Drop Rate" << 1;
        QTest::newRow("only fields already there: no change") << "Fields" << "Drop Rate" << 0 << "Cell Attempts|Drop Rate" << 0;
        QTest::newRow("a browser loaded without an editor name") << "" << "Handover" << 0 << "Handover|Cell Attempts|Drop Rate" << 1;
    }

    void shouldTakeFieldsDroppedFromAFieldPicker()
    {
        QFETCH(QString, editorName);
        QFETCH(QString, dropped);
        QFETCH(int, row);
        QFETCH(QString, after);
        QFETCH(int, changes);

        // Given a template and the payload of a field browser of the same application
        Fixture f(QStringLiteral("Cell Attempts|Drop Rate"));
        QVERIFY(showEditor(f.editor));
        const auto payload = pickerPayload(f.services.catalog(), split(dropped), formatOf(App, editorName));
        QSignalSpy changed(&f.editor, &XExpTemplate::Changed);

        // When it is dropped on the template
        QVERIFY(dropOn(*selected(f.editor), payload.get(), row));

        // Then the new fields stand where the mouse was, highlighted, and Changed came once
        QCOMPARE(names(*selected(f.editor)), after);
        QCOMPARE(selected(f.editor)->SelectedCount(), int(split(dropped).size()));
        QCOMPARE(changed.count(), changes);
    }

    void shouldIgnoreForeignPayloads_data()
    {
        QTest::addColumn<QString>("kind");

        QTest::newRow("another application") << "app";
        QTest::newRow("another thread") << "thread";
        QTest::newRow("garbage under the right format") << "garbage";
        QTest::newRow("plain text only") << "text";
        QTest::newRow("ids the catalogue does not know") << "unknown";
        QTest::newRow("an id under another field's key") << "key";
    }

    void shouldIgnoreForeignPayloads()
    {
        QFETCH(QString, kind);

        Fixture f(QStringLiteral("Cell Attempts"));
        QVERIFY(showEditor(f.editor));
        const QString ownFormat = formatOf(App, QStringLiteral("Fields"));
        std::unique_ptr<QMimeData> payload;
        if (kind == QLatin1String("app"))
            payload = pickerPayload(f.services.catalog(), {"Cell Drops"}, formatOf(QStringLiteral("Planning"), QStringLiteral("Fields")));
        else if (kind == QLatin1String("thread"))
            payload = pickerPayload(f.services.catalog(), {"Cell Drops"}, formatOf(App, QStringLiteral("Fields"), currentThreadId() + 1));
        else if (kind == QLatin1String("text")) {
            payload = std::make_unique<QMimeData>();
            payload->setText(QStringLiteral("Cell Drops"));
        } else {
            ClipboardFormats::Register(ownFormat);
            payload = std::make_unique<QMimeData>();
            QByteArray bytes("garbage");
            if (kind == QLatin1String("unknown"))
                bytes = encodedRef(FieldRef{999, QStringLiteral("F999")});
            else if (kind == QLatin1String("key"))
                bytes = encodedRef(FieldRef{2, QStringLiteral("F3")});
            payload->setData(fieldMimeType(ownFormat), bytes);
            // The references decode; only the catalogue look-up may refuse them.
            QCOMPARE(decodeFieldRefs(payload.get(), ownFormat).has_value(), kind != QLatin1String("garbage"));
        }
        QSignalSpy changed(&f.editor, &XExpTemplate::Changed);

        dropOn(*selected(f.editor), payload.get(), 0);

        QCOMPARE(names(*selected(f.editor)), QStringLiteral("Cell Attempts"));
        QCOMPARE(changed.count(), 0);
    }

    void shouldMoveOrTakeRowsDraggedOntoTheTemplate_data()
    {
        QTest::addColumn<bool>("fromTemplate");
        QTest::addColumn<QString>("picked");
        QTest::addColumn<QList<qint32>>("carried");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("changes");

        QTest::newRow("to the end") << true << "Cell Attempts|Cell Load" << QList<qint32>{1, 3} << 4
                                    << "Cell Drops|Drop Rate|Cell Attempts|Cell Load" << 1;
        QTest::newRow("to the top") << true << "Cell Load|Drop Rate" << QList<qint32>{3, 4} << 0
                                    << "Cell Load|Drop Rate|Cell Attempts|Cell Drops" << 1;
        QTest::newRow("into the middle") << true << "Cell Attempts" << QList<qint32>{1} << 3
                                         << "Cell Drops|Cell Load|Cell Attempts|Drop Rate" << 1;
        QTest::newRow("onto itself: no change") << true << "Cell Drops|Cell Load" << QList<qint32>{2, 3} << 2
                                                << "Cell Attempts|Cell Drops|Cell Load|Drop Rate" << 0;
        QTest::newRow("from the available list: copied in") << false << "Bad Rate|Handover" << QList<qint32>{5, 6} << 1
                                                            << "Cell Attempts|Bad Rate|Handover|Cell Drops|Cell Load|Drop Rate" << 1;
    }

    void shouldMoveOrTakeRowsDraggedOntoTheTemplate()
    {
        QFETCH(bool, fromTemplate);
        QFETCH(QString, picked);
        QFETCH(QList<qint32>, carried);
        QFETCH(int, row);
        QFETCH(QString, after);
        QFETCH(int, changes);

        // Given rows selected in one of the lists and dragged, the drag ending over the template
        Fixture f(QStringLiteral("Cell Attempts|Cell Drops|Cell Load|Drop Rate"));
        QVERIFY(showEditor(f.editor));
        XStaticList &from = fromTemplate ? *selected(f.editor) : *available(f.editor);
        XStaticList &to = *selected(f.editor);
        selectByName(from, split(picked));
        std::optional<QList<qint32>> ids;
        from.setDragExecutor([&](std::unique_ptr<QMimeData> data, Qt::DropActions) {
            ids = decodeFieldIds(data.get(), formatOf(App, QStringLiteral("ExpTemplate")));
            return dropOn(to, data.get(), row) ? Qt::MoveAction : Qt::IgnoreAction;
        });
        QSignalSpy changed(&f.editor, &XExpTemplate::Changed);

        // When the drop lands
        from.startDrag(Qt::CopyAction);

        // Then the drag carried the fields' ids, and the rows stand there together, selected; the search result
        // keeps every field
        QCOMPARE(ids, std::optional<QList<qint32>>(carried));
        QCOMPARE(names(to), after);
        QCOMPARE(to.SelectedCount(), int(carried.size()));
        QCOMPARE(available(f.editor)->Count(), 6);
        QCOMPARE(changed.count(), changes);
    }
};

QTEST_MAIN(TemplateDragDropTest)
#include "tst_templatedragdrop.moc"
