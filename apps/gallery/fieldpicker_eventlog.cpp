#include "fieldpicker_eventlog.h"

#include <PickerCtl/XFieldPicker.h>

#include <QFontDatabase>
#include <QTime>

using namespace PickerCtl;

namespace {

// A long selection prints its first few names and a count.
constexpr int NamesShown = 3;
constexpr int MaximumLines = 2000;

QString describe(const FieldPtr &field)
{
    return field ? QStringLiteral("fld=\"%1\" (id %2)").arg(field->Name()).arg(field->Id())
                 : QStringLiteral("fld=nothing");
}

QString describe(const FieldsPtr &fields)
{
    if (!fields)
        return QStringLiteral("flds=nothing");
    QStringList names;
    for (qsizetype i = 0; i < fields->size() && i < NamesShown; ++i)
        names.append(QLatin1Char('"') + fields->at(i)->Name() + QLatin1Char('"'));
    if (fields->size() > NamesShown)
        names.append(QStringLiteral("..."));
    return QStringLiteral("flds=%1 field(s) [%2]").arg(fields->size()).arg(names.join(QStringLiteral(", ")));
}

QString describeCategory(const QString &name)
{
    return QStringLiteral("CategoryName=\"%1\"").arg(name);
}

} // namespace

FieldPickerEventLog::FieldPickerEventLog(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("txtEventLog"));
    setAccessibleName(tr("Event log"));
    setReadOnly(true);
    setMaximumBlockCount(MaximumLines);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

void FieldPickerEventLog::watch(XFieldPicker *picker)
{
    connect(picker, &XFieldPicker::SplitterAdjustment, this, [this] { print(QStringLiteral("SplitterAdjustment")); });
    connect(picker, &XFieldPicker::StateChange, this, [this] { print(QStringLiteral("StateChange")); });
    connect(picker, &XFieldPicker::Change, this, [this] { print(QStringLiteral("Change")); });
    connect(picker, &XFieldPicker::DblClick, this, [this](const FieldPtr &fld, const QString &category) {
        print(QStringLiteral("DblClick"), describe(fld) + QStringLiteral(", ") + describeCategory(category));
    });
    connect(picker, &XFieldPicker::Delete, this,
            [this](const FieldsPtr &flds) { print(QStringLiteral("Delete"), describe(flds)); });
    connect(picker, &XFieldPicker::Edit, this,
            [this](const FieldsPtr &flds) { print(QStringLiteral("Edit"), describe(flds)); });
    connect(picker, &XFieldPicker::NewExpression, this,
            [this](const QString &category) { print(QStringLiteral("NewExpression"), describeCategory(category)); });
    connect(picker, &XFieldPicker::ItemClick, this,
            [this](const FieldPtr &fld) { print(QStringLiteral("ItemClick"), describe(fld)); });
    connect(picker, &XFieldPicker::CategoryClick, this, [this](const FieldCategoryPtr &fc) {
        print(QStringLiteral("CategoryClick"),
              fc ? QStringLiteral("fc=\"%1\" (entity %2)").arg(fc->Caption()).arg(fc->EntityId())
                 : QStringLiteral("fc=nothing"));
    });
    connect(picker, &XFieldPicker::OpenEditor, this, [this](const FieldsPtr &flds, const QString &category) {
        print(QStringLiteral("OpenEditor"), describe(flds) + QStringLiteral(", ") + describeCategory(category));
    });
    connect(picker, &XFieldPicker::HandleContextMenu, this, [this] { print(QStringLiteral("HandleContextMenu")); });
}

void FieldPickerEventLog::print(const QString &event, const QString &arguments)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
    appendPlainText(arguments.isEmpty() ? QStringLiteral("%1  %2").arg(time, event)
                                        : QStringLiteral("%1  %2(%3)").arg(time, event, arguments));
}
