#include <PickerCtl/XTimeFilter.h>

#include "filters/countupdown.h"
#include "filters/editstate.h"
#include "filters/keyboardselectall.h"
#include "filters/numberbounds.h"
#include "filters/textboxes.h"
#include "filters/timeperiod.h"
#include "filters/widgetnames.h"

#include <PickerCtl/AppServices.h>

#include <QButtonGroup>
#include <QDateEdit>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimeEdit>
#include <QVBoxLayout>
#include <array>
#include <optional>

namespace PickerCtl {

namespace {

using Filters::named;

const QString InitialCount = QStringLiteral("1");
constexpr auto ReversedPeriodMessage =
    QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "End date time must be greater than start date time.");
constexpr auto StartNotPickableMessage = QT_TRANSLATE_NOOP(
    "PickerCtl::XTimeFilter", "The start date %1 is outside the dates that can be entered (%2 to %3).");
constexpr auto EndNotPickableMessage = QT_TRANSLATE_NOOP(
    "PickerCtl::XTimeFilter", "The end date %1 is outside the dates that can be entered (%2 to %3).");
constexpr auto StartInGapMessage = QT_TRANSLATE_NOOP(
    "PickerCtl::XTimeFilter", "The start time %1 does not exist: the clocks skip it when daylight saving time begins.");
constexpr auto EndInGapMessage = QT_TRANSLATE_NOOP(
    "PickerCtl::XTimeFilter", "The end time %1 does not exist: the clocks skip it when daylight saving time begins.");
const QString MessageDateFormat = QStringLiteral("yyyy-MM-dd");

// The up-downs run from 1 to 999; the count boxes accept any whole number from 1 up.
constexpr int CountMinimum = 1;
constexpr int CountMaximum = 999;

// The number check receives the minimum count as the 16-bit value it is.
QVariant countMinimum()
{
    return QVariant::fromValue(qint16(CountMinimum));
}

struct RelativeRowDesign
{
    TimeFilterValue::Unit unit;
    const char *option;
    const char *caption;
    const char *box;
    const char *upDown;
    const char *label;
    const char *unitText;
};

// The four captions differ only in their access key, so each row can be reached from the keyboard.
constexpr std::array<RelativeRowDesign, 4> RelativeRowDesigns{{
    {TimeFilterValue::Minutes, "optMinutes", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "du&ring the previous"), "txtMinutes", "updMinutes",
     "Label1", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "minute(s)")},
    {TimeFilterValue::Hours, "optHours", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "d&uring the previous"), "txtHours", "updHours",
     "lblHours", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "hour(s)")},
    {TimeFilterValue::Days, "optDays", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "&during the previous"), "txtDays", "updDays",
     "lblDays", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "day(s)")},
    {TimeFilterValue::Months, "optMonths", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "during the previou&s"), "txtMonths", "updMonths",
     "lblMonths", QT_TRANSLATE_NOOP("PickerCtl::XTimeFilter", "month(s)")},
}};

// A relative period is read from the first selected unit in this order.
constexpr std::array<TimeFilterValue::Unit, 4> UnitPrecedence{
    TimeFilterValue::Months, TimeFilterValue::Days, TimeFilterValue::Hours, TimeFilterValue::Minutes};

// One end of the absolute period: the zone it was given in, and the moment itself while the
// pickers cannot show its day (kept exactly until the user picks another).
struct PeriodEnd
{
    Filters::PeriodZone zone;
    std::optional<QDateTime> held;
};

struct RelativeRow
{
    TimeFilterValue::Unit unit;
    QRadioButton *opt;
    QLineEdit *txt;
    Filters::CountUpDown *upd;
    QLabel *lbl;
};

} // namespace

struct XTimeFilter::Private
{
    explicit Private(XTimeFilter *q)
        : state([q] { Q_EMIT q->Changed(); })
        , selectAll(new Filters::KeyboardSelectAll(q))
    {
    }

    Filters::EditState state;
    Filters::KeyboardSelectAll *selectAll;

    QFrame *fraTop = nullptr;
    QRadioButton *optAllItems = nullptr;
    QRadioButton *optFilterByDate = nullptr;
    QFrame *fraBottom = nullptr;
    std::array<RelativeRow, 4> rows{};
    QRadioButton *optDates = nullptr;
    QDateEdit *dtMinDate = nullptr;
    QTimeEdit *dtMinTime = nullptr;
    QLabel *lblAnd = nullptr;
    QDateEdit *dtMaxDate = nullptr;
    QTimeEdit *dtMaxTime = nullptr;
    QButtonGroup *topGroup = nullptr;
    QButtonGroup *bottomGroup = nullptr;
    PeriodEnd start;
    PeriodEnd end;

    void build(XTimeFilter *q);
    void buildTop(XTimeFilter *q);
    void buildBottom(XTimeFilter *q);
    void connectEvents(XTimeFilter *q);

    const RelativeRow &row(TimeFilterValue::Unit unit) const;
    const RelativeRow *selectedRelativeRow() const;
    std::array<QWidget *, 4> pickers() const { return {dtMinDate, dtMinTime, dtMaxDate, dtMaxTime}; }
    void select(QRadioButton *option) { option->setChecked(true); }
    void deselectBottom();
    void updateEnabled(bool enabling);
    void setPeriodStart(const QDateTime &time) { showMoment(start, dtMinDate, dtMinTime, time); }
    void setPeriodEnd(const QDateTime &time) { showMoment(end, dtMaxDate, dtMaxTime, time); }
    static void showMoment(PeriodEnd &which, QDateEdit *date, QTimeEdit *time, const QDateTime &value);
    static QDateTime moment(const PeriodEnd &which, const QDateEdit *date, const QTimeEdit *time);
    QDateTime periodStart() const { return moment(start, dtMinDate, dtMinTime); }
    QDateTime periodEnd() const { return moment(end, dtMaxDate, dtMaxTime); }
    bool checkPeriodEnd(const PeriodEnd &which, QDateEdit *date, QTimeEdit *time, bool isStart,
                        QString &errorText) const;

    void reset();
    void load(const TimeFilterValue *value);

    void onAllItems();
    void onFilterByDate();
    void onBottomOption();
};

const RelativeRow &XTimeFilter::Private::row(TimeFilterValue::Unit unit) const
{
    for (const RelativeRow &r : rows) {
        if (r.unit == unit)
            return r;
    }
    Q_UNREACHABLE();
}

const RelativeRow *XTimeFilter::Private::selectedRelativeRow() const
{
    for (TimeFilterValue::Unit unit : UnitPrecedence) {
        const RelativeRow &r = row(unit);
        if (r.opt->isChecked())
            return &r;
    }
    return nullptr;
}

void XTimeFilter::Private::build(XTimeFilter *q)
{
    buildTop(q);
    buildBottom(q);

    auto *column = new QVBoxLayout(q);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(fraTop);
    column->addWidget(fraBottom);
    column->addStretch(1);

    QWidget *previous = optFilterByDate;
    for (const RelativeRow &r : rows) {
        QWidget::setTabOrder(previous, r.opt);
        QWidget::setTabOrder(r.opt, r.txt);
        previous = r.txt;
    }
    QWidget *dateChain[] = {previous, optDates, dtMinDate, dtMinTime, dtMaxDate, dtMaxTime};
    for (size_t i = 1; i < std::size(dateChain); ++i)
        QWidget::setTabOrder(dateChain[i - 1], dateChain[i]);

    connectEvents(q);
}

void XTimeFilter::Private::buildTop(XTimeFilter *q)
{
    fraTop = named(new QFrame(q), "fraTop");
    optAllItems = named(new QRadioButton(XTimeFilter::tr("&All items"), fraTop), "optAllItems");
    optFilterByDate = named(new QRadioButton(XTimeFilter::tr("&Find all items with values:"), fraTop), "optFilterByDate");
    optAllItems->setAccessibleDescription(XTimeFilter::tr("No time filter"));
    optFilterByDate->setAccessibleDescription(XTimeFilter::tr("Filter by a recent period or by start and end"));
    topGroup = new QButtonGroup(fraTop);
    topGroup->addButton(optAllItems);
    topGroup->addButton(optFilterByDate);

    auto *column = new QVBoxLayout(fraTop);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(optAllItems);
    column->addWidget(optFilterByDate);
}

void XTimeFilter::Private::buildBottom(XTimeFilter *q)
{
    fraBottom = named(new QFrame(q), "fraBottom");
    bottomGroup = new QButtonGroup(fraBottom);
    auto *grid = new QGridLayout(fraBottom);
    // The details sit under "Find all items with values:", indented like its text.
    const int indent = optFilterByDate->sizeHint().width() - optFilterByDate->fontMetrics().horizontalAdvance(
                                                                  optFilterByDate->text().remove(QLatin1Char('&')));
    grid->setContentsMargins(qMax(indent, 0), 0, 0, 0);

    int line = 0;
    for (size_t i = 0; i < RelativeRowDesigns.size(); ++i, ++line) {
        const RelativeRowDesign &design = RelativeRowDesigns[i];
        RelativeRow &r = rows[i];
        r.unit = design.unit;
        r.opt = named(new QRadioButton(XTimeFilter::tr(design.caption), fraBottom), design.option);
        r.txt = named(new QLineEdit(InitialCount, fraBottom), design.box);
        Filters::removeLengthLimit(r.txt);
        r.upd = named(new Filters::CountUpDown(fraBottom), design.upDown);
        r.lbl = named(new QLabel(XTimeFilter::tr(design.unitText), fraBottom), design.label);
        // The four options share one caption; their names tell them apart.
        r.opt->setAccessibleName(XTimeFilter::tr("During the previous %1").arg(r.lbl->text()));
        r.opt->setAccessibleDescription(XTimeFilter::tr("Items of a recent period counted in %1").arg(r.lbl->text()));
        r.txt->setAccessibleDescription(XTimeFilter::tr("How many %1 back the period starts").arg(r.lbl->text()));
        r.txt->setMaximumWidth(r.txt->fontMetrics().horizontalAdvance(QStringLiteral("000000")) +
                               r.txt->textMargins().left() + r.txt->textMargins().right() + 12);
        r.upd->setBuddy(r.txt);
        r.upd->setRange(CountMinimum, CountMaximum);
        r.upd->setValue(CountMinimum);
        r.lbl->setBuddy(r.txt);
        bottomGroup->addButton(r.opt);
        selectAll->watch(r.txt);

        auto *count = new QHBoxLayout;
        count->setSpacing(0);
        count->addWidget(r.txt);
        count->addWidget(r.upd);
        grid->addWidget(r.opt, line, 0);
        grid->addLayout(count, line, 1);
        grid->addWidget(r.lbl, line, 2);
    }

    optDates = named(new QRadioButton(XTimeFilter::tr("&between"), fraBottom), "optDates");
    optDates->setAccessibleDescription(XTimeFilter::tr("Items between a start and an end date and time"));
    bottomGroup->addButton(optDates);
    const QLocale locale;
    const auto datePicker = [&](const char *name) {
        auto *picker = named(new QDateEdit(fraBottom), name);
        picker->setCalendarPopup(true);
        picker->setDisplayFormat(Filters::pickerDateFormat(locale));
        picker->setDateRange(Filters::FirstPickerDate, Filters::LastPickerDate);
        // The popup arrow is wider than the spin arrows the size hint allows for.
        picker->setMinimumWidth(picker->sizeHint().width() + picker->fontMetrics().horizontalAdvance(QStringLiteral("00")));
        return picker;
    };
    const auto timePicker = [&](const char *name) {
        auto *picker = named(new QTimeEdit(fraBottom), name);
        picker->setDisplayFormat(Filters::pickerTimeFormat(locale));
        return picker;
    };
    dtMinDate = datePicker("dtMinDate");
    dtMinTime = timePicker("dtMinTime");
    lblAnd = named(new QLabel(XTimeFilter::tr("and"), fraBottom), "lblAnd");
    dtMaxDate = datePicker("dtMaxDate");
    dtMaxTime = timePicker("dtMaxTime");
    lblAnd->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    dtMinDate->setAccessibleName(XTimeFilter::tr("Start date"));
    dtMinDate->setAccessibleDescription(XTimeFilter::tr("The first day of the period"));
    dtMinTime->setAccessibleName(XTimeFilter::tr("Start time"));
    dtMinTime->setAccessibleDescription(XTimeFilter::tr("The time of day the period starts"));
    dtMaxDate->setAccessibleName(XTimeFilter::tr("End date"));
    dtMaxDate->setAccessibleDescription(XTimeFilter::tr("The last day of the period"));
    dtMaxTime->setAccessibleName(XTimeFilter::tr("End time"));
    dtMaxTime->setAccessibleDescription(XTimeFilter::tr("The time of day the period ends"));
    lblAnd->setBuddy(dtMaxDate);

    const auto pickerPair = [](QWidget *date, QWidget *time) {
        auto *pair = new QHBoxLayout;
        pair->addWidget(date);
        pair->addWidget(time);
        pair->addStretch(1);
        return pair;
    };
    grid->addWidget(optDates, line, 0);
    grid->addLayout(pickerPair(dtMinDate, dtMinTime), line, 1, 1, 3);
    ++line;
    grid->addWidget(lblAnd, line, 0);
    grid->addLayout(pickerPair(dtMaxDate, dtMaxTime), line, 1, 1, 3);
    grid->setColumnStretch(3, 1);
}

void XTimeFilter::Private::connectEvents(XTimeFilter *q)
{
    const auto modify = [this] { state.setModified(true); };
    // A selection made by code counts like a click, as the load and reset rely on the handlers.
    const auto onSelected = [q](QRadioButton *option, auto handler) {
        QObject::connect(option, &QRadioButton::toggled, q, [handler](bool checked) {
            if (checked)
                handler();
        });
    };
    onSelected(optAllItems, [this] { onAllItems(); });
    onSelected(optFilterByDate, [this] { onFilterByDate(); });
    onSelected(optDates, [this] { onBottomOption(); });
    for (const RelativeRow &r : rows) {
        onSelected(r.opt, [this] { onBottomOption(); });
        QObject::connect(r.txt, &QLineEdit::textChanged, q, modify);
        QObject::connect(r.upd, &Filters::CountUpDown::valueChanged, q, modify);
    }
    QObject::connect(dtMinDate, &QDateEdit::dateChanged, q, modify);
    QObject::connect(dtMaxDate, &QDateEdit::dateChanged, q, modify);
    QObject::connect(dtMinTime, &QTimeEdit::timeChanged, q, modify);
    QObject::connect(dtMaxTime, &QTimeEdit::timeChanged, q, modify);
    // A moment the pickers could not show gives way once its pickers show another.
    const auto dropHeld = [](PeriodEnd &which) { return [&which] { which.held.reset(); }; };
    QObject::connect(dtMinDate, &QDateEdit::dateChanged, q, dropHeld(start));
    QObject::connect(dtMinTime, &QTimeEdit::timeChanged, q, dropHeld(start));
    QObject::connect(dtMaxDate, &QDateEdit::dateChanged, q, dropHeld(end));
    QObject::connect(dtMaxTime, &QTimeEdit::timeChanged, q, dropHeld(end));
}

void XTimeFilter::Private::onAllItems()
{
    state.setModified(true);
    updateEnabled(false);
    deselectBottom();
}

void XTimeFilter::Private::onFilterByDate()
{
    state.setModified(true);
    updateEnabled(true);
    if (!bottomGroup->checkedButton())
        select(optDates);
}

void XTimeFilter::Private::onBottomOption()
{
    state.setModified(true);
    select(optFilterByDate);
    updateEnabled(true);
}

void XTimeFilter::Private::deselectBottom()
{
    // An exclusive group refuses to leave every button unchecked.
    bottomGroup->setExclusive(false);
    for (QAbstractButton *option : bottomGroup->buttons())
        option->setChecked(false);
    bottomGroup->setExclusive(true);
}

void XTimeFilter::Private::updateEnabled(bool enabling)
{
    for (QWidget *picker : pickers())
        picker->setEnabled(false);
    for (const RelativeRow &r : rows) {
        r.txt->setEnabled(false);
        r.upd->setEnabled(false);
    }
    if (!enabling || !optFilterByDate->isChecked())
        return;
    if (optDates->isChecked()) {
        for (QWidget *picker : pickers())
            picker->setEnabled(true);
    } else if (const RelativeRow *r = selectedRelativeRow()) {
        r->txt->setEnabled(true);
        r->upd->setEnabled(true);
    }
}

void XTimeFilter::Private::showMoment(PeriodEnd &which, QDateEdit *date, QTimeEdit *time,
                                      const QDateTime &value)
{
    // The pickers show the day and time of day in the moment's own zone, which the join restores.
    date->setDate(value.date());
    time->setTime(value.time());
    which.zone = Filters::zoneOf(value);
    which.held.reset();
    if (!Filters::isPickableDate(value.date()))
        which.held = value;
}

QDateTime XTimeFilter::Private::moment(const PeriodEnd &which, const QDateEdit *date, const QTimeEdit *time)
{
    return which.held ? *which.held : Filters::joinDateTime(date->date(), time->time(), which.zone);
}

bool XTimeFilter::Private::checkPeriodEnd(const PeriodEnd &which, QDateEdit *date, QTimeEdit *time,
                                          bool isStart, QString &errorText) const
{
    if (which.held) {
        const QLocale c = QLocale::c();
        errorText = XTimeFilter::tr(isStart ? StartNotPickableMessage : EndNotPickableMessage)
                        .arg(Filters::describeMoment(which.held->date(), which.held->time()),
                             c.toString(Filters::FirstPickerDate, MessageDateFormat),
                             c.toString(Filters::LastPickerDate, MessageDateFormat));
        date->setFocus(Qt::OtherFocusReason);
        return false;
    }
    if (!Filters::joinDateTime(date->date(), time->time(), which.zone).isValid()) {
        errorText = XTimeFilter::tr(isStart ? StartInGapMessage : EndInGapMessage)
                        .arg(Filters::describeMoment(date->date(), time->time()));
        time->setFocus(Qt::OtherFocusReason);
        return false;
    }
    return true;
}

void XTimeFilter::Private::reset()
{
    const QDateTime now = QDateTime::currentDateTime();
    select(optDates);
    select(optAllItems);
    updateEnabled(false);
    setPeriodStart(Filters::defaultPeriodStart(now));
    setPeriodEnd(now);
    row(TimeFilterValue::Months).upd->setValue(CountMinimum);
    row(TimeFilterValue::Days).upd->setValue(CountMinimum);
}

void XTimeFilter::Private::load(const TimeFilterValue *value)
{
    for (const RelativeRow &r : rows)
        r.txt->setText(InitialCount);
    if (!value) {
        select(optAllItems);
        updateEnabled(false);
        return;
    }
    if (value->IsRelative()) {
        select(optFilterByDate);
        for (const RelativeRow &r : rows) {
            if (r.unit == value->RelativeUnit()) {
                select(r.opt);
                r.txt->setText(QString::number(value->RelativeCount()));
            }
        }
        updateEnabled(true);
        return;
    }
    if (Filters::isUnsetTime(value->StartTime()) || Filters::isUnsetTime(value->EndTime())) {
        select(optAllItems);
        updateEnabled(false);
        return;
    }
    setPeriodStart(value->StartTime());
    setPeriodEnd(value->EndTime());
    select(optDates);
    select(optFilterByDate);
    updateEnabled(true);
}

XTimeFilter::XTimeFilter(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    Filters::EditState::LoadingScope loading(d->state);
    d->build(this);
    d->reset();
    d->state.setModified(false);
}

XTimeFilter::~XTimeFilter() = default;

bool XTimeFilter::IsModified() const
{
    return d->state.isModified();
}

bool XTimeFilter::IsValid()
{
    QString ignored;
    return IsValid(ignored);
}

bool XTimeFilter::IsValid(QString &sErrorText)
{
    if (!d->optFilterByDate->isChecked())
        return true;
    if (const RelativeRow *r = d->selectedRelativeRow()) {
        qint32 count = 0;
        if (Filters::isValidLong(*AppServices::instance(), r->txt->text(), count, countMinimum(), QVariant(),
                                 sErrorText))
            return true;
        r->txt->setFocus(Qt::OtherFocusReason);
        return false;
    }
    if (!d->checkPeriodEnd(d->start, d->dtMinDate, d->dtMinTime, true, sErrorText)
        || !d->checkPeriodEnd(d->end, d->dtMaxDate, d->dtMaxTime, false, sErrorText))
        return false;
    if (d->periodStart() > d->periodEnd()) {
        sErrorText = tr(ReversedPeriodMessage);
        d->dtMinDate->setFocus(Qt::OtherFocusReason);
        return false;
    }
    return true;
}

TimeFilterValuePtr XTimeFilter::GetTimeFilter() const
{
    auto value = std::make_shared<TimeFilterValue>();
    if (!d->optFilterByDate->isChecked())
        return value;
    if (d->optDates->isChecked()) {
        value->setIsRelative(false);
        value->setStartTime(d->periodStart());
        value->setEndTime(d->periodEnd());
        return value;
    }
    value->setIsRelative(true);
    qint32 count = 0;
    if (const RelativeRow *r = d->selectedRelativeRow()) {
        value->setRelativeUnit(r->unit);
        QString unusedMessage;
        if (!Filters::isValidLong(*AppServices::instance(), r->txt->text(), count, countMinimum(), QVariant(),
                                  unusedMessage))
            count = 0;
    }
    value->setRelativeCount(count);
    return value;
}

void XTimeFilter::SetDateFilter(const TimeFilterValuePtr &fltrDate)
{
    Filters::EditState::LoadingScope loading(d->state);
    const TimeFilterValue empty;
    d->load(fltrDate ? fltrDate.get() : &empty);
    d->state.setModified(false);
}

void XTimeFilter::ClearAll()
{
    const TimeFilterValue empty;
    d->load(&empty);
}

} // namespace PickerCtl
