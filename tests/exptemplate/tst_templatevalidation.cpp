#include "exptemplate_helpers.h"

#include <PickerCtl/MemoryPropertyStore.h>

using namespace PickerCtl;
using namespace TemplateTest;

namespace {

/// A real store that counts how often the warning setting is read.
class CountingStore : public MemoryPropertyStore
{
public:
    QVariant Item(const QString &key) const override
    {
        if (key == WarnKey)
            ++warnReads;
        return MemoryPropertyStore::Item(key);
    }
    mutable int warnReads = 0;
};

struct Message
{
    qint32 style;
    QString text;
};

const QString Empty = QStringLiteral("A report template must have at least 1 field.");

QString question(const QString &list)
{
    return QStringLiteral("The following TechTypes are used in the Template.\r\n") + list
           + QStringLiteral("\r\nAre you sure you want to use this Template?");
}

QString warning(const QString &name)
{
    return QStringLiteral("Currently the expression '") + name
           + QStringLiteral("' does not have valid status.\r\nThe report may fail if the expression is not "
                            "validated before report is run.\r\nDo you want to continue?");
}

} // namespace

Q_DECLARE_METATYPE(Message)

class TemplateValidationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldValidateTheTemplate_data()
    {
        QTest::addColumn<QString>("fields");
        QTest::addColumn<QVariant>("warn");
        QTest::addColumn<QList<qint32>>("answers");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QList<Message>>("messages");

        const QVariant on(true);
        const QVariant off(false);
        const QVariant unset;
        using M = QList<Message>;
        QTest::newRow("empty template") << "" << on << QList<qint32>{} << false << M{{16, Empty}};
        QTest::newRow("one technology") << "Cell Attempts|Drop Rate" << on << QList<qint32>{} << true << M{};
        QTest::newRow("A and B, warning on, answered No")
            << "Cell Attempts|Cell Drops" << on << QList<qint32>{7} << false << M{{68, question("A,B")}};
        QTest::newRow("A and B, warning on, answered Yes")
            << "Cell Attempts|Cell Drops" << on << QList<qint32>{6} << true << M{{68, question("A,B")}};
        QTest::newRow("A and B, warning off") << "Cell Attempts|Cell Drops" << off << QList<qint32>{} << true << M{};
        QTest::newRow("A and B, warning never set") << "Cell Attempts|Cell Drops" << unset << QList<qint32>{} << true << M{};
        QTest::newRow("AB and B share B") << "Cell Load|Cell Drops" << on << QList<qint32>{} << true << M{};
        QTest::newRow("a field without technology is Unknown in the list")
            << "Cell Drops|Handover|Traffic Volume" << on << QList<qint32>{6} << true << M{{68, question("B,Unknown,C")}};
        QTest::newRow("a field without technology alone shares nothing to ask about")
            << "Cell Attempts|Handover" << on << QList<qint32>{} << true << M{};
        QTest::newRow("unvalidated expression answered Yes") << "Drop Rate|Bad Rate" << off << QList<qint32>{6} << true
                                                             << M{{52, warning("Bad Rate")}};
        QTest::newRow("unvalidated expression answered No") << "Drop Rate|Bad Rate" << off << QList<qint32>{7} << false
                                                            << M{{52, warning("Bad Rate")}};
        QTest::newRow("only the first unvalidated expression is named")
            << "Traffic Errors|Bad Rate" << off << QList<qint32>{6} << true << M{{52, warning("Traffic Errors")}};
        QTest::newRow("technology Yes, then the expression No")
            << "Cell Drops|Traffic Errors" << on << QList<qint32>{6, 7} << false
            << M{{68, question("B,C")}, {52, warning("Traffic Errors")}};
        QTest::newRow("technology No stops before the expression")
            << "Cell Drops|Traffic Errors" << on << QList<qint32>{7} << false << M{{68, question("B,C")}};
    }

    void shouldValidateTheTemplate()
    {
        QFETCH(QString, fields);
        QFETCH(QVariant, warn);
        QFETCH(QList<qint32>, answers);
        QFETCH(bool, valid);
        QFETCH(QList<Message>, messages);

        // Given a template, the warning setting and the user's answers
        Services services;
        auto store = std::make_shared<CountingStore>();
        if (!warn.isNull())
            store->SetItem(WarnKey, warn);
        services.catalog().setProperties(store);
        for (qint32 answer : answers)
            services.messages().queueAnswer(answer);
        XExpTemplate editor;
        editor.Load(App, QStringLiteral("Cell"), templateOf(services.catalog(), split(fields)));
        QSignalSpy changed(&editor, &XExpTemplate::Changed);

        // When the host validates it
        const bool result = editor.IsValid(QStringLiteral("Express Report"));

        // Then the user saw exactly these boxes, captioned with the title, and nothing changed
        QCOMPARE(result, valid);
        const auto &calls = services.messages().calls();
        QCOMPARE(calls.size(), messages.size());
        for (qsizetype i = 0; i < calls.size(); ++i) {
            QCOMPARE(calls.at(i).style, messages.at(i).style);
            QCOMPARE(calls.at(i).text, messages.at(i).text);
            QCOMPARE(calls.at(i).title, QStringLiteral("Express Report"));
        }
        QCOMPARE(names(*selected(editor)), fields);
        QCOMPARE(changed.count(), 0);
        // and an empty template is refused before the warning setting is read
        QCOMPARE(store->warnReads, fields.isEmpty() ? 0 : 1);
    }

    void shouldShowAndHandBackFreshFieldsAsGiven_data()
    {
        QTest::addColumn<QString>("given");  // "<null>": an item without a field; "<none>": no collection at all
        QTest::addColumn<QString>("expected");

        QTest::newRow("fields of any category, in the given order")
            << "Drop Rate|Cell Attempts|Traffic Volume" << "Drop Rate|Cell Attempts|Traffic Volume";
        QTest::newRow("repeated fields are kept") << "Drop Rate|Cell Attempts|Drop Rate" << "Drop Rate|Cell Attempts|Drop Rate";
        QTest::newRow("items without a field are left out") << "Drop Rate|No Such Field|Cell Attempts|<null>"
                                                            << "Drop Rate|Cell Attempts";
        QTest::newRow("no fields empty the template") << "<none>" << "";
    }

    void shouldShowAndHandBackFreshFieldsAsGiven()
    {
        QFETCH(QString, given);
        QFETCH(QString, expected);

        // Given an editor showing a template
        Services services;
        XExpTemplate editor;
        editor.setFields(templateOf(services.catalog(), {"Handover"}));
        QSignalSpy changed(&editor, &XExpTemplate::Changed);
        QStringList fieldNames = split(given);
        const bool withNull = fieldNames.removeAll(QStringLiteral("<null>")) > 0;
        TemplateFieldsPtr items = given == QLatin1String("<none>") ? nullptr : templateOf(services.catalog(), fieldNames);
        if (withNull)
            items->Add(nullptr);

        // When the host sets the fields and reads them back
        editor.setFields(items);
        const TemplateFieldsPtr read = editor.Fields();

        // Then both show them and hand back new items of the same fields, included with code "N", without Changed
        QCOMPARE(names(read), expected);
        QCOMPARE(names(*selected(editor)), expected);
        for (qint32 i = 0; i < read->Count(); ++i) {
            if (items->Count() == read->Count()) {
                QVERIFY(read->Item(i) != items->Item(i));
                QCOMPARE(read->Item(i)->Field(), items->Item(i)->Field());
            }
            QCOMPARE(read->Item(i)->Include(), true);
            QCOMPARE(read->Item(i)->Code(), QStringLiteral("N"));
        }
        QVERIFY(editor.Fields() != read);
        QCOMPARE(changed.count(), 0);
        if (withNull)
            QVERIFY(editor.IsValid(QStringLiteral("t")));
    }

    void shouldKeepColumnLayoutsAcrossEditors()
    {
        // Given an editor whose lists' columns were changed, saved to a real store that had none
        Services services;
        auto store = std::make_shared<MemoryPropertyStore>();
        services.catalog().setProperties(store);
        QStringList availableColumns;
        QStringList selectedColumns;
        {
            XExpTemplate first;
            first.Load(App, QStringLiteral("Cell"), nullptr);
            // Nothing saved yet: loading the state keeps the columns
            const QStringList defaults = selected(first)->VisibleColumns();
            first.LoadState();
            QCOMPARE(selected(first)->VisibleColumns(), defaults);
            QVERIFY(available(first)->setColumnVisible(QStringLiteral("id"), true));
            QVERIFY(selected(first)->setColumnVisible(QStringLiteral("owner"), false));
            QVERIFY(selected(first)->setColumnVisible(QStringLiteral("unit"), true));
            availableColumns = available(first)->VisibleColumns();
            selectedColumns = selected(first)->VisibleColumns();
            first.SaveState();
        }
        QVERIFY(store->Item(QStringLiteral("Express Available Properties")).toString().startsWith(QStringLiteral("PCLV1")));
        QVERIFY(store->Item(QStringLiteral("Express Selected Properties")).toString().startsWith(QStringLiteral("PCLV1")));
        QVERIFY(store->Contains(QStringLiteral("Available Fields Columns")));
        QVERIFY(store->Contains(QStringLiteral("Selected Fields Columns")));

        // When a new editor loads its state
        XExpTemplate second;
        second.Load(App, QStringLiteral("Cell"), nullptr);
        QVERIFY(available(second)->VisibleColumns() != availableColumns);
        second.LoadState();

        // Then both lists show the saved columns
        QCOMPARE(available(second)->VisibleColumns(), availableColumns);
        QCOMPARE(selected(second)->VisibleColumns(), selectedColumns);
    }
};

QTEST_MAIN(TemplateValidationTest)
#include "tst_templatevalidation.moc"
