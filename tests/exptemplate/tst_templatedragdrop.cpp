#include "exptemplate_helpers.h"

#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/XExpTemplate.h>
#include <PickerCtl/XStaticList.h>

#include <QAbstractItemModelTester>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;
using namespace TemplateTest;

namespace {

QStringList split(const QString &joined)
{
    return joined.isEmpty() ? QStringList() : joined.split(QLatin1Char('|'));
}

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

struct Fixture
{
    explicit Fixture(const QString &templateNames)
    {
        editor.Load(App, QStringLiteral("Cell"), templateOf(services.catalog(), split(templateNames)));
        editor.resize(900, 500);
        editor.show();
        for (XStaticList *list : {available(editor), selected(editor)})
            testers.push_back(std::make_unique<QAbstractItemModelTester>(
                list->reportView()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest));
    }

    Services services;
    XExpTemplate editor;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
};

} // namespace

class TemplateDragDropTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldTakeFieldsDroppedFromAFieldPicker_data();
    void shouldTakeFieldsDroppedFromAFieldPicker();
    void shouldIgnoreForeignPayloads_data();
    void shouldIgnoreForeignPayloads();
    void shouldReorderRowsDraggedInsideTheTemplate_data();
    void shouldReorderRowsDraggedInsideTheTemplate();
    void shouldTakeFieldsDraggedFromTheAvailableList();
};

void TemplateDragDropTest::shouldTakeFieldsDroppedFromAFieldPicker_data()
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

void TemplateDragDropTest::shouldTakeFieldsDroppedFromAFieldPicker()
{
    QFETCH(QString, editorName);
    QFETCH(QString, dropped);
    QFETCH(int, row);
    QFETCH(QString, after);
    QFETCH(int, changes);

    // Given a template and the payload of a field browser of the same application
    Fixture f(QStringLiteral("Cell Attempts|Drop Rate"));
    QVERIFY(QTest::qWaitForWindowExposed(&f.editor));
    const auto payload = pickerPayload(f.services.catalog(), split(dropped), formatOf(App, editorName));
    QSignalSpy changed(&f.editor, &XExpTemplate::Changed);

    // When it is dropped on the template
    QVERIFY(dropOn(*selected(f.editor), payload.get(), row));

    // Then the new fields stand where the mouse was, highlighted, and Changed came once
    QCOMPARE(names(*selected(f.editor)), after);
    QCOMPARE(selected(f.editor)->SelectedCount(), int(split(dropped).size()));
    QCOMPARE(changed.count(), changes);
}

void TemplateDragDropTest::shouldIgnoreForeignPayloads_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("another application") << "app";
    QTest::newRow("another thread") << "thread";
    QTest::newRow("garbage under the right format") << "garbage";
    QTest::newRow("plain text only") << "text";
    QTest::newRow("ids the catalogue does not know") << "unknown";
    QTest::newRow("an id under another field's key") << "key";
}

void TemplateDragDropTest::shouldIgnoreForeignPayloads()
{
    QFETCH(QString, kind);

    Fixture f(QStringLiteral("Cell Attempts"));
    QVERIFY(QTest::qWaitForWindowExposed(&f.editor));
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

void TemplateDragDropTest::shouldReorderRowsDraggedInsideTheTemplate_data()
{
    QTest::addColumn<QString>("picked");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("changes");

    QTest::newRow("to the end") << "Cell Attempts|Cell Load" << 4 << "Cell Drops|Drop Rate|Cell Attempts|Cell Load" << 1;
    QTest::newRow("to the top") << "Cell Load|Drop Rate" << 0 << "Cell Load|Drop Rate|Cell Attempts|Cell Drops" << 1;
    QTest::newRow("into the middle") << "Cell Attempts" << 3 << "Cell Drops|Cell Load|Cell Attempts|Drop Rate" << 1;
    QTest::newRow("onto itself: no change") << "Cell Drops|Cell Load" << 2 << "Cell Attempts|Cell Drops|Cell Load|Drop Rate" << 0;
}

void TemplateDragDropTest::shouldReorderRowsDraggedInsideTheTemplate()
{
    QFETCH(QString, picked);
    QFETCH(int, row);
    QFETCH(QString, after);
    QFETCH(int, changes);

    // Given template rows selected and dragged, the drag ending over the template itself
    Fixture f(QStringLiteral("Cell Attempts|Cell Drops|Cell Load|Drop Rate"));
    QVERIFY(QTest::qWaitForWindowExposed(&f.editor));
    XStaticList &list = *selected(f.editor);
    selectByName(list, split(picked));
    list.setDragExecutor([&](std::unique_ptr<QMimeData> data, Qt::DropActions) {
        return dropOn(list, data.get(), row) ? Qt::MoveAction : Qt::IgnoreAction;
    });
    QSignalSpy changed(&f.editor, &XExpTemplate::Changed);

    // When the drop lands
    list.startDrag(Qt::CopyAction);

    // Then the rows moved there together and stay selected
    QCOMPARE(names(list), after);
    QCOMPARE(list.SelectedCount(), int(split(picked).size()));
    QCOMPARE(changed.count(), changes);
}

void TemplateDragDropTest::shouldTakeFieldsDraggedFromTheAvailableList()
{
    Fixture f(QStringLiteral("Drop Rate"));
    QVERIFY(QTest::qWaitForWindowExposed(&f.editor));
    XStaticList &from = *available(f.editor);
    XStaticList &to = *selected(f.editor);
    selectByName(from, {"Cell Attempts", "Handover"});
    std::optional<QList<qint32>> carried;
    from.setDragExecutor([&](std::unique_ptr<QMimeData> data, Qt::DropActions) {
        carried = decodeFieldIds(data.get(), formatOf(App, QStringLiteral("ExpTemplate")));
        return dropOn(to, data.get(), 0) ? Qt::CopyAction : Qt::IgnoreAction;
    });
    QSignalSpy changed(&f.editor, &XExpTemplate::Changed);

    from.startDrag(Qt::CopyAction);

    QCOMPARE(carried, std::optional<QList<qint32>>(QList<qint32>{1, 6}));
    QCOMPARE(names(to), QStringLiteral("Cell Attempts|Handover|Drop Rate"));
    QCOMPARE(from.Count(), 6);
    QCOMPARE(changed.count(), 1);
}

QTEST_MAIN(TemplateDragDropTest)
#include "tst_templatedragdrop.moc"
