// The widget kit page: the field list over the sample fields and the option tree of the
// technology types, each with a line that shows what the control reports.
#include "gallerypages.h"

#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/XStaticList.h>
#include <PickerCtl/XTreeOpt.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace PickerCtl;

namespace {

const auto ListTitle = QStringLiteral("XStaticList");
const auto TreeTitle = QStringLiteral("XTreeOpt");
const auto ListCaption = QStringLiteral("Fields");
const auto RootKey = QStringLiteral("Tech Types");
const auto LockedCaption = QStringLiteral("&Locked");
const auto TreeStatus = QStringLiteral("Root check value %1, mask \"%2\"");
// Ticking every other type leaves the root partly checked, so all three states show.
constexpr int TickEvery = 2;

FieldsPtr allFields(const GalleryContext &context)
{
    auto fields = Fields::create();
    for (const FieldCategoryPtr &category : context.catalog->Categories(context.appName)) {
        for (const FieldPtr &field : *category->Fields())
            fields->Add(field);
    }
    return fields;
}

QGroupBox *framed(const QString &objectName, const QString &title, QWidget *content, QWidget *status,
                  QWidget *extra = nullptr)
{
    auto *box = new QGroupBox(title);
    box->setObjectName(objectName);
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(content, 1);
    if (extra)
        layout->addWidget(extra);
    layout->addWidget(status);
    return box;
}

QWidget *makeListDemo(const GalleryContext &context)
{
    auto *stl = new XStaticList;
    stl->setObjectName(QStringLiteral("stl"));
    stl->setCaption(ListCaption);
    stl->setItems(allFields(context));
    auto *lblStatus = new QLabel;
    lblStatus->setObjectName(QStringLiteral("lblListStatus"));
    auto showStatus = [stl, lblStatus] { lblStatus->setText(stl->StatusText()); };
    QObject::connect(stl, &XStaticList::SelectionChange, lblStatus, showStatus);
    showStatus();
    return framed(QStringLiteral("fraList"), ListTitle, stl, lblStatus);
}

QWidget *makeTreeDemo(const GalleryContext &context)
{
    auto *tvwOpt = new XTreeOpt;
    tvwOpt->setObjectName(QStringLiteral("tvwOpt"));
    tvwOpt->AddNode(RootKey, QString(), RootKey, 2, true);
    const TechnologyTypesPtr types = context.catalog->GetTechnologyTypes();
    int position = 0;
    for (const TechnologyTypePtr &type : *types) {
        tvwOpt->AddChild(type->Name(), RootKey, type->Name(), position++ % TickEvery == 0 ? 1 : 0);
        tvwOpt->setTag(type->Name(), type->Code());
    }
    tvwOpt->FinishRebuild();

    auto *lblStatus = new QLabel;
    lblStatus->setObjectName(QStringLiteral("lblTreeStatus"));
    auto showStatus = [tvwOpt, lblStatus, types] {
        QString mask;
        for (const TechnologyTypePtr &type : *types) {
            if (tvwOpt->CheckValue(type->Name()) == XTreeOpt::Checked)
                mask += tvwOpt->Tag(type->Name());
        }
        lblStatus->setText(TreeStatus.arg(tvwOpt->CheckValue(RootKey)).arg(mask));
    };
    QObject::connect(tvwOpt, &XTreeOpt::CheckChanged, lblStatus, showStatus);
    showStatus();

    auto *chkLocked = new QCheckBox(LockedCaption);
    chkLocked->setObjectName(QStringLiteral("chkLocked"));
    QObject::connect(chkLocked, &QCheckBox::toggled, tvwOpt, &XTreeOpt::setLocked);
    return framed(QStringLiteral("fraTree"), TreeTitle, tvwOpt, lblStatus, chkLocked);
}

} // namespace

QWidget *makeWidgetKitPage(const GalleryContext &context)
{
    auto *page = new QWidget;
    auto *layout = new QHBoxLayout(page);
    layout->addWidget(makeListDemo(context), 3);
    layout->addWidget(makeTreeDemo(context), 2);
    return page;
}
