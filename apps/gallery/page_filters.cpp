// The filters page: the four value filter editors, each loaded with a sample value, with a line
// that reads the value back after every change and a button that asks the editor to validate.
#include "gallerypages.h"

#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/XEnumFilter.h>
#include <PickerCtl/XNumberFilter.h>
#include <PickerCtl/XStringFilter.h>
#include <PickerCtl/XTimeFilter.h>
#include <PickerCtl/XTreeOpt.h>

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

using namespace PickerCtl;

namespace {

const auto NumberTitle = QStringLiteral("XNumberFilter: a whole number from 0 to 1000");
const auto StringTitle = QStringLiteral("XStringFilter");
const auto TimeTitle = QStringLiteral("XTimeFilter");
const auto EnumTitle = QStringLiteral("XEnumFilter: %1");
const auto EnumField = QStringLiteral("Priority");
const auto EnumSample = QStringLiteral("3,4");
const auto StringSample = QStringLiteral("BSC*");
const auto ReadBackCaption = QStringLiteral("GetFilter:");
const auto ValidCaption = QStringLiteral("IsValid:");
const auto CheckCaption = QStringLiteral("Check");
const auto NotCheckedYet = QStringLiteral("(not checked yet)");
const auto ValidText = QStringLiteral("true");
const auto InvalidText = QStringLiteral("false: %1");
const auto EmptyValue = QStringLiteral("(empty)");
const auto NoValue = QStringLiteral("nothing");
const auto NumberReadBack = QStringLiteral("MinValue %1, MaxValue %2");
const auto StringReadBack = QStringLiteral("Expression \"%1\", pattern %2, whole %3, case %4");
const auto AllItemsReadBack = QStringLiteral("all items");
const auto RelativeReadBack = QStringLiteral("relative: unit %1, count %2");
const auto AbsoluteReadBack = QStringLiteral("absolute: %1 to %2");
const auto EnumReadBack = QStringLiteral("Selection \"%1\"");
const auto EveryValue = QStringLiteral("Selection \"\" (every value)");
const auto NoValueChecked = QStringLiteral("(no value checked)");
const auto OnText = QStringLiteral("on");
const auto OffText = QStringLiteral("off");
constexpr int NumberType = 0;
constexpr int SampleMinimum = 10;
constexpr int RangeMaximum = 1000;
constexpr int SampleDays = 7;

QString quoted(const QVariant &value)
{
    return value.isValid() ? QLatin1Char('"') + value.toString() + QLatin1Char('"') : EmptyValue;
}

QString onOff(bool on)
{
    return on ? OnText : OffText;
}

/// One editor in its group box, with the read-back line and the validation line under it.
struct Demo
{
    QGroupBox *box;
    QLineEdit *readBack;
    QLabel *validity;
    QPushButton *check;
};

Demo framed(const char *name, const QString &title, QWidget *editor)
{
    const QString base = QLatin1String(name);
    Demo demo{new QGroupBox(title), new QLineEdit, new QLabel(NotCheckedYet), new QPushButton(CheckCaption)};
    demo.box->setObjectName(QStringLiteral("fra") + base);
    demo.readBack->setObjectName(QStringLiteral("txt") + base + QStringLiteral("ReadBack"));
    demo.validity->setObjectName(QStringLiteral("lbl") + base + QStringLiteral("Valid"));
    demo.check->setObjectName(QStringLiteral("cmdCheck") + base);
    demo.readBack->setReadOnly(true);
    demo.check->setAutoDefault(false);

    auto *validRow = new QHBoxLayout;
    validRow->addWidget(demo.validity, 1);
    validRow->addWidget(demo.check);
    auto *form = new QFormLayout;
    form->addRow(ReadBackCaption, demo.readBack);
    form->addRow(ValidCaption, validRow);
    auto *column = new QVBoxLayout(demo.box);
    column->addWidget(editor, 1);
    column->addLayout(form);
    return demo;
}

template<typename Editor>
void wireEditor(const Demo &demo, Editor *editor, const std::function<QString()> &readBack,
                const std::function<bool(QString &)> &isValid)
{
    demo.readBack->setText(readBack());
    QObject::connect(editor, &Editor::Changed, demo.readBack, [demo, readBack] { demo.readBack->setText(readBack()); });
    QObject::connect(demo.check, &QPushButton::clicked, demo.validity, [demo, readBack, isValid] {
        QString errorText;
        const bool valid = isValid(errorText);
        demo.validity->setText(valid ? ValidText : InvalidText.arg(errorText));
        demo.readBack->setText(readBack());
    });
}

QWidget *numberDemo()
{
    auto *editor = new XNumberFilter;
    editor->setObjectName(QStringLiteral("numberFilter"));
    auto sample = std::make_shared<NumberFilterValue>();
    sample->setMinValue(SampleMinimum);
    editor->SetFilter(sample, NumberType, 0, RangeMaximum);
    const Demo demo = framed("Number", NumberTitle, editor);
    wireEditor(demo, editor,
               [editor] {
                   const auto value = editor->GetFilter();
                   return NumberReadBack.arg(quoted(value->MinValue()), quoted(value->MaxValue()));
               },
               [editor](QString &errorText) { return editor->IsValid(errorText); });
    return demo.box;
}

QWidget *stringDemo()
{
    auto *editor = new XStringFilter;
    editor->setObjectName(QStringLiteral("stringFilter"));
    editor->InitProperties();
    auto sample = std::make_shared<StringFilterValue>();
    sample->setExpression(StringSample);
    sample->setUsePatternMatching(true);
    editor->SetFilter(sample);
    const Demo demo = framed("String", StringTitle, editor);
    wireEditor(demo, editor,
               [editor] {
                   const auto value = editor->GetFilter();
                   return StringReadBack.arg(value->Expression(), onOff(value->UsePatternMatching()),
                                             onOff(value->MatchWholeName()), onOff(value->MatchCase()));
               },
               [editor](QString &errorText) { return editor->IsValid(errorText); });
    return demo.box;
}

QWidget *timeDemo()
{
    auto *editor = new XTimeFilter;
    editor->setObjectName(QStringLiteral("timeFilter"));
    auto sample = std::make_shared<TimeFilterValue>();
    sample->setIsRelative(true);
    sample->setRelativeUnit(TimeFilterValue::Days);
    sample->setRelativeCount(SampleDays);
    editor->SetDateFilter(sample);
    const Demo demo = framed("Time", TimeTitle, editor);
    wireEditor(demo, editor,
               [editor] {
                   const auto value = editor->GetTimeFilter();
                   if (value->IsRelative())
                       return RelativeReadBack.arg(value->RelativeUnit()).arg(value->RelativeCount());
                   if (!value->StartTime().isValid())
                       return AllItemsReadBack;
                   return AbsoluteReadBack.arg(value->StartTime().toString(Qt::ISODate),
                                               value->EndTime().toString(Qt::ISODate));
               },
               [editor](QString &errorText) { return editor->IsValid(errorText); });
    return demo.box;
}

QWidget *enumDemo(const GalleryContext &context)
{
    auto *editor = new XEnumFilter;
    editor->setObjectName(QStringLiteral("enumFilter"));
    auto listProperties = context.catalog->NewListProperties();
    listProperties->setTitle(EnumField);
    auto sample = std::make_shared<EnumFilterValue>();
    sample->setSelection(EnumSample);
    editor->SetFilter(sample, context.appName, listProperties, context.catalog->GetPropertyFilter());
    const Demo demo = framed("Enum", EnumTitle.arg(EnumField), editor);
    // Reading back an empty choice would put up the editor's message on every untick, so the
    // page peeks at the root first; the Check button shows the message on purpose.
    wireEditor(demo, editor,
               [editor] {
                   if (editor->tree()->CheckValue(EnumField) == XTreeOpt::Unchecked)
                       return NoValueChecked;
                   const auto value = editor->GetFilter();
                   if (!value)
                       return NoValue;
                   return value->Selection().isEmpty() ? EveryValue : EnumReadBack.arg(value->Selection());
               },
               [editor](QString &) { return editor->IsValid(); });
    return demo.box;
}

} // namespace

QWidget *makeFiltersPage(const GalleryContext &context)
{
    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);
    grid->addWidget(numberDemo(), 0, 0);
    grid->addWidget(stringDemo(), 0, 1);
    grid->addWidget(timeDemo(), 1, 0);
    grid->addWidget(enumDemo(context), 1, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return page;
}
