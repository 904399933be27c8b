#include "filters/countupdown.h"

#include "filters/countstep.h"
#include "filters/widgetnames.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace PickerCtl::Filters {

namespace {

QToolButton *arrowButton(QWidget *parent, Qt::ArrowType arrow, const char *name)
{
    auto *button = named(new QToolButton(parent), name);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    // The arrows are a mouse aid; the keyboard steps with Up and Down in the text box.
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    return button;
}

} // namespace

CountUpDown::CountUpDown(QWidget *parent)
    : QWidget(parent)
    , m_up(arrowButton(this, Qt::UpArrow, "up"))
    , m_down(arrowButton(this, Qt::DownArrow, "down"))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_up);
    column->addWidget(m_down);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    connect(m_up, &QToolButton::clicked, this, &CountUpDown::stepUp);
    connect(m_down, &QToolButton::clicked, this, &CountUpDown::stepDown);
}

void CountUpDown::setBuddy(QLineEdit *buddy)
{
    if (m_buddy)
        m_buddy->removeEventFilter(this);
    m_buddy = buddy;
    if (m_buddy) {
        m_buddy->installEventFilter(this);
        const int arrowHeight = m_buddy->sizeHint().height() / 2;
        m_up->setFixedSize(arrowHeight + arrowHeight / 2, arrowHeight);
        m_down->setFixedSize(arrowHeight + arrowHeight / 2, arrowHeight);
    }
}

void CountUpDown::setRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = qMax(minimum, maximum);
}

void CountUpDown::setValue(int value)
{
    const bool changed = value != m_value;
    m_value = value;
    if (m_buddy)
        m_buddy->setText(QString::number(value));
    if (changed)
        Q_EMIT valueChanged(m_value);
}

void CountUpDown::stepBy(int delta)
{
    if (!isEnabled())
        return;
    const QString text = m_buddy ? m_buddy->text() : QString::number(m_value);
    if (const auto next = steppedCount(text, delta, m_minimum, m_maximum)) {
        m_value = *next;
        if (m_buddy)
            m_buddy->setText(QString::number(*next));
        Q_EMIT valueChanged(m_value);
    }
}

bool CountUpDown::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_buddy && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->modifiers() == Qt::NoModifier || key->modifiers() == Qt::KeypadModifier) {
            if (key->key() == Qt::Key_Up) {
                stepUp();
                return true;
            }
            if (key->key() == Qt::Key_Down) {
                stepDown();
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace PickerCtl::Filters
