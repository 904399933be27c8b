#include <PickerCtl/XTechnologies.h>

#include "technologies/catalogguard.h"
#include "technologies/lockedlookdelegate.h"
#include "technologies/techmask.h"

#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/XTreeOpt.h>

#include <QStyle>
#include <QVBoxLayout>

namespace PickerCtl {

namespace {

const QString RootKey = QStringLiteral("Tech Types");
const char RootCaption[] = QT_TRANSLATE_NOOP("PickerCtl::XTechnologies", "Tech Types");
const char TreeAccessibleName[] = QT_TRANSLATE_NOOP("PickerCtl::XTechnologies", "Technology types");
const char TreeAccessibleDescription[] =
    QT_TRANSLATE_NOOP("PickerCtl::XTechnologies", "Tick the technology types that apply");
const QString TreeFontFamily = QStringLiteral("MS Sans Serif");
constexpr int RootImageState = 2;
constexpr int RootIndex = 1;
// Rows the preferred size makes room for before the tree scrolls.
constexpr int MaxHintRows = 12;
// The smallest useful tree shows the root and one type.
constexpr int MinHintRows = 2;

} // namespace

struct XTechnologies::Private
{
    XTreeOpt *tvw = nullptr;
    Technologies::LockedLookDelegate *look = nullptr;

    bool isBuilt() const { return tvw->Find(RootKey) != 0; }

    /// The catalogue's current list; null when the catalogue failed (logged), empty when it has none.
    TechnologyTypesPtr types(const char *operation) const
    {
        TechnologyTypesPtr list;
        if (!Technologies::runGuarded(operation, [&] { list = FieldCatalog::instance()->GetTechnologyTypes(); }))
            return nullptr;
        return list ? list : std::make_shared<TechnologyTypes>();
    }

    Technologies::TreeReader reader() const
    {
        return {
            [this](const QString &name) { return tvw->CheckValue(name) == XTreeOpt::Checked; },
            [this](const QString &name) { return tvw->Tag(name); },
        };
    }

    int rowHeight() const
    {
        return qMax(tvw->sizeHintForRow(0), tvw->fontMetrics().height());
    }

    /// Width of the root's row: enough for the caption and its check box when nothing is built yet.
    int rootRowWidth() const
    {
        const int indicator = tvw->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, tvw);
        const int spacing = tvw->style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, tvw);
        return tvw->indentation() + indicator + spacing
            + tvw->fontMetrics().horizontalAdvance(XTechnologies::tr(RootCaption));
    }

    QSize frame() const
    {
        const int width = 2 * tvw->frameWidth();
        return {width, width};
    }
};

XTechnologies::XTechnologies(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    d->tvw = new XTreeOpt(this);
    d->tvw->setObjectName(QStringLiteral("tvw"));
    d->tvw->setAccessibleName(tr(TreeAccessibleName));
    d->tvw->setAccessibleDescription(tr(TreeAccessibleDescription));
    QFont treeFont = d->tvw->font();
    treeFont.setFamily(TreeFontFamily);
    treeFont.setStyleHint(QFont::SansSerif);
    d->tvw->setFont(treeFont);
    d->tvw->setAllColumnsShowFocus(true);
    d->look = new Technologies::LockedLookDelegate(d->tvw);
    d->tvw->setItemDelegate(d->look);
    setFocusProxy(d->tvw);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(d->tvw);

    connect(d->tvw, &XTreeOpt::CheckChanged, this, [this] { Q_EMIT StateChanged(); });
}

XTechnologies::~XTechnologies() = default;

bool XTechnologies::IsValid() const
{
    return d->tvw->CheckValue(RootKey) != XTreeOpt::Unchecked;
}

bool XTechnologies::Enabled() const
{
    return d->tvw->isEnabled();
}

void XTechnologies::setEnabled(bool on)
{
    d->tvw->setEnabled(on);
}

bool XTechnologies::Locked() const
{
    return d->tvw->Locked();
}

void XTechnologies::setLocked(bool locked)
{
    d->tvw->setLocked(locked);
    d->look->setLocked(locked);
    d->tvw->Refresh();
}

void XTechnologies::SetAll()
{
    d->tvw->setCheckValue(RootKey, XTreeOpt::Checked);
}

void XTechnologies::ClearAll()
{
    d->tvw->setCheckValue(RootKey, XTreeOpt::Unchecked);
}

bool XTechnologies::SetMask(const QString &sMask)
{
    if (!d->isBuilt())
        return false;
    const TechnologyTypesPtr types = d->types("XTechnologies::SetMask");
    if (!types)
        return false;
    for (const TechnologyTypePtr &type : *types) {
        const QString name = type->Name();
        if (d->tvw->Find(name) == 0)
            continue;
        const bool ticked = Technologies::maskSelects(sMask, d->tvw->Tag(name));
        d->tvw->setCheckValue(name, ticked ? XTreeOpt::Checked : XTreeOpt::Unchecked);
    }
    return true;
}

QString XTechnologies::GetMask(bool *ok) const
{
    if (ok)
        *ok = true;
    if (!d->isBuilt())
        return QString();
    const TechnologyTypesPtr types = d->types("XTechnologies::GetMask");
    if (!types) {
        if (ok)
            *ok = false;
        return QString();
    }
    return Technologies::maskOf(*types, d->reader());
}

QVariant XTechnologies::TechBits() const
{
    if (!d->isBuilt())
        return QVariant::fromValue(qint32(0));
    const TechnologyTypesPtr types = d->types("XTechnologies::TechBits");
    if (!types)
        return QVariant();
    return QVariant::fromValue(Technologies::bitsOf(*types, d->reader()));
}

bool XTechnologies::InitializeTechnologyTypes()
{
    const TechnologyTypesPtr types = d->types("XTechnologies::InitializeTechnologyTypes");
    if (!types)
        return false;
    XTreeOpt *tvw = d->tvw;
    tvw->Clear();
    tvw->AddNode(RootKey, QString(), tr(RootCaption), RootImageState, true);
    tvw->setCheckValue(RootKey, XTreeOpt::Unchecked);
    for (const TechnologyTypePtr &type : *types) {
        // A name used twice keeps its first node, as the tree refuses a second key.
        if (tvw->AddChild(type->Name(), RootKey, type->Name(), XTreeOpt::Unchecked) != 0)
            tvw->setTag(type->Name(), type->Code());
    }
    tvw->EnsureVisible(RootIndex);
    tvw->FinishRebuild();
    tvw->Refresh();
    updateGeometry();
    return true;
}

XTreeOpt *XTechnologies::tree() const
{
    return d->tvw;
}

QSize XTechnologies::sizeHint() const
{
    const int rows = qBound(MinHintRows, d->tvw->Count(), MaxHintRows);
    // Through the base class, where the widest row's width (indentation included) is public.
    const QAbstractItemView *view = d->tvw;
    // Room for a vertical scroll bar, so that a shorter tree still shows whole captions.
    const int width = qMax(d->rootRowWidth(), view->sizeHintForColumn(0))
        + d->tvw->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, d->tvw);
    return QSize(width, rows * d->rowHeight()) + d->frame();
}

QSize XTechnologies::minimumSizeHint() const
{
    return QSize(d->rootRowWidth(), MinHintRows * d->rowHeight()) + d->frame();
}

} // namespace PickerCtl
