#include "technologies_helpers.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/XTreeOpt.h>

#include <QStyle>
#include <QStyleOptionViewItem>

using namespace PickerCtl;

namespace TechTest {

QList<Tech> distinctTechs()
{
    return {{QStringLiteral("GSM"), QStringLiteral("G"), 1},
            {QStringLiteral("UMTS"), QStringLiteral("U"), 2},
            {QStringLiteral("LTE"), QStringLiteral("L"), 4},
            {QStringLiteral("NR"), QStringLiteral("N"), 8}};
}

TechCatalog::TechCatalog(const QList<Tech> &techs)
{
    for (const Tech &tech : techs)
        addTechnology(tech.name, tech.code, tech.bit);
}

TechnologyTypesPtr TechCatalog::GetTechnologyTypes()
{
    ++typeListCalls;
    if (fail)
        throw CatalogError(QStringLiteral("The technology types cannot be read."));
    return MemoryCatalog::GetTechnologyTypes();
}

QModelIndex nodeIndex(const XTreeOpt &tree, const QString &caption)
{
    const QModelIndexList found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, caption, 1,
                                                      Qt::MatchExactly | Qt::MatchRecursive);
    return found.value(0);
}

QPoint checkBoxCentre(const XTreeOpt &tree, const QModelIndex &index)
{
    QStyleOptionViewItem option;
    option.initFrom(tree.viewport());
    option.rect = tree.visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    option.text = index.data().toString();
    option.checkState = index.data(Qt::CheckStateRole).value<Qt::CheckState>();
    return tree.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &tree).center();
}

} // namespace TechTest
