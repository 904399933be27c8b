#include "fieldpicker_helpers.h"

#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/MessageService.h>
#include <PickerCtl/OwnerPicker.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/XFieldPicker.h>
#include <PickerCtl/testing/ScriptedMessageService.h>
#include <PickerCtl/testing/ScriptedOwnerPicker.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;

namespace {

const QString App = QStringLiteral("Reports");
const QString UdcCategory = QStringLiteral("Calculations");
const QString QuestionTitle = QStringLiteral("User Defined Calculation Access Violation");
constexpr qint32 QuestionStyle = 39;
constexpr qint32 Me = 1;
constexpr qint32 Administrator = 9;

/// Four UDCs: "Mine" of user 1, "Theirs A" and "Theirs B" of user 2, "Theirs C" of user 3.
std::shared_ptr<FailingCatalog> makeUdcCatalog()
{
    auto catalog = std::make_shared<FailingCatalog>();
    catalog->addUser({Me, QStringLiteral("me"), false, true, false});
    catalog->addUser({2, QStringLiteral("other"), false, true, false});
    catalog->addUser({3, QStringLiteral("third"), false, true, false});
    catalog->addUser({Administrator, QStringLiteral("admin"), true, true, false});
    catalog->addApplication(App);
    addCategory(*catalog, QStringLiteral("root"), QString(), QStringLiteral("Catalogue"));
    addCategory(*catalog, QStringLiteral("udc"), QStringLiteral("root"), UdcCategory);
    const QList<std::pair<QString, qint32>> fields{{QStringLiteral("Mine"), Me},
                                                   {QStringLiteral("Theirs A"), 2},
                                                   {QStringLiteral("Theirs B"), 2},
                                                   {QStringLiteral("Theirs C"), 3}};
    qint32 id = 1;
    for (const auto &[name, owner] : fields) {
        FieldSpec spec;
        spec.id = id++;
        spec.categoryKey = QStringLiteral("udc");
        spec.name = name;
        spec.typeCode = QStringLiteral("UDC");
        spec.ownerId = owner;
        catalog->addField(spec);
    }
    return catalog;
}

/// The catalogue, the user, the message box and the owner picker of one test.
struct UdcScope
{
    explicit UdcScope(qint32 userId, QList<qint32> answers = {})
        : catalog(makeUdcCatalog())
        , services(catalog, false)
        , messages(std::make_shared<ScriptedMessageService>(std::move(answers)))
        , owners(std::make_shared<ScriptedOwnerPicker>())
    {
        for (const CurrentUserPtr &user : catalog->Users()) {
            if (user->UserId() == userId)
                UserContext::setInstance(std::make_shared<FixedUserContext>(user));
        }
        MessageService::setInstance(messages);
        OwnerPicker::setInstance(owners);
    }
    ~UdcScope()
    {
        UserContext::setInstance(nullptr);
        MessageService::setInstance(nullptr);
        OwnerPicker::setInstance(nullptr);
    }

    CurrentUserPtr user(qint32 id) const
    {
        for (const CurrentUserPtr &candidate : catalog->Users()) {
            if (candidate->UserId() == id)
                return candidate;
        }
        return nullptr;
    }

    QList<qint32> remainingIds() const
    {
        QList<qint32> ids;
        for (qint32 id = 1; id <= 4; ++id) {
            if (catalog->GetField(App, id))
                ids.append(id);
        }
        return ids;
    }

    QStringList questionsAsked() const
    {
        QStringList names;
        for (const auto &call : messages->calls()) {
            if (call.title == QuestionTitle)
                names.append(call.text.section(QLatin1Char('\''), 1, 1));
        }
        return names;
    }

    std::shared_ptr<FailingCatalog> catalog;
    ServicesScope services;
    std::shared_ptr<ScriptedMessageService> messages;
    std::shared_ptr<ScriptedOwnerPicker> owners;
};

FieldsPtr fieldsWithIds(FieldCatalog &catalog, const QList<qint32> &ids)
{
    auto fields = Fields::create();
    for (const qint32 id : ids)
        fields->Add(catalog.GetField(App, id));
    return fields;
}

void loadUdcs(XFieldPicker &picker)
{
    picker.InitProperties();
    QVERIFY(picker.Load(App, UdcCategory));
    QCOMPARE(picker.ListCount(), 4);
}

} // namespace

Q_DECLARE_METATYPE(QList<qint32>)

class TestFieldPickerSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldAskAboutForeignUdcsBeforeDeleting_data();
    void shouldAskAboutForeignUdcsBeforeDeleting();
    void shouldAskWithTheExactQuestion();
    void shouldShowARefusedDeletionAndKeepEverything();
    void shouldSelectOnlyFieldsAndCollectionsOfFields_data();
    void shouldSelectOnlyFieldsAndCollectionsOfFields();
    void shouldSelectFieldsByIdInTheirCategory();
    void shouldCopyTheSelectionInEveryFormat();
    void shouldLeaveTheClipboardAloneWithoutASelection();
    void shouldGiveTheSelectionThePickedOwner();
    void shouldShowARefusedOwnerChangeAndChangeNoOwner_data();
    void shouldShowARefusedOwnerChangeAndChangeNoOwner();
    void shouldKeepDeletionsAndOwnersInAnSqliteCatalogue();
};

void TestFieldPickerSelection::shouldAskAboutForeignUdcsBeforeDeleting_data()
{
    QTest::addColumn<qint32>("user");
    QTest::addColumn<QList<qint32>>("selected");
    QTest::addColumn<QList<qint32>>("answers");
    QTest::addColumn<QStringList>("asked");
    QTest::addColumn<QList<qint32>>("remaining");

    const QList<qint32> all{1, 2, 3, 4};
    QTest::newRow("an administrator deletes everything unasked")
        << Administrator << all << QList<qint32>{} << QStringList{} << QList<qint32>{};
    QTest::newRow("the owner of every selected field is not asked")
        << Me << QList<qint32>{1} << QList<qint32>{} << QStringList{} << QList<qint32>{2, 3, 4};
    QTest::newRow("yes to all at the first skips the others unasked")
        << Me << all << QList<qint32>{8} << QStringList{QStringLiteral("Theirs A")} << QList<qint32>{2, 3, 4};
    QTest::newRow("yes skips one and asks about the next")
        << Me << all << QList<qint32>{6, 8} << QStringList{QStringLiteral("Theirs A"), QStringLiteral("Theirs B")}
        << QList<qint32>{2, 3, 4};
    QTest::newRow("cancel at the second deletes nothing, not even the own field")
        << Me << all << QList<qint32>{6, 2} << QStringList{QStringLiteral("Theirs A"), QStringLiteral("Theirs B")}
        << all;
    QTest::newRow("every foreign field skipped leaves nothing to delete")
        << Me << QList<qint32>{2, 3, 4} << QList<qint32>{6, 6, 6}
        << QStringList{QStringLiteral("Theirs A"), QStringLiteral("Theirs B"), QStringLiteral("Theirs C")} << all;
}

void TestFieldPickerSelection::shouldAskAboutForeignUdcsBeforeDeleting()
{
    QFETCH(qint32, user);
    QFETCH(QList<qint32>, selected);
    QFETCH(QList<qint32>, answers);
    QFETCH(QStringList, asked);
    QFETCH(QList<qint32>, remaining);

    // Given the user's selection of UDCs
    UdcScope scope(user, answers);
    XFieldPicker picker;
    loadUdcs(picker);
    picker.SetSelection(QVariant::fromValue(fieldsWithIds(*scope.catalog, selected)));
    EventLog events(picker);

    // When the host deletes the selection
    picker.DeleteSelection(nullptr);

    // Then the user was asked about exactly these fields, what remains was deleted, and the host
    // hears of a deletion only when one ran
    QCOMPARE(scope.questionsAsked(), asked);
    QCOMPARE(scope.remainingIds(), remaining);
    const bool deleted = remaining.size() < 4;
    QCOMPARE(events.names.contains(QStringLiteral("StateChange")), deleted);
    if (deleted)
        QCOMPARE(events.names.last(), QStringLiteral("StateChange"));
    QCOMPARE(scope.services.cursor()->Depth(), 0);
}

void TestFieldPickerSelection::shouldAskWithTheExactQuestion()
{
    UdcScope scope(Me, {2});
    XFieldPicker picker;
    loadUdcs(picker);
    picker.SetSelection(QVariant::fromValue(scope.catalog->GetField(App, 2)));

    picker.DeleteSelection(nullptr);

    QCOMPARE(scope.messages->calls().size(), 1);
    const auto &call = scope.messages->calls().first();
    QCOMPARE(call.text, QStringLiteral("'Theirs A' cannot be deleted.\r\nSkip this UDC and continue?"));
    QCOMPARE(call.style, QuestionStyle);
    QCOMPARE(call.title, QuestionTitle);
}

void TestFieldPickerSelection::shouldShowARefusedDeletionAndKeepEverything()
{
    // Given a user who keeps a foreign UDC in the deletion, which the catalogue refuses
    UdcScope scope(Me, {7});
    XFieldPicker picker;
    loadUdcs(picker);
    picker.SetSelection(QVariant::fromValue(fieldsWithIds(*scope.catalog, {1, 2})));
    EventLog events(picker);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("refused")));
    picker.DeleteSelection(nullptr);

    // Then the refusal reaches the user, nothing is deleted and no StateChange is raised
    QCOMPARE(scope.messages->calls().size(), 2);
    QCOMPARE(scope.messages->calls().last().style, 16);
    QCOMPARE(scope.remainingIds(), (QList<qint32>{1, 2, 3, 4}));
    QVERIFY(!events.names.contains(QStringLiteral("StateChange")));
}

void TestFieldPickerSelection::shouldSelectOnlyFieldsAndCollectionsOfFields_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QList<qint32>>("selected");

    QTest::newRow("a collection selects its shown fields") << "fields" << QList<qint32>{2, 4};
    QTest::newRow("a single field") << "field" << QList<qint32>{3};
    QTest::newRow("a number is not a selection") << "number" << QList<qint32>{};
    QTest::newRow("a category is not a selection") << "category" << QList<qint32>{};
    QTest::newRow("an empty value") << "empty" << QList<qint32>{};
}

void TestFieldPickerSelection::shouldSelectOnlyFieldsAndCollectionsOfFields()
{
    QFETCH(QString, kind);
    QFETCH(QList<qint32>, selected);

    UdcScope scope(Me);
    XFieldPicker picker;
    loadUdcs(picker);
    picker.SelectAll();

    QVariant value;
    FieldsPtr handed;
    if (kind == QLatin1String("fields")) {
        handed = fieldsWithIds(*scope.catalog, {2, 4});
        value = QVariant::fromValue(handed);
    } else if (kind == QLatin1String("field")) {
        value = QVariant::fromValue(scope.catalog->GetField(App, 3));
    } else if (kind == QLatin1String("number")) {
        value = QVariant(3);
    } else if (kind == QLatin1String("category")) {
        value = QVariant::fromValue(scope.catalog->GetCategory(App, UdcCategory));
    }

    const QVariant result = picker.SetSelection(value);

    QCOMPARE(idsOf(picker.Selection()), selected);
    QCOMPARE(picker.SelectionCount(), qint32(selected.size()));
    if (selected.isEmpty()) {
        QVERIFY(result.isNull());
    } else {
        const FieldsPtr returned = result.value<FieldsPtr>();
        QVERIFY(returned);
        QCOMPARE(idsOf(returned), selected);
        if (handed)
            QCOMPARE(returned, handed);
    }
}

void TestFieldPickerSelection::shouldSelectFieldsByIdInTheirCategory()
{
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));

    // A field of another category is shown in its own category by SelectFieldById ...
    picker.SelectFieldById(301);
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Cell"));
    QCOMPARE(idsOf(picker.Selection()), QList<qint32>{301});

    // ... but not by SelectVisibleFieldById, which keeps the category and the selection
    picker.SelectVisibleFieldById(200);
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Cell"));
    QCOMPARE(idsOf(picker.Selection()), QList<qint32>{301});
    picker.SelectVisibleFieldById(300);
    QCOMPARE(idsOf(picker.Selection()), QList<qint32>{300});

    // An unknown id changes nothing
    picker.SelectFieldById(9999);
    QCOMPARE(picker.SelectedCategory(), QStringLiteral("Cell"));
    QCOMPARE(scope.cursor()->Depth(), 0);
}

void TestFieldPickerSelection::shouldCopyTheSelectionInEveryFormat()
{
    UdcScope scope(Me);
    XFieldPicker picker;
    loadUdcs(picker);
    picker.SetSelection(QVariant::fromValue(fieldsWithIds(*scope.catalog, {1, 3})));

    picker.Copy();

    const QString formatName = ClipboardFormats::Name(picker.ClipBoardFormatId());
    QCOMPARE(formatName, clipboardFormatName(App, QString(), currentThreadId()));
    QCOMPARE(picker.ClipBoardData()->FormatId(), picker.ClipBoardFormatId());
    QCOMPARE(idsOf(picker.ClipBoardData()->Fields()), (QList<qint32>{1, 3}));
    const QMimeData *mime = QGuiApplication::clipboard()->mimeData();
    QVERIFY(mime);
    QCOMPARE(decodeFieldIds(mime, formatName), std::optional<QList<qint32>>({1, 3}));
    QCOMPARE(mime->text(), QStringLiteral("Mine\nTheirs B"));
    QCOMPARE(QString::fromUtf8(mime->data(QStringLiteral("text/csv"))),
             QStringLiteral("Key,Name,Category,Technology,Type,Owner\r\n"
                            "F1,Mine,Calculations,,UDC,me\r\n"
                            "F3,Theirs B,Calculations,,UDC,other\r\n"));
    QCOMPARE(scope.services.cursor()->Depth(), 0);
}

void TestFieldPickerSelection::shouldLeaveTheClipboardAloneWithoutASelection()
{
    UdcScope scope(Me);
    XFieldPicker picker;
    loadUdcs(picker);
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    picker.ClearSelection();

    picker.Copy();

    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
    QVERIFY(picker.ClipBoardData()->IsEmpty());
}

void TestFieldPickerSelection::shouldGiveTheSelectionThePickedOwner()
{
    // The selection holds another user's UDC, which only an administrator may re-own
    UdcScope scope(Administrator);
    XFieldPicker picker;
    loadUdcs(picker);
    picker.SetSelection(QVariant::fromValue(fieldsWithIds(*scope.catalog, {1, 2})));

    // A cancelled pick changes nothing
    picker.ChangeSelectionOwnership();
    QCOMPARE(scope.catalog->GetField(App, 1)->OwnerId(), Me);

    scope.owners->setChoice(scope.user(3));
    picker.ChangeSelectionOwnership();

    QCOMPARE(scope.owners->lastTitle(), QStringLiteral("Change Owner"));
    QCOMPARE(scope.owners->lastLabel(), QStringLiteral("Owner"));
    QCOMPARE(scope.catalog->GetField(App, 1)->OwnerId(), 3);
    QCOMPARE(scope.catalog->GetField(App, 2)->OwnerId(), 3);
    QCOMPARE(scope.catalog->GetField(App, 3)->OwnerId(), 2);
}

void TestFieldPickerSelection::shouldShowARefusedOwnerChangeAndChangeNoOwner_data()
{
    QTest::addColumn<bool>("catalogueFails");
    QTest::addColumn<QList<qint32>>("selected");
    QTest::addColumn<QString>("message");

    QTest::newRow("a user who is no administrator re-owns his own and another user's UDC")
        << false << QList<qint32>{1, 2} << QStringLiteral("'Theirs A' belongs to another user");
    QTest::newRow("the catalogue refuses the change")
        << true << QList<qint32>{1, 2, 3, 4} << QStringLiteral("The owner cannot be changed.");
}

void TestFieldPickerSelection::shouldShowARefusedOwnerChangeAndChangeNoOwner()
{
    QFETCH(bool, catalogueFails);
    QFETCH(QList<qint32>, selected);
    QFETCH(QString, message);

    // Given a user who is not an administrator and a selection that holds his own UDC
    UdcScope scope(Me);
    scope.catalog->failOwner = catalogueFails;
    scope.owners->setChoice(scope.user(3));
    XFieldPicker picker;
    loadUdcs(picker);
    picker.SetSelection(QVariant::fromValue(fieldsWithIds(*scope.catalog, selected)));

    // When he gives them a new owner
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("refused")));
    picker.ChangeSelectionOwnership();

    // Then he is told why and no owner changes, not even that of his own UDC
    QCOMPARE(scope.messages->calls().size(), 1);
    QVERIFY2(scope.messages->calls().first().text.contains(message), qPrintable(scope.messages->calls().first().text));
    QCOMPARE(scope.catalog->GetField(App, 1)->OwnerId(), Me);
    QCOMPARE(scope.catalog->GetField(App, 2)->OwnerId(), 2);
}

void TestFieldPickerSelection::shouldKeepDeletionsAndOwnersInAnSqliteCatalogue()
{
    // Given an SQLite catalogue of the four UDCs, opened by an administrator
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("udcs.sqlite"));
    {
        SqlCatalogBuilder builder(path);
        const auto source = makeUdcCatalog();
        for (const CurrentUserPtr &user : source->Users())
            builder.addUser({user->UserId(), user->Name(), user->IsAdministrator(), true, false});
        builder.addApplication(App);
        builder.addCategory({QStringLiteral("root"), {}, {}, QStringLiteral("Catalogue"), {}, {}, 0, {}});
        builder.addCategory({QStringLiteral("udc"), QStringLiteral("root"), {}, UdcCategory, {}, {}, 0, {}});
        for (qint32 id = 1; id <= 4; ++id) {
            const FieldPtr field = source->GetField(App, id);
            FieldSpec spec;
            spec.id = id;
            spec.categoryKey = QStringLiteral("udc");
            spec.name = field->Name();
            spec.typeCode = QStringLiteral("UDC");
            spec.ownerId = field->OwnerId();
            builder.addField(spec);
        }
        builder.commit();
    }
    UdcScope scope(Administrator);
    const auto catalog = SqlCatalog::open(path);
    FieldCatalog::setInstance(catalog);
    UserContext::setInstance(std::make_shared<FixedUserContext>(catalog->Users().last()));
    scope.owners->setChoice(catalog->Users().at(2));
    XFieldPicker picker;
    loadUdcs(picker);

    // When one field is deleted and another given a new owner
    picker.SetSelection(QVariant::fromValue(catalog->GetField(App, 2)));
    picker.DeleteSelection(nullptr);
    picker.SetSelection(QVariant::fromValue(catalog->GetField(App, 1)));
    picker.ChangeSelectionOwnership();

    // Then the catalogue opened again remembers both
    const auto reopened = SqlCatalog::open(path);
    QVERIFY(!reopened->GetField(App, 2));
    QCOMPARE(reopened->GetField(App, 1)->OwnerId(), 3);
    QCOMPARE(reopened->GetField(App, 3)->OwnerId(), 2);
    QVERIFY(scope.messages->calls().isEmpty());
}

QTEST_MAIN(TestFieldPickerSelection)
#include "tst_fieldpickerselection.moc"
