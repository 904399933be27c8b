#include <PickerCtl/XEnumFilter.h>

#include "filters/editstate.h"
#include "filters/enumvalues.h"

#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/MessageService.h>
#include <PickerCtl/XTreeOpt.h>

#include <QVBoxLayout>

#include <exception>

namespace PickerCtl {

namespace {

const QString TreeFontFamily = QStringLiteral("Courier");
constexpr int RootIndex = 1;

} // namespace

struct XEnumFilter::Private
{
    explicit Private(XEnumFilter *q)
        : state([q] { Q_EMIT q->Changed(); })
    {
    }

    Filters::EditState state;
    QString appName;
    QString errorTitle = XEnumFilter::tr("Filter");
    std::shared_ptr<ListViewProperties> listProps = std::make_shared<ListViewProperties>();
    PropertyFilterPtr propFilter;
    XTreeOpt *tvwOpt = nullptr;

    QString title() const { return listProps ? listProps->Title() : QString(); }
    QStringList valueKeys() const
    {
        return propFilter ? Filters::splitList(propFilter->ValueNames(listProps, appName)) : QStringList();
    }
    QStringList valueCodes() const
    {
        return propFilter ? Filters::splitList(propFilter->ValueCodes(listProps, appName)) : QStringList();
    }

    void buildTree();
    void loadChecks(const EnumFilterValue *value);

    /// Runs work that asks the host's property filter; whatever it throws is logged and reported
    /// as false, so that it never reaches the caller.
    template<typename Work>
    bool guarded(const char *what, Work work)
    {
        try {
            work();
            return true;
        } catch (const std::exception &error) {
            qWarning("XEnumFilter: %s failed: %s", what, error.what());
        } catch (...) {
            qWarning("XEnumFilter: %s failed: the property filter threw an unknown exception", what);
        }
        return false;
    }
};

void XEnumFilter::Private::buildTree()
{
    tvwOpt->Clear();
    const QStringList keys = valueKeys();
    const QStringList codes = valueCodes();
    const QString root = title();
    tvwOpt->AddNode(root, QString(), root);
    tvwOpt->setCheckValue(root, XTreeOpt::Unchecked);
    for (qsizetype i = 0; i < keys.size(); ++i) {
        // A codes list shorter than the names leaves the remaining values without a code.
        if (tvwOpt->AddChild(keys.at(i), root, keys.at(i)) != 0)
            tvwOpt->setTag(keys.at(i), codes.value(i));
    }
    tvwOpt->EnsureVisible(RootIndex);
    tvwOpt->FinishRebuild();
}

void XEnumFilter::Private::loadChecks(const EnumFilterValue *value)
{
    if (!value) {
        tvwOpt->setCheckValue(title(), XTreeOpt::Checked);
        return;
    }
    const QStringList selection = value->Selection().isEmpty() ? valueCodes() : Filters::splitList(value->Selection());
    const QHash<QString, QString> keyOfCode = Filters::firstKeyOfEachCode(valueKeys(), [this](const QString &key) {
        return tvwOpt->Find(key) != 0 ? std::optional<QString>(tvwOpt->Tag(key)) : std::nullopt;
    });
    for (const QString &code : selection) {
        const auto found = keyOfCode.constFind(code);
        if (found != keyOfCode.constEnd())
            tvwOpt->setCheckValue(*found, XTreeOpt::Checked);
    }
}

XEnumFilter::XEnumFilter(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    d->tvwOpt = new XTreeOpt(this);
    d->tvwOpt->setObjectName(QStringLiteral("tvwOpt"));
    d->tvwOpt->setAccessibleName(tr("Values"));
    d->tvwOpt->setAccessibleDescription(tr("The values of the field; checked values pass the filter"));
    QFont treeFont = d->tvwOpt->font();
    treeFont.setFamily(TreeFontFamily);
    treeFont.setStyleHint(QFont::TypeWriter);
    d->tvwOpt->setFont(treeFont);
    setFocusProxy(d->tvwOpt);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(d->tvwOpt);

    const auto modify = [this] { d->state.setModified(true); };
    connect(d->tvwOpt, &XTreeOpt::CheckChanged, this, modify);
    connect(d->tvwOpt, &XTreeOpt::NodeClicked, this, modify);
}

XEnumFilter::~XEnumFilter() = default;

bool XEnumFilter::IsValid()
{
    if (!d->listProps)
        return true;
    const QString title = d->title();
    if (d->tvwOpt->CheckValue(title) > XTreeOpt::Unchecked)
        return true;
    MessageService::instance()->ShowMessage(tr("Please select at least one %1 value.").arg(title.toLower()),
                                            MessageService::Critical, d->errorTitle, 0, 0);
    d->tvwOpt->setFocus(Qt::OtherFocusReason);
    return false;
}

void XEnumFilter::SetFilter(const EnumFilterValuePtr &fltrEnum, const QString &sAppNameA,
                            const std::shared_ptr<ListViewProperties> &lvpA, const PropertyFilterPtr &propFilterA,
                            const QString &sErrorMessageTitle)
{
    Filters::EditState::LoadingScope loading(d->state);
    d->appName = sAppNameA;
    d->errorTitle = sErrorMessageTitle;
    d->listProps = lvpA;
    d->propFilter = propFilterA;
    const bool loaded = d->guarded("loading the values", [&] {
        d->buildTree();
        d->loadChecks(fltrEnum.get());
    });
    if (!loaded)
        d->tvwOpt->Clear();
    d->state.setModified(false);
}

EnumFilterValuePtr XEnumFilter::GetFilter()
{
    if (!IsValid())
        return nullptr;
    auto value = std::make_shared<EnumFilterValue>();
    if (d->tvwOpt->CheckValue(d->title()) == XTreeOpt::Checked)
        return value;
    QStringList codes;
    const bool read = d->guarded("reading the checked values", [&] {
        for (const QString &key : d->valueKeys()) {
            if (d->tvwOpt->Find(key) != 0 && d->tvwOpt->CheckValue(key) == XTreeOpt::Checked)
                codes << d->tvwOpt->Tag(key);
        }
    });
    if (!read)
        return nullptr;
    value->setSelection(Filters::joinSelection(codes));
    return value;
}

void XEnumFilter::ClearFilter()
{
    d->loadChecks(nullptr);
    d->state.setModified(true);
}

void XEnumFilter::Clear()
{
    d->propFilter.reset();
}

bool XEnumFilter::IsModified() const
{
    return d->state.isModified();
}

XTreeOpt *XEnumFilter::tree() const
{
    return d->tvwOpt;
}

} // namespace PickerCtl
