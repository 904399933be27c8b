#include <PickerCtl/PropertyBag.h>

#include <QColor>
#include <QFont>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cfloat>
#include <cmath>
#include <limits>

using namespace PickerCtl;

namespace {
const QString IndentationKey = QStringLiteral("Indentation");
constexpr float IndentationDefault = 150.2362f;
} // namespace

class PropertyBagTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldNotStoreDefaultsAndDropThemWhenSetBack()
    {
        MemoryPropertyBag bag;
        // A value equal to its default is not stored, even when it comes as text or a double.
        bag.WriteProperty(IndentationKey, IndentationDefault, IndentationDefault);
        bag.WriteProperty(IndentationKey, double(IndentationDefault), IndentationDefault);
        bag.WriteProperty(QStringLiteral("Caption"), QStringLiteral("Entity Hierarchy"),
                          QStringLiteral("Entity Hierarchy"));
        QVERIFY(bag.keys().isEmpty());

        bag.WriteProperty(IndentationKey, 200.0f, IndentationDefault);
        QCOMPARE(bag.ReadProperty(IndentationKey, IndentationDefault).toFloat(), 200.0f);

        // Set back to its default, the stored value goes away.
        bag.WriteProperty(IndentationKey, IndentationDefault, IndentationDefault);
        QVERIFY(!bag.contains(IndentationKey));
        QCOMPARE(bag.ReadProperty(IndentationKey, IndentationDefault).toFloat(), IndentationDefault);
    }

    void shouldConvertStoredValuesToThePropertyType_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QMetaType>("type");
        QTest::addColumn<bool>("convertible");
        QTest::addColumn<QVariant>("expected");

        const auto Int = QMetaType::fromType<int>();
        const auto Bool = QMetaType::fromType<bool>();
        const auto Float = QMetaType::fromType<float>();
        const auto String = QMetaType::fromType<QString>();
        const auto Color = QMetaType::fromType<QColor>();
        const auto Font = QMetaType::fromType<QFont>();

        QTest::newRow("enum from text") << QVariant(QStringLiteral("1")) << Int << true << QVariant(1);
        QTest::newRow("enum from whole real") << QVariant(2.0) << Int << true << QVariant(2);
        QTest::newRow("enum from fraction") << QVariant(2.5) << Int << false << QVariant();
        QTest::newRow("enum out of 32 bits") << QVariant(qint64(1) << 40) << Int << false << QVariant();
        QTest::newRow("enum from garbage") << QVariant(QStringLiteral("two")) << Int << false << QVariant();
        QTest::newRow("colour number from colour") << QVariant(QColor(0x11, 0x22, 0x33)) << Int << true
                                                   << QVariant(0x332211);
        QTest::newRow("bool from VB true") << QVariant(QStringLiteral("-1")) << Bool << true << QVariant(true);
        QTest::newRow("bool from False") << QVariant(QStringLiteral("False")) << Bool << true << QVariant(false);
        QTest::newRow("bool from number") << QVariant(0) << Bool << true << QVariant(false);
        QTest::newRow("bool from garbage") << QVariant(QStringLiteral("maybe")) << Bool << false << QVariant();
        QTest::newRow("single from text") << QVariant(QStringLiteral("150.2362")) << Float << true
                                          << QVariant(IndentationDefault);
        QTest::newRow("single from NaN text") << QVariant(QStringLiteral("nan")) << Float << false << QVariant();
        QTest::newRow("single beyond range") << QVariant(1e300) << Float << false << QVariant();
        QTest::newRow("NaN single") << QVariant(std::numeric_limits<float>::quiet_NaN()) << Float << false << QVariant();
        QTest::newRow("infinite single") << QVariant(std::numeric_limits<float>::infinity()) << Float << false
                                         << QVariant();
        QTest::newRow("infinity text") << QVariant(QStringLiteral("-inf")) << Float << false << QVariant();
        QTest::newRow("beyond FLT_MAX text") << QVariant(QStringLiteral("3.5e38")) << Float << false << QVariant();
        QTest::newRow("double rounding to infinity") << QVariant(std::ldexp(1.0, 128) - std::ldexp(1.0, 103)) << Float
                                                     << false << QVariant();
        QTest::newRow("text from number") << QVariant(64) << String << true << QVariant(QStringLiteral("64"));
        QTest::newRow("text from list") << QVariant(QStringList{"a"}) << String << false << QVariant();
        QTest::newRow("colour from #rrggbb") << QVariant(QStringLiteral("#102030")) << Color << true
                                             << QVariant(QColor(0x10, 0x20, 0x30));
        QTest::newRow("colour from OLE number") << QVariant(0x0000FF) << Color << true
                                                << QVariant(QColor(Qt::red));
        QTest::newRow("colour from unknown system colour") << QVariant(qint32(0x800000FF)) << Color
                                                           << false << QVariant();
        QTest::newRow("colour from garbage") << QVariant(QStringLiteral("#zz")) << Color << false << QVariant();
        QTest::newRow("font from empty text") << QVariant(QString()) << Font << false << QVariant();
        QTest::newRow("nothing stored") << QVariant() << String << false << QVariant();
    }

    void shouldConvertStoredValuesToThePropertyType()
    {
        QFETCH(QVariant, stored);
        QFETCH(QMetaType, type);
        QFETCH(bool, convertible);
        QFETCH(QVariant, expected);
        QVariant out = QStringLiteral("untouched");
        QCOMPARE(tryConvert(stored, type, out), convertible);
        if (convertible)
            QCOMPARE(out, expected);
        else
            QCOMPARE(out, QVariant(QStringLiteral("untouched")));
    }

    // The reader skips what it cannot take, so the property keeps its current value.
    void shouldSkipUnconvertibleValuesWhenReadingTyped()
    {
        MemoryPropertyBag bag;
        bag.setStoredValue(QStringLiteral("TemplateView"), QStringLiteral("tree"));
        bag.setStoredValue(QStringLiteral("ShowAll"), QStringLiteral("True"));
        QCOMPARE(readAs<int>(bag, QStringLiteral("TemplateView"), 0), std::nullopt);
        QVERIFY(bag.contains(QStringLiteral("TemplateView")));
        QCOMPARE(readAs<bool>(bag, QStringLiteral("ShowAll"), false), std::optional<bool>(true));
        QCOMPARE(readAs<int>(bag, QStringLiteral("Absent"), 7), std::optional<int>(7));
    }

    void shouldRoundTripEverySingleExactly_data()
    {
        QTest::addColumn<float>("value");
        QTest::newRow("FLT_MAX") << FLT_MAX;
        QTest::newRow("-FLT_MAX") << -FLT_MAX;
        QTest::newRow("FLT_MIN") << FLT_MIN;
        QTest::newRow("smallest denormal") << std::numeric_limits<float>::denorm_min();
        QTest::newRow("negative denormal") << -1.0e-40f;
        QTest::newRow("largest denormal") << std::nextafter(FLT_MIN, 0.0f);
        QTest::newRow("indentation default") << IndentationDefault;
        QTest::newRow("one above 1") << std::nextafter(1.0f, 2.0f);
    }

    // A float written as text (by a host's own bag or an INI file) must read back as that float.
    void shouldRoundTripEverySingleExactly()
    {
        QFETCH(float, value);
        QVariant text;
        QVERIFY(tryConvert(value, QMetaType::fromType<QString>(), text));
        QVariant back;
        QVERIFY2(tryConvert(text, QMetaType::fromType<float>(), back), qPrintable(text.toString()));
        QCOMPARE(back.metaType(), QMetaType::fromType<float>());
        QVERIFY(back.toFloat() == value);

        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("form.ini"));
        {
            QSettings settings(file, QSettings::IniFormat);
            SettingsPropertyBag bag(settings, QStringLiteral("XFieldPicker"));
            bag.WriteProperty(QStringLiteral("SplitterLeft"), value, 3000.0f);
        }
        QSettings settings(file, QSettings::IniFormat);
        SettingsPropertyBag bag(settings, QStringLiteral("XFieldPicker"));
        const std::optional<float> read = readAs<float>(bag, QStringLiteral("SplitterLeft"), 3000.0f);
        QVERIFY(read.has_value());
        QVERIFY(*read == value);
    }

    void shouldKeepFontsAndColoursReadableInSettings()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("form.ini"));
        QFont font(QStringLiteral("Courier"), 10);
        font.setBold(true);
        {
            QSettings settings(file, QSettings::IniFormat);
            SettingsPropertyBag bag(settings, QStringLiteral("XFieldPicker"));
            bag.WriteProperty(QStringLiteral("Font"), font, QFont(QStringLiteral("Sans"), 9));
            bag.WriteProperty(QStringLiteral("BackColor"), QColor(0x12, 0x34, 0x56), QColor(Qt::white));
            bag.WriteProperty(QStringLiteral("Enabled"), true, true);
            QCOMPARE(bag.keys().size(), 2);
        }
        QSettings settings(file, QSettings::IniFormat);
        QCOMPARE(settings.value(QStringLiteral("XFieldPicker/BackColor")).toString(),
                 QStringLiteral("#123456"));
        SettingsPropertyBag bag(settings, QStringLiteral("XFieldPicker"));
        QCOMPARE(readAs<QFont>(bag, QStringLiteral("Font"), QFont()), std::optional<QFont>(font));
        QCOMPARE(readAs<int>(bag, QStringLiteral("BackColor"), 0), std::optional<int>(0x563412));
    }
};

QTEST_MAIN(PropertyBagTest)
#include "tst_propertybag.moc"
