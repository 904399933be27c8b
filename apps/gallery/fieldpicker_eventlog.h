#pragma once

#include <QPlainTextEdit>

namespace PickerCtl {
class XFieldPicker;
}

/// A read-only pane that prints every event of a field browser with its arguments, newest last.
class FieldPickerEventLog : public QPlainTextEdit
{
public:
    explicit FieldPickerEventLog(QWidget *parent = nullptr);
    /// Listens to the browser's events from now on (the pane keeps what it printed before).
    void watch(PickerCtl::XFieldPicker *picker);

private:
    void print(const QString &event, const QString &arguments = QString());
};
