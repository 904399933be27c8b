#include <PickerCtl/XTreeOpt.h>

#include "widgets/treeoptmodel.h"

namespace PickerCtl {

class XTreeOpt::Private
{
public:
    TreeOptModel *model = nullptr;
};

XTreeOpt::XTreeOpt(QWidget *parent)
    : QTreeView(parent)
    , d(std::make_unique<Private>())
{
    d->model = new TreeOptModel(this);
    setModel(d->model);
    setHeaderHidden(true);
    // Every row is one line of text: lets the view skip measuring thousands of rows.
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);

    connect(d->model, &TreeOptModel::checkChanged, this, &XTreeOpt::CheckChanged);
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex &index) {
        Q_EMIT NodeClicked(d->model->key(index));
    });
}

XTreeOpt::~XTreeOpt() = default;

void XTreeOpt::Clear()
{
    d->model->clear();
}

int XTreeOpt::AddNode(const QString &key, const QString &parentKey, const QString &caption,
                      int imageState, bool expanded)
{
    const QModelIndex added =
        d->model->addNode(key, parentKey, caption, imageState, expanded, Unchecked);
    if (expanded)
        setExpanded(added, true);
    return d->model->preorderIndex(added);
}

int XTreeOpt::AddChild(const QString &key, const QString &parentKey, const QString &caption,
                       int checkValue)
{
    return d->model->preorderIndex(
        d->model->addNode(key, parentKey, caption, 0, false, checkValue));
}

int XTreeOpt::Find(const QString &key) const
{
    return Index(key);
}

int XTreeOpt::Index(const QString &key) const
{
    return d->model->preorderIndex(d->model->indexOfKey(key));
}

QString XTreeOpt::Key(int index) const
{
    return d->model->key(d->model->indexAtPreorder(index));
}

int XTreeOpt::Count() const
{
    return d->model->nodeCount();
}

QString XTreeOpt::Caption(const QString &key) const
{
    return d->model->caption(d->model->indexOfKey(key));
}

int XTreeOpt::CheckValue(const QString &key) const
{
    return d->model->checkValue(d->model->indexOfKey(key));
}

void XTreeOpt::setCheckValue(const QString &key, int value)
{
    d->model->setCheckValue(d->model->indexOfKey(key), value);
}

int XTreeOpt::CheckValueAt(int index) const
{
    return d->model->checkValue(d->model->indexAtPreorder(index));
}

void XTreeOpt::setCheckValueAt(int index, int value)
{
    d->model->setCheckValue(d->model->indexAtPreorder(index), value);
}

QString XTreeOpt::Tag(const QString &key) const
{
    return d->model->tag(d->model->indexOfKey(key));
}

void XTreeOpt::setTag(const QString &key, const QString &tag)
{
    d->model->setTag(d->model->indexOfKey(key), tag);
}

QString XTreeOpt::TagAt(int index) const
{
    return d->model->tag(d->model->indexAtPreorder(index));
}

void XTreeOpt::setTagAt(int index, const QString &tag)
{
    d->model->setTag(d->model->indexAtPreorder(index), tag);
}

int XTreeOpt::ImageState(const QString &key) const
{
    return d->model->imageState(d->model->indexOfKey(key));
}

void XTreeOpt::EnsureVisible(int index)
{
    const QModelIndex target = d->model->indexAtPreorder(index);
    if (!target.isValid())
        return;
    for (QModelIndex ancestor = target.parent(); ancestor.isValid(); ancestor = ancestor.parent())
        expand(ancestor);
    scrollTo(target);
}

void XTreeOpt::FinishRebuild()
{
    const int roots = d->model->rowCount();
    for (int row = 0; row < roots; ++row)
        expand(d->model->index(row, 0));
    for (int position = 1; position <= d->model->nodeCount(); ++position) {
        const QModelIndex node = d->model->indexAtPreorder(position);
        if (d->model->wantsExpanded(node))
            expand(node);
    }
}

void XTreeOpt::Refresh()
{
    viewport()->update();
}

bool XTreeOpt::Locked() const
{
    return !d->model->isUserCheckable();
}

void XTreeOpt::setLocked(bool locked)
{
    d->model->setUserCheckable(!locked);
}

} // namespace PickerCtl
