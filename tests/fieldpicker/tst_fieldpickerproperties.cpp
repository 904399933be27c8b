#include "fieldpicker_helpers.h"

#include <PickerCtl/HostSite.h>
#include <PickerCtl/PropertyBag.h>
#include <PickerCtl/XFieldPicker.h>

#include <QFrame>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;

using PropertyChange = std::function<void(XFieldPicker &)>;
using PropertyCheck = std::function<bool(const XFieldPicker &)>;
Q_DECLARE_METATYPE(PropertyChange)
Q_DECLARE_METATYPE(PropertyCheck)

namespace {

/// A bag that records the keys in the order the control touches them.
class RecordingBag : public MemoryPropertyBag
{
public:
    bool contains(const QString &key) const override
    {
        note(key);
        return MemoryPropertyBag::contains(key);
    }
    mutable QStringList touched;

protected:
    void store(const QString &key, const QVariant &value) override
    {
        note(key);
        MemoryPropertyBag::store(key, value);
    }

private:
    void note(const QString &key) const
    {
        if (touched.isEmpty() || touched.last() != key)
            touched.append(key);
    }
};

QStringList notifiedKeys(const QSignalSpy &spy)
{
    QStringList keys;
    for (const QList<QVariant> &call : spy)
        keys.append(call.at(0).toString());
    return keys;
}

const QStringList WriteOrder{
    "CaptionVisible", "TemplateView",  "BackColor",     "ForeColor",      "Font",
    "Enabled",        "Indentation",   "FullRowSelect", "SplitterWidth",  "SplitterLeft",
    "HideSelection",  "UseForBusyHour", "MultiSelect",  "Caption",        "ContextMenu",
    "AllowDragDrop",  "RootLabel",     "AllowOpenMenu", "OpenMenuCaption", "ShowEntityField",
    "ShowAll"};

} // namespace

class TestFieldPickerProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void shouldGiveANewControlItsDefaultsAndSaveNoKey();
    void shouldInitialiseThroughThePutsInOrder();
    void shouldReadInItsOrderAndWriteInAnother();
    void shouldRoundTripEveryPersistedProperty_data();
    void shouldRoundTripEveryPersistedProperty();
    void shouldSkipUnreadableKeysOneByOne();
    void shouldKeepMultiSelectAndBusyHourExclusive();
    void shouldMapTheRootLabelMode_data();
    void shouldMapTheRootLabelMode();
    void shouldDoNothingWhenTheViewModeIsPutAgain();
    void shouldFreezeOnceAndStopTheTreeRedrawing();
    void shouldColourTheSplitterBarWithBackColor();
    void shouldKeepTheCaptionAndTooltipTogether();
    void shouldAnswerStatusQueriesBeforeAnyLoad();

private:
    std::unique_ptr<ServicesScope> m_scope;
};

void TestFieldPickerProperties::init()
{
    m_scope = std::make_unique<ServicesScope>(makeSampleCatalog());
}

void TestFieldPickerProperties::cleanup()
{
    m_scope.reset();
}

void TestFieldPickerProperties::shouldGiveANewControlItsDefaultsAndSaveNoKey()
{
    XFieldPicker picker;
    picker.InitProperties();

    QCOMPARE(picker.RootLabel(), QStringLiteral("Entities"));
    QCOMPARE(picker.TemplateView(), tplTreeAndList);
    QCOMPARE(picker.SingleBranch(), tplNormal);
    QCOMPARE(picker.SplitterLeft(), 3000.0f);
    QCOMPARE(picker.SplitterWidth(), 64.0f);
    QVERIFY(picker.Indentation() == 150.2362f);
    QCOMPARE(picker.Caption(), QStringLiteral("Entity Hierarchy"));
    QCOMPARE(picker.OpenMenuCaption(), QStringLiteral("Open Editor"));
    QVERIFY(picker.MultiSelect());
    QVERIFY(!picker.UseForBusyHour());
    QVERIFY(picker.HideSelection());
    QVERIFY(picker.AllowDragDrop());
    QVERIFY(picker.CaptionVisible());
    QVERIFY(picker.Enabled());
    QVERIFY(!picker.AllowContextMenu() && !picker.AllowOpenMenu() && !picker.ShowAll());
    QCOMPARE(picker.BackColor(), picker.hostSite()->AmbientBackColor());
    QCOMPARE(picker.ForeColor(), picker.hostSite()->AmbientForeColor());
    QCOMPARE(picker.Font(), picker.hostSite()->AmbientFont());

    // A control at its defaults saves no key at all
    MemoryPropertyBag bag;
    picker.WriteProperties(bag);
    QCOMPARE(bag.keys(), QStringList());
}

void TestFieldPickerProperties::shouldInitialiseThroughThePutsInOrder()
{
    // Given a control whose view mode is already the default one
    XFieldPicker picker;
    QSignalSpy changes(picker.hostSite(), &HostSite::PropertyChanged);

    // When
    picker.InitProperties();

    // Then every put reports its key, except the unchanged view mode and RootLbl, which never does
    QStringList expected{"CaptionVisible", "BackColor",     "ForeColor",     "Font",
                         "Enabled",        "Indentation",   "FullRowSelect", "SplitterWidth",
                         "SplitterLeft",   "HideSelection", "UseForBusyHour", "MultiSelect",
                         "Caption",        "ContextMenu",   "AllowDragDrop", "AllowOpenMenu",
                         "OpenMenuCaption", "ShowEntityField", "ShowAll"};
    QCOMPARE(notifiedKeys(changes), expected);
}

void TestFieldPickerProperties::shouldReadInItsOrderAndWriteInAnother()
{
    // Given a bag that changes the view mode, so that its put reports too
    XFieldPicker picker;
    picker.InitProperties();
    MemoryPropertyBag bag;
    bag.setStoredValue(QStringLiteral("TemplateView"), 1);
    QSignalSpy changes(picker.hostSite(), &HostSite::PropertyChanged);

    // When
    picker.ReadProperties(bag);

    // Then
    QStringList readOrder{"TemplateView", "CaptionVisible", "BackColor",     "ForeColor",
                          "Font",         "Enabled",        "Indentation",   "FullRowSelect",
                          "SplitterWidth", "SplitterLeft",  "HideSelection", "UseForBusyHour",
                          "MultiSelect",  "Caption",        "ContextMenu",   "AllowDragDrop",
                          "AllowOpenMenu", "OpenMenuCaption", "ShowEntityField", "ShowAll"};
    QCOMPARE(notifiedKeys(changes), readOrder);

    // When written, the keys come in the write order
    RecordingBag recorder;
    picker.WriteProperties(recorder);
    QCOMPARE(recorder.touched, WriteOrder);
    QCOMPARE(recorder.keys(), QStringList{QStringLiteral("TemplateView")});
}

void TestFieldPickerProperties::shouldRoundTripEveryPersistedProperty_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<PropertyChange>("change");
    QTest::addColumn<PropertyCheck>("changed");

    auto row = [](const char *key, PropertyChange change, PropertyCheck changed) {
        QTest::newRow(key) << QString::fromLatin1(key) << change << changed;
    };
    row("TemplateView", [](XFieldPicker &p) { p.setTemplateView(tplListOnly); },
        [](const XFieldPicker &p) { return p.TemplateView() == tplListOnly; });
    row("CaptionVisible", [](XFieldPicker &p) { p.setCaptionVisible(false); },
        [](const XFieldPicker &p) { return !p.CaptionVisible(); });
    row("BackColor", [](XFieldPicker &p) { p.setBackColor(QColor(0x12, 0x34, 0x56)); },
        [](const XFieldPicker &p) { return p.BackColor() == QColor(0x12, 0x34, 0x56); });
    row("ForeColor", [](XFieldPicker &p) { p.setForeColor(QColor(0xab, 0xcd, 0xef)); },
        [](const XFieldPicker &p) { return p.ForeColor() == QColor(0xab, 0xcd, 0xef); });
    row("Font", [](XFieldPicker &p) { p.setFont(QFont(QStringLiteral("Serif"), 17)); },
        [](const XFieldPicker &p) { return p.Font().pointSize() == 17; });
    row("Enabled", [](XFieldPicker &p) { p.setEnabled(false); },
        [](const XFieldPicker &p) { return !p.Enabled(); });
    row("Indentation", [](XFieldPicker &p) { p.setIndentation(300.5f); },
        [](const XFieldPicker &p) { return p.Indentation() == 300.5f; });
    row("FullRowSelect", [](XFieldPicker &p) { p.setFullRowSelect(true); },
        [](const XFieldPicker &p) { return p.FullRowSelect(); });
    row("SplitterWidth", [](XFieldPicker &p) { p.setSplitterWidth(91.25f); },
        [](const XFieldPicker &p) { return p.SplitterWidth() == 91.25f; });
    row("SplitterLeft", [](XFieldPicker &p) { p.setSplitterLeft(2501.7f); },
        [](const XFieldPicker &p) { return p.SplitterLeft() == 2501.7f; });
    row("HideSelection", [](XFieldPicker &p) { p.setHideSelection(false); },
        [](const XFieldPicker &p) { return !p.HideSelection(); });
    row("UseForBusyHour", [](XFieldPicker &p) { p.setUseForBusyHour(true); },
        [](const XFieldPicker &p) { return p.UseForBusyHour() && !p.MultiSelect(); });
    row("MultiSelect", [](XFieldPicker &p) { p.setMultiSelect(false); },
        [](const XFieldPicker &p) { return !p.MultiSelect(); });
    row("Caption", [](XFieldPicker &p) { p.setCaption(QStringLiteral("Counters")); },
        [](const XFieldPicker &p) { return p.Caption() == QStringLiteral("Counters"); });
    row("ContextMenu", [](XFieldPicker &p) { p.setAllowContextMenu(true); },
        [](const XFieldPicker &p) { return p.AllowContextMenu(); });
    row("AllowDragDrop", [](XFieldPicker &p) { p.setAllowDragDrop(false); },
        [](const XFieldPicker &p) { return !p.AllowDragDrop(); });
    row("RootLabel", [](XFieldPicker &p) { p.setRootLbl(tplGeneric); },
        [](const XFieldPicker &p) { return p.RootLbl() == tplGeneric; });
    row("AllowOpenMenu", [](XFieldPicker &p) { p.setAllowOpenMenu(true); },
        [](const XFieldPicker &p) { return p.AllowOpenMenu(); });
    row("OpenMenuCaption", [](XFieldPicker &p) { p.setOpenMenuCaption(QStringLiteral("Equivalences")); },
        [](const XFieldPicker &p) { return p.OpenMenuCaption() == QStringLiteral("Equivalences"); });
    row("ShowEntityField", [](XFieldPicker &p) { p.setShowEntityFld(true); },
        [](const XFieldPicker &p) { return p.ShowEntityFld(); });
    row("ShowAll", [](XFieldPicker &p) { p.setShowAll(true); },
        [](const XFieldPicker &p) { return p.ShowAll(); });
}

void TestFieldPickerProperties::shouldRoundTripEveryPersistedProperty()
{
    QFETCH(QString, key);
    QFETCH(PropertyChange, change);
    QFETCH(PropertyCheck, changed);

    // Given a control with one property away from its default
    XFieldPicker saved;
    saved.InitProperties();
    change(saved);
    QVERIFY(changed(saved));
    MemoryPropertyBag bag;

    // When it is saved and a new control is restored from the bag
    saved.WriteProperties(bag);
    XFieldPicker restored;
    restored.InitProperties();
    restored.ReadProperties(bag);

    // Then the bag holds that key (and MultiSelect when busy hour cleared it) and the value is back
    QVERIFY(bag.keys().contains(key));
    QVERIFY(changed(restored));
}

void TestFieldPickerProperties::shouldSkipUnreadableKeysOneByOne()
{
    // Given a control with values of its own and a bag damaged in some keys
    XFieldPicker picker;
    picker.InitProperties();
    picker.setSplitterLeft(2000.0f);
    picker.setCaptionVisible(false);
    picker.setAllowOpenMenu(true);
    MemoryPropertyBag bag;
    bag.setStoredValue(QStringLiteral("SplitterLeft"), QStringLiteral("wide"));
    bag.setStoredValue(QStringLiteral("CaptionVisible"), QStringLiteral("perhaps"));
    bag.setStoredValue(QStringLiteral("Indentation"), std::numeric_limits<double>::quiet_NaN());
    bag.setStoredValue(QStringLiteral("Font"), QVariant::fromValue(QStringList{QStringLiteral("x")}));
    bag.setStoredValue(QStringLiteral("SplitterWidth"), QStringLiteral("120"));
    bag.setStoredValue(QStringLiteral("Caption"), QStringLiteral("Counters"));
    const QFont font = picker.Font();

    // When
    picker.ReadProperties(bag);

    // Then the unreadable keys keep the current values, the readable ones apply, and absent
    // keys take their read defaults
    QCOMPARE(picker.SplitterLeft(), 2000.0f);
    QVERIFY(!picker.CaptionVisible());
    QVERIFY(picker.Indentation() == 150.2362f);
    QCOMPARE(picker.Font(), font);
    QCOMPARE(picker.SplitterWidth(), 120.0f);
    QCOMPARE(picker.Caption(), QStringLiteral("Counters"));
    QVERIFY(!picker.AllowOpenMenu());
}

void TestFieldPickerProperties::shouldKeepMultiSelectAndBusyHourExclusive()
{
    XFieldPicker picker;
    picker.InitProperties();

    // A busy-hour pick is a single field
    picker.setUseForBusyHour(true);
    QVERIFY(!picker.MultiSelect());

    // Switching multiple selection off leaves busy hour alone; switching it on ends busy hour
    picker.setMultiSelect(false);
    QVERIFY(picker.UseForBusyHour());
    picker.setMultiSelect(true);
    QVERIFY(!picker.UseForBusyHour());

    // Leaving busy hour keeps the selection mode
    picker.setMultiSelect(false);
    picker.setUseForBusyHour(false);
    QVERIFY(!picker.MultiSelect());

    // A bag that holds both ends with multiple selection and without busy hour
    MemoryPropertyBag bag;
    bag.setStoredValue(QStringLiteral("UseForBusyHour"), true);
    bag.setStoredValue(QStringLiteral("MultiSelect"), true);
    picker.ReadProperties(bag);
    QVERIFY(picker.MultiSelect());
    QVERIFY(!picker.UseForBusyHour());
}

void TestFieldPickerProperties::shouldMapTheRootLabelMode_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("rootLbl");
    QTest::addColumn<QString>("rootLabel");

    QTest::newRow("absent") << QVariant() << 0 << "Entities";
    QTest::newRow("1: generic") << QVariant(1) << 1 << "Generic";
    QTest::newRow("5: no label") << QVariant(5) << 5 << "";
    QTest::newRow("text 1") << QVariant(QStringLiteral("1")) << 1 << "Generic";
}

void TestFieldPickerProperties::shouldMapTheRootLabelMode()
{
    QFETCH(QVariant, stored);
    QFETCH(int, rootLbl);
    QFETCH(QString, rootLabel);

    XFieldPicker picker;
    picker.InitProperties();
    MemoryPropertyBag bag;
    if (stored.isValid())
        bag.setStoredValue(QStringLiteral("RootLabel"), stored);
    QSignalSpy changes(picker.hostSite(), &HostSite::PropertyChanged);

    picker.ReadProperties(bag);

    QCOMPARE(int(picker.RootLbl()), rootLbl);
    QCOMPARE(picker.RootLabel(), rootLabel);
    QVERIFY(!notifiedKeys(changes).contains(QStringLiteral("RootLabel")));
}

void TestFieldPickerProperties::shouldDoNothingWhenTheViewModeIsPutAgain()
{
    // Given a shown control whose tree has been moved by hand
    XFieldPicker picker;
    picker.InitProperties();
    picker.resize(400, 300);
    auto *tree = picker.findChild<QTreeView *>(QStringLiteral("tvw"));
    tree->setGeometry(5, 6, 7, 8);
    QSignalSpy changes(picker.hostSite(), &HostSite::PropertyChanged);

    // When
    picker.setTemplateView(tplTreeAndList);

    // Then neither a notification nor a layout
    QCOMPARE(changes.count(), 0);
    QCOMPARE(tree->geometry(), QRect(5, 6, 7, 8));

    // While a real change lays out and reports
    picker.setTemplateView(tplTreeOnly);
    QCOMPARE(notifiedKeys(changes), QStringList{QStringLiteral("TemplateView")});
    QVERIFY(tree->geometry() != QRect(5, 6, 7, 8));
}

void TestFieldPickerProperties::shouldFreezeOnceAndStopTheTreeRedrawing()
{
    XFieldPicker picker;
    auto *tree = picker.findChild<QTreeView *>(QStringLiteral("tvw"));
    QSignalSpy stateChanges(&picker, &XFieldPicker::StateChange);

    picker.setFrozen(true);
    picker.setFrozen(true);

    QVERIFY(picker.Frozen());
    QCOMPARE(stateChanges.count(), 1);
    QVERIFY(HostSite::isRedrawOff(tree));

    picker.setFrozen(false);
    QVERIFY(!picker.Frozen());
    QCOMPARE(stateChanges.count(), 2);
    QVERIFY(!HostSite::isRedrawOff(tree));
}

void TestFieldPickerProperties::shouldColourTheSplitterBarWithBackColor()
{
    XFieldPicker picker;
    const QColor color(0x20, 0x60, 0xa0);

    picker.setBackColor(color);

    auto *bar = picker.findChild<QFrame *>(QStringLiteral("lblSplitter"));
    QCOMPARE(bar->palette().color(QPalette::Window), color);
    QVERIFY(bar->autoFillBackground());
}

void TestFieldPickerProperties::shouldKeepTheCaptionAndTooltipTogether()
{
    XFieldPicker picker;
    auto *header = picker.findChild<QLabel *>(QStringLiteral("lblHeaderLeft"));
    QCOMPARE(header->text(), QStringLiteral("Entity Hierachy"));

    picker.setCaption(QStringLiteral("Network elements"));

    QCOMPARE(header->text(), QStringLiteral("Network elements"));
    QCOMPARE(header->toolTip(), QStringLiteral("Network elements"));
}

void TestFieldPickerProperties::shouldAnswerStatusQueriesBeforeAnyLoad()
{
    XFieldPicker picker;
    picker.InitProperties();

    QVERIFY(!picker.IsDataValid());
    QCOMPARE(picker.GetStatus(), QStringLiteral("Hierarchy incomplete (Load failed/cancelled)."));
    QVERIFY(picker.IsAtRoot());
    QVERIFY(picker.IsSelectionEmpty());
    QVERIFY(!picker.IsTreeViewActive());
    QVERIFY(!picker.IsListViewActive());

    // After a good load the list's own status text is answered
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    auto *list = picker.findChild<XStaticList *>(QStringLiteral("stl"));
    QCOMPARE(picker.GetStatus(), list->StatusText());
    QVERIFY(!picker.IsAtRoot());
}

QTEST_MAIN(TestFieldPickerProperties)
#include "tst_fieldpickerproperties.moc"
