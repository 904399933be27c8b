#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace PickerCtl::Filters {

/**
 * A pair of arrows bound to a count text box: each step writes the box's number moved by one,
 * within the up-down's range. Unlike a spin box the text box is not capped, so a count above the
 * range can still be typed. The Up and Down keys in the box step as well.
 */
class CountUpDown : public QWidget
{
    Q_OBJECT
public:
    explicit CountUpDown(QWidget *parent = nullptr);

    void setBuddy(QLineEdit *buddy);
    void setRange(int minimum, int maximum);

    /// Writes the count into the buddy; raises valueChanged when it differs.
    void setValue(int value);

    void stepUp() { stepBy(1); }
    void stepDown() { stepBy(-1); }

Q_SIGNALS:
    void valueChanged(int value);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void stepBy(int delta);

    QLineEdit *m_buddy = nullptr;
    QToolButton *m_up;
    QToolButton *m_down;
    int m_minimum = 0;
    int m_maximum = 100;
    int m_value = 0;
};

} // namespace PickerCtl::Filters
