#include <PickerCtl/XStringFilter.h>

#include "filters/editstate.h"
#include "filters/expressionlayout.h"
#include "filters/keyboardselectall.h"
#include "filters/textboxes.h"
#include "filters/widgetnames.h"

#include <PickerCtl/HostSite.h>
#include <PickerCtl/PropertyBag.h>

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <array>

namespace PickerCtl {

namespace {

using Filters::named;

const QString LabelKey = QStringLiteral("Label");
const QString ExtraControlsKey = QStringLiteral("ExtraControls");
// The caption a new control gets has no colon; the one it is built with does. Both are intended.
// The default is compared in the current language, so a label left at it follows the language.
constexpr auto DefaultLabel = QT_TRANSLATE_NOOP("PickerCtl::XStringFilter", "&Matches Expression");
constexpr bool DefaultExtraControls = true;


bool isChecked(const QCheckBox *box)
{
    // A grey box does not switch its option on.
    return box->checkState() == Qt::Checked;
}

} // namespace

struct XStringFilter::Private
{
    explicit Private(XStringFilter *q)
        : state([q] { Q_EMIT q->Changed(); })
        , selectAll(new Filters::KeyboardSelectAll(q))
        , site(new HostSite(q))
    {
    }

    Filters::EditState state;
    Filters::KeyboardSelectAll *selectAll;
    HostSite *site;
    bool extraControls = DefaultExtraControls;

    QLabel *lblString = nullptr;
    QLineEdit *txtExpression = nullptr;
    QCheckBox *chkMatchCase = nullptr;
    QCheckBox *chkMatchWholeName = nullptr;
    QCheckBox *chkUsePatternMatching = nullptr;

    std::array<QCheckBox *, 3> options() const { return {chkMatchCase, chkMatchWholeName, chkUsePatternMatching}; }

    void build(XStringFilter *q);
    void reset();
    void load(const StringFilterValue *value);
    void applyLabel(const QString &label);
    void applyExtraControls(bool show);
    void layout(XStringFilter *q);
    int rowGapPixels() const { return site->twipsToPixelsY(Filters::RowGapTwips); }
    int captionGapPixels() const { return site->twipsToPixelsX(Filters::CaptionGapTwips); }
};

void XStringFilter::Private::build(XStringFilter *q)
{
    lblString = named(new QLabel(XStringFilter::tr("&Matches Expression:"), q), "lblString");
    txtExpression = named(new QLineEdit(q), "txtExpression");
    Filters::removeLengthLimit(txtExpression);
    chkMatchCase = named(new QCheckBox(XStringFilter::tr("Match &Case"), q), "chkMatchCase");
    chkMatchWholeName = named(new QCheckBox(XStringFilter::tr("Match Wh&ole Expression"), q), "chkMatchWholeName");
    chkUsePatternMatching = named(new QCheckBox(XStringFilter::tr("Use &Pattern Matching"), q), "chkUsePatternMatching");
    txtExpression->setAccessibleDescription(XStringFilter::tr("The text that a value must match"));
    chkMatchCase->setAccessibleDescription(XStringFilter::tr("Upper and lower case must match"));
    chkMatchWholeName->setAccessibleDescription(XStringFilter::tr("The expression must match the whole value"));
    chkUsePatternMatching->setAccessibleDescription(XStringFilter::tr("The expression is a pattern, not a plain text"));
    lblString->setBuddy(txtExpression);

    QWidget::setTabOrder(txtExpression, chkMatchCase);
    QWidget::setTabOrder(chkMatchCase, chkMatchWholeName);
    QWidget::setTabOrder(chkMatchWholeName, chkUsePatternMatching);

    selectAll->watch(txtExpression);
    const auto modify = [this] { state.setModified(true); };
    QObject::connect(txtExpression, &QLineEdit::textChanged, q, modify);
    for (QCheckBox *box : options())
        QObject::connect(box, &QCheckBox::stateChanged, q, modify);
}

void XStringFilter::Private::reset()
{
    txtExpression->clear();
    txtExpression->setToolTip(QString());
}

void XStringFilter::Private::load(const StringFilterValue *value)
{
    reset();
    if (!value)
        return;
    txtExpression->setText(value->Expression());
    txtExpression->setToolTip(XStringFilter::tr("string regular expression"));
    chkUsePatternMatching->setChecked(value->UsePatternMatching());
    chkMatchWholeName->setChecked(value->MatchWholeName());
    chkMatchCase->setChecked(value->MatchCase());
}

void XStringFilter::Private::applyLabel(const QString &label)
{
    lblString->setText(label);
}

void XStringFilter::Private::applyExtraControls(bool show)
{
    extraControls = show;
    for (QCheckBox *box : options())
        box->setVisible(show);
}

void XStringFilter::Private::layout(XStringFilter *q)
{
    lblString->resize(lblString->sizeHint());
    const QRect inner = q->contentsRect();
    const auto column = Filters::expressionColumn(site->pixelsToTwipsX(lblString->width()), site->ScaleWidth());
    const int left = inner.left() + site->twipsToPixelsX(column.left);
    const int boxHeight = txtExpression->sizeHint().height();
    const int boxWidth = column.width ? inner.left() + site->twipsToPixelsX(column.left + *column.width) - left
                                      : txtExpression->width();
    txtExpression->setGeometry(left, inner.top(), boxWidth, boxHeight);
    lblString->move(inner.left(), inner.top() + (boxHeight - lblString->height()) / 2);

    int top = inner.top() + boxHeight + rowGapPixels();
    for (QCheckBox *box : options()) {
        const QSize size = box->sizeHint();
        box->setGeometry(left, top, size.width(), size.height());
        top += size.height() + rowGapPixels();
    }
    q->updateGeometry();
}

XStringFilter::XStringFilter(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    Filters::EditState::LoadingScope loading(d->state);
    d->build(this);
    d->reset();
    d->layout(this);
}

XStringFilter::~XStringFilter() = default;

bool XStringFilter::IsModified() const
{
    return d->state.isModified();
}

bool XStringFilter::IsValid(QString &sErrorText)
{
    Q_UNUSED(sErrorText);
    return true;
}

StringFilterValuePtr XStringFilter::GetFilter() const
{
    auto value = std::make_shared<StringFilterValue>();
    value->setExpression(trimSpaces(d->txtExpression->text()));
    value->setUsePatternMatching(isChecked(d->chkUsePatternMatching));
    value->setMatchWholeName(isChecked(d->chkMatchWholeName));
    value->setMatchCase(isChecked(d->chkMatchCase));
    return value;
}

void XStringFilter::SetFilter(const StringFilterValuePtr &fsValue)
{
    Filters::EditState::LoadingScope loading(d->state);
    const StringFilterValue empty;
    d->load(fsValue ? fsValue.get() : &empty);
    d->state.setModified(false);
}

void XStringFilter::ClearAll()
{
    // Modified is left to the change events of the widgets: an editor that is already empty stays
    // unmodified and raises nothing.
    const StringFilterValue empty;
    d->load(&empty);
}

QString XStringFilter::Label() const
{
    return d->lblString->text();
}

void XStringFilter::setLabel(const QString &label)
{
    d->applyLabel(label);
    d->site->propertyChanged(LabelKey);
    d->layout(this);
}

bool XStringFilter::ExtraControls() const
{
    return d->extraControls;
}

void XStringFilter::setExtraControls(bool show)
{
    d->applyExtraControls(show);
    d->site->propertyChanged(ExtraControlsKey);
    d->layout(this);
}

void XStringFilter::InitProperties()
{
    d->applyLabel(tr(DefaultLabel));
    d->applyExtraControls(DefaultExtraControls);
    d->layout(this);
}

void XStringFilter::ReadProperties(PropertyBag &bag)
{
    const QString defaultLabel = tr(DefaultLabel);
    d->applyLabel(readAs<QString>(bag, LabelKey, defaultLabel).value_or(defaultLabel));
    d->applyExtraControls(readAs<bool>(bag, ExtraControlsKey, DefaultExtraControls).value_or(DefaultExtraControls));
    d->layout(this);
}

void XStringFilter::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(LabelKey, Label(), tr(DefaultLabel));
    bag.WriteProperty(ExtraControlsKey, d->extraControls, DefaultExtraControls);
}

HostSite *XStringFilter::hostSite() const
{
    return d->site;
}

QSize XStringFilter::sizeHint() const
{
    const int left = d->lblString->sizeHint().width() + d->captionGapPixels();
    int width = d->txtExpression->sizeHint().width();
    int height = d->txtExpression->sizeHint().height();
    if (d->extraControls) {
        for (QCheckBox *box : d->options()) {
            width = qMax(width, box->sizeHint().width());
            height += d->rowGapPixels() + box->sizeHint().height();
        }
    }
    const QMargins margins = contentsMargins();
    return {left + width + margins.left() + margins.right(), height + margins.top() + margins.bottom()};
}

QSize XStringFilter::minimumSizeHint() const
{
    const QSize hint = sizeHint();
    const int left = d->lblString->sizeHint().width() + d->captionGapPixels();
    return {left + d->txtExpression->minimumSizeHint().width(), hint.height()};
}

void XStringFilter::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    d->layout(this);
}

void XStringFilter::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        d->layout(this);
}

} // namespace PickerCtl
