#include "control_rows.h"

#include <PickerCtl/ControlFactory.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QTest>
#include <QWidget>

using namespace PickerCtl;

namespace {

// What a user reaches: the keyboard's Tab stops and the item views, also those that wait for an
// option to enable them.
bool reachable(const QWidget *child, const QWidget *control)
{
    // Qt's own inner parts (a spin box's line edit, a view's header) speak through their owner.
    if (!child->isVisibleTo(control) || child->objectName().startsWith(QLatin1String("qt_"))
        || qobject_cast<const QAbstractScrollArea *>(child->parentWidget()))
        return false;
    return (child->focusPolicy() & Qt::TabFocus) || qobject_cast<const QAbstractItemView *>(child);
}

} // namespace

class AccessibilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldNameAndDescribeWhatTheUserReaches_data();
    void shouldNameAndDescribeWhatTheUserReaches();
};

void AccessibilityTest::shouldNameAndDescribeWhatTheUserReaches_data()
{
    TestRows::addControlRows();
}

void AccessibilityTest::shouldNameAndDescribeWhatTheUserReaches()
{
    QFETCH(QString, className);

    // Given a control on screen
    const auto control = TestRows::shownControl(className);
    QVERIFY(control);

    // Then a screen reader finds a name and a description on each child a user reaches, and no
    // two of them share a name
    QHash<QString, QString> owners;
    QStringList faults;
    const auto children = control->findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (!reachable(child, control.get()))
            continue;
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(child);
        QVERIFY(accessible);
        const QString id = child->objectName().isEmpty() ? QString::fromLatin1(child->metaObject()->className())
                                                          : child->objectName();
        const QString name = accessible->text(QAccessible::Name);
        const QString description = accessible->text(QAccessible::Description);
        if (name.isEmpty())
            faults << id + QStringLiteral(" has no name");
        if (description.isEmpty())
            faults << id + QStringLiteral(" has no description");
        if (!name.isEmpty() && owners.contains(name))
            faults << QStringLiteral("%1 and %2 are both \"%3\"").arg(owners.value(name), id, name);
        owners.insert(name, id);
    }
    QVERIFY(!owners.isEmpty());
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1String("; "))));
}

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
