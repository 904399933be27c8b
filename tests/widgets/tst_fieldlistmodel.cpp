#include "staticlist_testfields.h"
#include "widgets/fieldlistmodel.h"

#include <PickerCtl/MemoryCatalog.h>

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

using namespace PickerCtl;

namespace {

enum class Thrown { StdException, NonStdValue };

[[noreturn]] void fail(Thrown kind)
{
    if (kind == Thrown::StdException)
        throw std::runtime_error("catalogue connection lost");
    throw 42;
}

// A catalogue whose technology lookup fails, as one whose server went away.
class TechnologyFailingCatalog : public MemoryCatalog
{
public:
    explicit TechnologyFailingCatalog(Thrown kind) : m_kind(kind) {}
    TechnologyTypesPtr GetTechnologyTypes() override { fail(m_kind); }

private:
    Thrown m_kind;
};

// A host's field that fails when its name is read.
class NameFailingField : public StaticListTestField
{
public:
    NameFailingField(qint32 id, Thrown kind) : StaticListTestField(id, QStringLiteral("X")), m_kind(kind) {}
    QString Name() const override { fail(m_kind); }

private:
    Thrown m_kind;
};

} // namespace

class TestFieldListModel : public QObject
{
    Q_OBJECT

private:
    static QString shownNames(const FieldListModel &model, const QString &separator = {})
    {
        QStringList names;
        for (int row = 0; row < model.rowCount(); ++row)
            names << model.index(row, FieldListModel::NameColumn).data().toString();
        return names.join(separator);
    }

private Q_SLOTS:
    void shouldStayConsistentThroughEveryChange()
    {
        // Given a model watched by the tester
        FieldListModel model;
        model.setTechnologyNamer([](const QString &mask) { return mask; });
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        auto fields = testFields("DBCA");
        model.setFields(fields);

        // When it is sorted, appended to, trimmed, unsorted and reordered
        model.sort(FieldListModel::NameColumn, Qt::AscendingOrder);
        QCOMPARE(shownNames(model), QStringLiteral("ABCD"));
        model.appendFields({std::make_shared<StaticListTestField>(9, QStringLiteral("E"))});
        model.removeSourceRow(1);
        model.clearSort();
        QVERIFY(model.moveRowBy(0, 1));
        QVERIFY(model.moveRowBy(2, -1));
        model.setFields(nullptr);

        // Then the tester found nothing wrong
        QCOMPARE(model.rowCount(), 0);
    }

    void shouldSortWithoutReorderingTheCollection_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<Qt::SortOrder>("order");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QString>("expected");
        QTest::newRow("name ascending") << int(FieldListModel::NameColumn) << Qt::AscendingOrder << true << "abCD";
        QTest::newRow("name descending") << int(FieldListModel::NameColumn) << Qt::DescendingOrder << true << "DCba";
        QTest::newRow("id descending") << int(FieldListModel::IdColumn) << Qt::DescendingOrder << true << "bCaD";
        // A template's order is its report order: a disabled model never reorders itself.
        QTest::newRow("sorting disabled") << int(FieldListModel::NameColumn) << Qt::AscendingOrder << false << "DaCb";
    }

    void shouldSortWithoutReorderingTheCollection()
    {
        QFETCH(int, column);
        QFETCH(Qt::SortOrder, order);
        QFETCH(bool, enabled);
        QFETCH(QString, expected);
        FieldListModel model;
        auto fields = testFields("DaCb");
        model.setFields(fields);
        model.setSortingEnabled(enabled);

        model.sort(column, order);

        QCOMPARE(shownNames(model), expected);
        QCOMPARE(model.isSorted(), enabled);
        QCOMPARE(namesOf(fields), QStringLiteral("DaCb"));
        model.clearSort();
        QCOMPARE(shownNames(model), QStringLiteral("DaCb"));
    }

    void shouldSortNamesInTheListOrder_data()
    {
        // Names, then the order they show in ascending and descending, each joined by '|'.
        // Ties keep the collection's order in both directions.
        QTest::addColumn<QString>("names");
        QTest::addColumn<QString>("ascending");
        QTest::addColumn<QString>("descending");
        QTest::newRow("case is ignored") << "beta|ALPHA|Alpha2|alpha" << "ALPHA|alpha|Alpha2|beta"
                                         << "beta|Alpha2|ALPHA|alpha";
        QTest::newRow("numbers are text") << "Cell 2|Cell 10|Cell 1" << "Cell 1|Cell 10|Cell 2" << "Cell 2|Cell 10|Cell 1";
        QTest::newRow("accents after the alphabet") << u"\u00c9cole|zone|Ecole|\u00e9COLE"_qs
                                                    << u"Ecole|zone|\u00c9cole|\u00e9COLE"_qs
                                                    << u"\u00c9cole|\u00e9COLE|zone|Ecole"_qs;
        QTest::newRow("long shared prefix")
            << "Traffic Channel Drops B|traffic channel drops a|Traffic Channel Drops"
            << "Traffic Channel Drops|traffic channel drops a|Traffic Channel Drops B"
            << "Traffic Channel Drops B|traffic channel drops a|Traffic Channel Drops";
        QTest::newRow("empty and punctuation") << "b||_x|A|1" << "|1|_x|A|b" << "b|A|_x|1|";
        QTest::newRow("beyond the basic plane") << u"\U0001D400|\uFF21|a"_qs << u"a|\uFF21|\U0001D400"_qs
                                                << u"\U0001D400|\uFF21|a"_qs;
    }

    void shouldSortNamesInTheListOrder()
    {
        QFETCH(QString, names);
        auto fields = Fields::create();
        for (const QString &name : names.split(u'|'))
            fields->Add(std::make_shared<StaticListTestField>(int(fields->Count()) + 1, name));
        FieldListModel model;
        model.setFields(fields);

        model.sort(FieldListModel::NameColumn, Qt::AscendingOrder);
        QTEST(shownNames(model, u"|"_qs), "ascending");
        model.sort(FieldListModel::NameColumn, Qt::DescendingOrder);
        QTEST(shownNames(model, u"|"_qs), "descending");
    }

    void shouldShowAppendedRowsLastWhileSorted()
    {
        FieldListModel model;
        auto fields = testFields("CA");
        model.setFields(fields);
        model.sort(FieldListModel::NameColumn);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);

        model.appendFields({std::make_shared<StaticListTestField>(7, QStringLiteral("B"))});

        QCOMPARE(inserted.count(), 1);
        QCOMPARE(shownNames(model), QStringLiteral("ACB"));
        QCOMPARE(model.viewRow(2), 2);
        QCOMPARE(model.sourceRow(0), 1);
    }

    void shouldDescribeCellsByKind_data()
    {
        QTest::addColumn<QString>("typeCode");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("typeText");
        QTest::addColumn<QString>("statusText");
        QTest::newRow("counter") << "CNT" << "V" << "Counter" << "";
        QTest::newRow("valid expression") << "EXP" << "V" << "Expression" << "Valid";
        QTest::newRow("udc not validated") << "UDC" << "N" << "UDC" << "Not validated";
        QTest::newRow("unknown code shown as is") << "XYZ" << "" << "XYZ" << "Not validated";
    }

    void shouldDescribeCellsByKind()
    {
        QFETCH(QString, typeCode);
        QFETCH(QString, status);
        FieldListModel model;
        auto field = std::make_shared<StaticListTestField>(1, QStringLiteral("n"), QString(), typeCode);
        field->m_status = status;
        auto fields = Fields::create();
        fields->Add(field);
        model.setFields(fields);

        QTEST(model.index(0, FieldListModel::TypeColumn).data().toString(), "typeText");
        QTEST(model.index(0, FieldListModel::StatusColumn).data().toString(), "statusText");
        QCOMPARE(model.index(0, 0).data(FieldListModel::FieldRole).value<FieldPtr>(), FieldPtr(field));
        QVERIFY(!model.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    }

    void shouldNameTechnologiesOncePerMask()
    {
        FieldListModel model;
        int calls = 0;
        model.setTechnologyNamer([&calls](const QString &mask) {
            ++calls;
            return mask + QStringLiteral("-names");
        });
        model.setFields(testFields("ABCD"));
        for (int row = 0; row < model.rowCount(); ++row)
            QCOMPARE(model.index(row, FieldListModel::TechnologyColumn).data().toString(), QStringLiteral("G-names"));
        QCOMPARE(calls, 1);
    }

    void shouldShowAnEmptyCellWhenTheCatalogueThrows_data()
    {
        QTest::addColumn<bool>("catalogueFails");
        QTest::addColumn<int>("thrown");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("reason");
        QTest::newRow("technology lookup throws std::exception") << true << int(Thrown::StdException)
            << int(FieldListModel::TechnologyColumn) << "catalogue connection lost";
        QTest::newRow("technology lookup throws a non-std value") << true << int(Thrown::NonStdValue)
            << int(FieldListModel::TechnologyColumn) << "an exception of unknown type";
        QTest::newRow("field name throws std::exception") << false << int(Thrown::StdException)
            << int(FieldListModel::NameColumn) << "catalogue connection lost";
        QTest::newRow("field name throws a non-std value") << false << int(Thrown::NonStdValue)
            << int(FieldListModel::NameColumn) << "an exception of unknown type";
    }

    void shouldShowAnEmptyCellWhenTheCatalogueThrows()
    {
        QFETCH(bool, catalogueFails);
        QFETCH(int, thrown);
        QFETCH(int, column);
        QFETCH(QString, reason);
        const auto kind = Thrown(thrown);

        // Given a list over a catalogue or a field that fails
        const auto previous = FieldCatalog::instance();
        if (catalogueFails)
            FieldCatalog::setInstance(std::make_shared<TechnologyFailingCatalog>(kind));
        auto fields = testFields("BA");
        if (!catalogueFails)
            fields->Add(std::make_shared<NameFailingField>(3, kind));
        FieldListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        model.setFields(fields);
        const int failing = catalogueFails ? 0 : 2;

        // When a view paints the failing cell and sorts by its column, twice
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(reason)));
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        QVariant shown;
        for (int pass = 0; pass < 2; ++pass) {
            shown = model.index(failing, column).data();
            model.sort(column, Qt::AscendingOrder);
        }
        FieldCatalog::setInstance(previous);

        // Then the cell is empty, the rest of the row still shows, the failure was logged once,
        // and the rows keep their order: unnamed technologies sort as equal texts, a failing
        // field stops the sort
        QVERIFY(shown.toString().isEmpty());
        QCOMPARE(model.index(failing, FieldListModel::IdColumn).data().toInt(), failing + 1);
        QCOMPARE(model.isSorted(), catalogueFails);
        QCOMPARE(fields->at(0)->Id(), 1);
        QCOMPARE(model.index(0, FieldListModel::NameColumn).data().toString(), QStringLiteral("B"));
    }

    void shouldKeepColumnIdsStable()
    {
        const QStringList ids{"name", "category", "type", "technology", "owner", "id", "description", "unit", "status"};
        for (int column = 0; column < FieldListModel::ColumnCount; ++column) {
            QCOMPARE(FieldListModel::columnId(column), ids.at(column));
            QCOMPARE(FieldListModel::columnFromId(ids.at(column)), column);
        }
        QCOMPARE(FieldListModel::columnFromId(QStringLiteral("Name")), -1);
    }
};

QTEST_MAIN(TestFieldListModel)
#include "tst_fieldlistmodel.moc"
