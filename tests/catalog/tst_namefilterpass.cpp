// The list's filter pass asks the name filter once for every folded name of the catalogue; these
// tests hold it to the answers each field gives through Field::PassesFilter.
#include "catalog_test_helpers.h"

#include "catalog/core/foldednames.h"
#include "catalog/core/namematcher.h"
#include "fieldpicker/filterpass.h"

#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::fieldpicker;
using namespace PickerCtl::test;

namespace {
const QString kRcvForm = QStringLiteral("Traffic Form");

// Names as catalogues hold them (repeated over categories), with the matcher's edges: case, digits,
// wildcard and separator characters in names, names beyond ASCII (a folding that depends on whole
// code points, a Kelvin sign that folds to "k", a sharp s), one empty name and names that end and
// begin so that a search across their boundary would find "ab".
const QStringList kNames{
    QStringLiteral("Call Attempts"), QStringLiteral("Drop Rate [%]"), QStringLiteral("TCH_Blocking"),
    QStringLiteral("Counter 17"), QStringLiteral("counter 71"), QStringLiteral("COUNTER 777"),
    QStringLiteral("Peak.Load (\"busy\")"), QStringLiteral("x' OR '1'='1"), QStringLiteral("a*b?c"),
    QStringLiteral("Übergabe Fehler"), QStringLiteral("übergabe fehler"), QStringLiteral("Straße"),
    QStringLiteral("\u212Aelvin"), QStringLiteral("kelvin"), QStringLiteral("\U00010400 Deseret"),
    QStringLiteral("\U00010428 deseret"), QString(), QStringLiteral("ends in a"), QStringLiteral("b begins"),
    QStringLiteral("Handover Success (HO)"), QStringLiteral("Erlang"), QStringLiteral("ΣΥΝΟΛΟ Erl"),
};

/// The sample catalogue plus `count` fields over three categories, their names taken in turn from
/// kNames starting at `firstName`, their other values varied so every filter has work to do.
std::shared_ptr<MemoryCatalog> filterCatalog(int count, int firstName)
{
    auto catalog = sampleCatalog();
    catalog->addCategory(categorySpec(QStringLiteral("A"), genericLabel(), QStringLiteral("Area A")));
    catalog->addCategory(categorySpec(QStringLiteral("B"), genericLabel(), QStringLiteral("Area B")));
    CategorySpec form = categorySpec(QStringLiteral("FORM"), genericLabel(), QStringLiteral("Form Fields"));
    form.rcvFormName = kRcvForm;
    catalog->addCategory(form);
    const QStringList keys{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("FORM")};
    const QStringList types{QStringLiteral("CNT"), QStringLiteral("EXP"), QStringLiteral("UDC")};
    const QStringList masks{QStringLiteral("G"), QStringLiteral("UL"), QStringLiteral("GUL"), QStringLiteral("Q")};
    const QList<qint32> owners{sample::Admin, sample::Alice, sample::Bob};
    for (int i = 0; i < count; ++i) {
        catalog->addField(fieldSpec(100 + i, keys[i % keys.size()], kNames[(firstName + i) % kNames.size()],
                                    types[i % types.size()], owners[i % owners.size()], masks[i % masks.size()],
                                    i % 5 == 0));
    }
    catalog->addRcvField(kRcvForm, QStringLiteral("Attempts"), 10);
    catalog->addRcvField(kRcvForm, QStringLiteral("Twelfth"), 112);
    return catalog;
}

FieldsPtr allFields(MemoryCatalog &catalog)
{
    return catalog.GetCategoryTree(sample::App)->AllFields(0);
}

/// The plain pass: every field asked on its own, in the list's order.
QList<qint32> eachFieldAsked(const Fields &source, const FieldFilterValues &values)
{
    QList<qint32> ids;
    for (const FieldPtr &field : source) {
        if (field->PassesFilter(values.tech, values.fieldType, values.owner, values.name, values.useForBusyHour,
                                values.rcvForm, values.rcvField))
            ids.append(field->Id());
    }
    return ids;
}

QList<qint32> idsOf(const Fields &fields)
{
    QList<qint32> ids;
    for (const FieldPtr &field : fields)
        ids.append(field->Id());
    return ids;
}

FieldFilterValues named(const QString &name)
{
    FieldFilterValues values;
    values.name = name;
    return values;
}
} // namespace

Q_DECLARE_METATYPE(PickerCtl::fieldpicker::FieldFilterValues)

class TestNameFilterPass : public QObject
{
    Q_OBJECT

private slots:
    void shouldPassTheFieldsThatPassOnTheirOwn_data()
    {
        QTest::addColumn<FieldFilterValues>("values");
        QTest::newRow("one digit found in many names") << named(QStringLiteral("7"));
        QTest::newRow("upper-case pattern finds lower-case names") << named(QStringLiteral("COUNTER"));
        QTest::newRow("mixed case pattern") << named(QStringLiteral("cOuNtEr 7"));
        QTest::newRow("literal longer than most names") << named(QStringLiteral("handover success (ho)"));
        QTest::newRow("no match across the end of one name into the next") << named(QStringLiteral("ab"));
        QTest::newRow("pattern equal to a whole name") << named(QStringLiteral("erlang"));
        QTest::newRow("pattern longer than any name") << named(QStringLiteral("erlang erlang erlang erlang erlang"));
        QTest::newRow("brackets and percent are literal") << named(QStringLiteral("[%]"));
        QTest::newRow("quotes are literal") << named(QStringLiteral("'1'='1"));
        QTest::newRow("star alone passes every name but none of the empty") << named(QStringLiteral("*"));
        QTest::newRow("star runs collapse") << named(QStringLiteral("c**7"));
        QTest::newRow("question mark is one character") << named(QStringLiteral("c?unter"));
        QTest::newRow("question marks longer than short names") << named(QStringLiteral("??????????????"));
        QTest::newRow("leading and trailing stars") << named(QStringLiteral("*7*"));
        QTest::newRow("wildcards with a separator between") << named(QStringLiteral("e*(*)"));
        QTest::newRow("longest literal run after the wildcards") << named(QStringLiteral("h*success (ho"));
        QTest::newRow("literal run that no name holds") << named(QStringLiteral("c*zzz"));
        QTest::newRow("non-ASCII literal, other case") << named(QStringLiteral("ÜBERGABE"));
        QTest::newRow("non-ASCII pattern never finds an ASCII name") << named(QStringLiteral("é"));
        QTest::newRow("non-ASCII pattern with a wildcard") << named(QStringLiteral("stra?e"));
        QTest::newRow("sharp s") << named(QStringLiteral("straße"));
        QTest::newRow("Kelvin sign in the pattern folds to k") << named(QStringLiteral("\u212A"));
        QTest::newRow("plain k finds the Kelvin sign name") << named(QStringLiteral("kel"));
        QTest::newRow("supplementary letter, other case") << named(QStringLiteral("\U00010428"));
        QTest::newRow("Greek capitals and an ASCII word") << named(QStringLiteral("σ*erl"));
        QTest::newRow("name that no field has") << named(QStringLiteral("zzz"));

        FieldFilterValues values = named(QStringLiteral("7"));
        values.fieldType = QStringLiteral("CNT,UDC");
        QTest::newRow("name and field type") << values;
        values = named(QStringLiteral("e"));
        values.owner = QStringLiteral("alice");
        QTest::newRow("name and owner name") << values;
        values = named(QStringLiteral("?"));
        values.tech = QStringLiteral("L");
        values.useForBusyHour = true;
        QTest::newRow("name, technology and busy hour") << values;
        values = named(QStringLiteral("a"));
        values.rcvForm = kRcvForm;
        QTest::newRow("name and RCV form") << values;
        values.rcvField = QStringLiteral("Twelfth");
        QTest::newRow("name, RCV form and field") << values;
        values = FieldFilterValues();
        values.fieldType = QStringLiteral("EXP");
        QTest::newRow("no name filter, another filter") << values;
    }

    void shouldPassTheFieldsThatPassOnTheirOwn()
    {
        QFETCH(FieldFilterValues, values);
        // Given a catalogue whose list holds all its fields, so the pass asks every name at once
        auto first = filterCatalog(600, 0);
        const FieldsPtr a = allFields(*first);
        // When the list is filtered, Then exactly the fields that pass on their own pass, in the list's order
        QCOMPARE(idsOf(*filterPass(*a, values)), eachFieldAsked(*a, values));

        // Given a list that mixes the fields of two catalogues whose names stand in other orders
        auto second = filterCatalog(300, 7);
        const FieldsPtr b = allFields(*second);
        Fields mixed;
        for (qsizetype i = 0; i < a->size(); ++i) {
            mixed.Add(a->at(i));
            if (i < b->size())
                mixed.Add(b->at(i));
        }
        // When it is filtered, then each field gives its own answer
        QCOMPARE(idsOf(*filterPass(mixed, values)), eachFieldAsked(mixed, values));
    }

    void shouldGiveTheSameFieldsForANarrowedList()
    {
        // Given a list already narrowed by one character
        auto catalog = filterCatalog(600, 0);
        NarrowingFilterPass pass;
        const FieldsPtr all = allFields(*catalog);
        pass.run(all, named(QStringLiteral("e")));
        // When a second character is typed, then the result is that of the whole list
        QCOMPARE(idsOf(*pass.run(all, named(QStringLiteral("er")))), eachFieldAsked(*all, named(QStringLiteral("er"))));
    }

    void shouldAskFieldsAddedAfterAPassToo()
    {
        // Given a list filtered once
        auto catalog = filterCatalog(200, 0);
        filterPass(*allFields(*catalog), named(QStringLiteral("er")));
        // When fields are added and the new list is filtered
        catalog->addField(fieldSpec(5000, QStringLiteral("A"), QStringLiteral("Newer Counter"), QStringLiteral("CNT"),
                                    sample::Admin, QString()));
        const FieldsPtr all = allFields(*catalog);
        const FieldsPtr passed = filterPass(*all, named(QStringLiteral("er")));
        // Then the new field is among them
        QVERIFY(idsOf(*passed).contains(5000));
        QCOMPARE(idsOf(*passed), eachFieldAsked(*all, named(QStringLiteral("er"))));
    }

    void shouldAnswerForFoldedNamesLikeTheMatcher_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::newRow("literal") << QStringLiteral("er");
        QTest::newRow("literal over a name boundary") << QStringLiteral("ab");
        QTest::newRow("wildcards") << QStringLiteral("c*?7");
        QTest::newRow("wildcards around a longer run") << QStringLiteral("?*unter*7");
        QTest::newRow("non-ASCII") << QStringLiteral("ü");
    }

    void shouldAnswerForFoldedNamesLikeTheMatcher()
    {
        QFETCH(QString, pattern);
        FoldedNames names;
        QList<quint32> positions;
        for (const QString &name : kNames)
            positions.append(names.add(name));
        const NameMatcher matcher(pattern);
        const std::vector<FoldedNames::Answer> answers = names.answers(matcher);
        QCOMPARE(answers.size(), size_t(names.size()));
        for (qsizetype i = 0; i < kNames.size(); ++i) {
            const FoldedNames::Answer answer = answers[positions[i]];
            if (answer != FoldedNames::AskTheName)
                QCOMPARE(answer == FoldedNames::Passes, matcher.matches(kNames[i]));
        }
    }

    void shouldKeepEachDistinctFoldedNameOnce()
    {
        FoldedNames names;
        const quint32 counter = names.add(QStringLiteral("Counter 17"));
        QCOMPARE(names.add(QStringLiteral("COUNTER 17")), counter);
        QCOMPARE(names.add(QStringLiteral("counter 17")), counter);
        QVERIFY(names.add(QStringLiteral("Counter 1")) != counter);
        QVERIFY(names.add(QStringLiteral("Counter 177")) != counter);
        QCOMPARE(names.add(QStringLiteral("Übergabe")), quint32(0)); // left to the field's own name
        const quint32 empty = names.add(QString());
        QVERIFY(empty != 0);
        QCOMPARE(names.add(QStringLiteral("")), empty);
        QCOMPARE(names.size(), quint32(5)); // four distinct ASCII names and position 0
    }

    void shouldKeepThePositionsOfManyDistinctNames()
    {
        // Enough names to grow the set several times
        FoldedNames names;
        QList<quint32> positions;
        for (int i = 0; i < 5000; ++i)
            positions.append(names.add(QStringLiteral("Name %1").arg(i)));
        for (int i = 0; i < 5000; ++i)
            QCOMPARE(names.add(QStringLiteral("NAME %1").arg(i)), positions[i]);
        const std::vector<FoldedNames::Answer> answers = names.answers(NameMatcher(QStringLiteral("name 4999")));
        QCOMPARE(answers[positions[4999]], FoldedNames::Passes);
        QCOMPARE(answers[positions[499]], FoldedNames::Fails);
    }
};

QTEST_GUILESS_MAIN(TestNameFilterPass)
#include "tst_namefilterpass.moc"
