#pragma once

// Shared by the tests that hold every control of the class factory to one rule: a row per control,
// and the control shown at its preferred size.

#include <PickerCtl/ControlFactory.h>

#include <QTest>
#include <QWidget>

#include <memory>

namespace PickerCtl::TestRows {

/// Adds the column "className" and one row per control the factory makes.
inline void addControlRows()
{
    QTest::addColumn<QString>("className");
    const auto controls = ControlFactory::controls();
    for (const auto &description : controls)
        QTest::newRow(qPrintable(description.className)) << description.className;
}

/// The control made by name and shown at its size hint; null when the window never showed.
inline std::unique_ptr<QWidget> shownControl(const QString &className)
{
    std::unique_ptr<QWidget> control(ControlFactory::create(className));
    if (!control)
        return nullptr;
    control->resize(control->sizeHint());
    control->show();
    if (!QTest::qWaitForWindowExposed(control.get()))
        return nullptr;
    return control;
}

} // namespace PickerCtl::TestRows
