#pragma once

#include <QString>
#include <QWidget>

namespace FilterTest {

/// Shows the editor in its own active window, so focus changes reach its boxes as for a user.
bool showActive(QWidget *editor);

/// The child with that object name, or nullptr when the editor lacks it.
template<typename T>
T *child(const QWidget *editor, const char *name)
{
    return editor->findChild<T *>(QLatin1String(name));
}

/// True when the whole (non-empty) text of a line edit is selected.
bool wholeTextSelected(const QWidget *lineEdit);

} // namespace FilterTest
