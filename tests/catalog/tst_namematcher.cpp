#include "catalog/core/namematcher.h"

#include <QTest>

using namespace PickerCtl;

class TestNameMatcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldMatchLikeTheCatalogueFilter_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("matches");

        QTest::newRow("any case, anywhere") << u"CELL 19"_qs << u"Counter 4 of cell 1999"_qs << true;
        QTest::newRow("a false start is not the end") << u"aab"_qs << u"xaaab"_qs << true;
        QTest::newRow("at the very end") << u"drops"_qs << u"TCH Drops"_qs << true;
        QTest::newRow("longer than the name") << u"drops!"_qs << u"Drops"_qs << false;
        QTest::newRow("letters only fold: @ is not a backquote") << u"`x"_qs << u"@X"_qs << false;
        QTest::newRow("punctuation is exact") << u"[%]"_qs << u"Drop rate [%]"_qs << true;
        QTest::newRow("a Kelvin sign in the name folds to k") << u"kpi"_qs << u"\u212API value"_qs << true;
        QTest::newRow("a long s in the name folds to s") << u"loss"_qs << u"Lo\u017Fs rate"_qs << true;
        QTest::newRow("accented pattern, other case in the name") << u"\u00C9cole"_qs << u"\u00E9COLE 1"_qs << true;
        QTest::newRow("an accent is not its base letter") << u"ecole"_qs << u"\u00C9cole"_qs << false;
        QTest::newRow("star across words") << u"counter 4?*cell 19"_qs << u"Counter 42 of cell 1999"_qs << true;
        QTest::newRow("question mark needs a character") << u"drop?"_qs << u"Drop"_qs << false;
        QTest::newRow("question mark takes a non-ASCII character") << u"t?st"_qs << u"T\u00E9st"_qs << true;
        QTest::newRow("star in a non-ASCII name, any case") << u"\u00E9*rate"_qs << u"\u00C9chec rate"_qs << true;
        QTest::newRow("star with a Kelvin sign in the name") << u"k*value"_qs << u"\u212A value"_qs << true;
        QTest::newRow("star and a folded pattern letter") << u"D*RATE"_qs << u"drop rate"_qs << true;
        QTest::newRow("star needs the rest") << u"d*rate"_qs << u"drop ratio"_qs << false;
    }

    void shouldMatchLikeTheCatalogueFilter()
    {
        QFETCH(QString, pattern);
        QFETCH(QString, name);
        QFETCH(bool, matches);
        QCOMPARE(NameMatcher(pattern).matches(name), matches);
        QCOMPARE(nameFilterMatches(name, pattern), matches);
    }

    void shouldRecompileWhenTheFilterTextChangesInPlace()
    {
        // The same buffer with other text must not pass for the filter compiled before.
        QString filter = u"drop"_qs;
        QVERIFY(nameFilterMatches(u"TCH Drop"_qs, filter));
        filter[0] = u'c';
        QVERIFY(!nameFilterMatches(u"TCH Drop"_qs, filter));
        QVERIFY(nameFilterMatches(u"Crop"_qs, filter));
    }
};

QTEST_MAIN(TestNameMatcher)
#include "tst_namematcher.moc"
