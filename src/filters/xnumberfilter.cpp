#include <PickerCtl/XNumberFilter.h>

#include "filters/editstate.h"
#include "filters/keyboardselectall.h"
#include "filters/numberbounds.h"
#include "filters/textboxes.h"
#include "filters/widgetnames.h"

#include <PickerCtl/AppServices.h>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace PickerCtl {

namespace {

using Filters::named;

// Index 0 of each list is the empty entry that switches its bound off.
constexpr int BoundOffIndex = 0;
constexpr int BoundOnIndex = 1;

QComboBox *boundList(QWidget *parent, const char *name, const QString &onEntry)
{
    auto *list = named(new QComboBox(parent), name);
    list->addItems({QString(), onEntry});
    return list;
}

} // namespace

struct XNumberFilter::Private
{
    explicit Private(XNumberFilter *q)
        : state([q] { Q_EMIT q->Changed(); })
        , selectAll(new Filters::KeyboardSelectAll(q))
    {
    }

    Filters::EditState state;
    Filters::KeyboardSelectAll *selectAll;
    qint32 numberType = Filters::WholeNumber;
    QVariant rangeMin;
    QVariant rangeMax;

    QLabel *Label2 = nullptr;
    QComboBox *cboMin = nullptr;
    QLineEdit *txtMinValue = nullptr;
    QLabel *Label1 = nullptr;
    QComboBox *cboMax = nullptr;
    QLineEdit *txtMaxValue = nullptr;

    void build(XNumberFilter *q);
    void reset();
    void load(const NumberFilterValue *value);

    static Filters::BoundEntry entry(const QComboBox *list, const QLineEdit *box)
    {
        return {list->currentIndex() != BoundOffIndex, box->text()};
    }
};

void XNumberFilter::Private::build(XNumberFilter *q)
{
    Label2 = named(new QLabel(XNumberFilter::tr("Value is:"), q), "Label2");
    cboMin = boundList(q, "cboMin", XNumberFilter::tr("at least"));
    txtMinValue = named(new QLineEdit(q), "txtMinValue");
    Label1 = named(new QLabel(XNumberFilter::tr("and"), q), "Label1");
    cboMax = boundList(q, "cboMax", XNumberFilter::tr("at most"));
    txtMaxValue = named(new QLineEdit(q), "txtMaxValue");
    cboMin->setAccessibleDescription(XNumberFilter::tr("Whether the filter has a lower bound"));
    txtMinValue->setAccessibleName(XNumberFilter::tr("Lower bound"));
    txtMinValue->setAccessibleDescription(XNumberFilter::tr("The least value that passes the filter"));
    cboMax->setAccessibleDescription(XNumberFilter::tr("Whether the filter has an upper bound"));
    txtMaxValue->setAccessibleName(XNumberFilter::tr("Upper bound"));
    txtMaxValue->setAccessibleDescription(XNumberFilter::tr("The greatest value that passes the filter"));
    Label2->setBuddy(cboMin);
    Label1->setBuddy(cboMax);
    Label1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto *grid = new QGridLayout(q);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(Label2, 0, 0);
    grid->addWidget(cboMin, 0, 1);
    grid->addWidget(txtMinValue, 0, 2);
    grid->addWidget(Label1, 1, 0);
    grid->addWidget(cboMax, 1, 1);
    grid->addWidget(txtMaxValue, 1, 2);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(2, 1);

    QWidget::setTabOrder(cboMin, txtMinValue);
    QWidget::setTabOrder(txtMinValue, cboMax);
    QWidget::setTabOrder(cboMax, txtMaxValue);

    selectAll->watch(txtMinValue);
    selectAll->watch(txtMaxValue);
    Filters::removeLengthLimit(txtMinValue);
    Filters::removeLengthLimit(txtMaxValue);

    const auto modify = [this] { state.setModified(true); };
    QObject::connect(cboMin, &QComboBox::currentIndexChanged, q, modify);
    QObject::connect(cboMax, &QComboBox::currentIndexChanged, q, modify);
    QObject::connect(txtMinValue, &QLineEdit::textChanged, q, modify);
    QObject::connect(txtMaxValue, &QLineEdit::textChanged, q, modify);
}

void XNumberFilter::Private::reset()
{
    cboMin->setCurrentIndex(BoundOffIndex);
    cboMax->setCurrentIndex(BoundOffIndex);
    for (QLineEdit *box : {txtMinValue, txtMaxValue}) {
        box->clear();
        box->setToolTip(QString());
    }
}

void XNumberFilter::Private::load(const NumberFilterValue *value)
{
    reset();
    if (!value)
        return;
    if (value->HasMinValue()) {
        cboMin->setCurrentIndex(BoundOnIndex);
        txtMinValue->setText(value->MinValue().toString());
    }
    if (value->HasMaxValue()) {
        cboMax->setCurrentIndex(BoundOnIndex);
        txtMaxValue->setText(value->MaxValue().toString());
    }
    const QString tip = Filters::rangeToolTip(rangeMin, rangeMax);
    txtMinValue->setToolTip(tip);
    txtMaxValue->setToolTip(tip);
}

XNumberFilter::XNumberFilter(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    Filters::EditState::LoadingScope loading(d->state);
    d->build(this);
    d->reset();
}

XNumberFilter::~XNumberFilter() = default;

bool XNumberFilter::IsModified() const
{
    return d->state.isModified();
}

bool XNumberFilter::IsValid(QString &sErrorText)
{
    const auto verdict = Filters::checkBounds(*AppServices::instance(), d->numberType,
                                              Private::entry(d->cboMin, d->txtMinValue),
                                              Private::entry(d->cboMax, d->txtMaxValue), d->rangeMin,
                                              d->rangeMax, sErrorText);
    switch (verdict) {
    case Filters::BoundsVerdict::Valid:
        return true;
    case Filters::BoundsVerdict::BadMaximum:
        d->txtMaxValue->setFocus(Qt::OtherFocusReason);
        return false;
    case Filters::BoundsVerdict::BadMinimum:
    case Filters::BoundsVerdict::Reversed:
        d->txtMinValue->setFocus(Qt::OtherFocusReason);
        return false;
    }
    return false;
}

NumberFilterValuePtr XNumberFilter::GetFilter() const
{
    auto value = std::make_shared<NumberFilterValue>();
    const auto bound = [](const QComboBox *list, const QLineEdit *box) {
        return list->currentIndex() == BoundOffIndex ? QVariant() : QVariant(box->text());
    };
    value->setMinValue(bound(d->cboMin, d->txtMinValue));
    value->setMaxValue(bound(d->cboMax, d->txtMaxValue));
    return value;
}

void XNumberFilter::SetFilter(const NumberFilterValuePtr &fnValue, qint32 eTypeA, const QVariant &vRangeMinA,
                              const QVariant &vRangeMaxA)
{
    Filters::EditState::LoadingScope loading(d->state);
    const NumberFilterValue empty;
    d->numberType = eTypeA;
    d->rangeMin = vRangeMinA;
    d->rangeMax = vRangeMaxA;
    d->load(fnValue ? fnValue.get() : &empty);
    d->state.setModified(false);
}

void XNumberFilter::ClearAll()
{
    const NumberFilterValue empty;
    d->load(&empty);
    d->state.setModified(true);
}

} // namespace PickerCtl
