#pragma once

#include <QListView>
#include <QTreeView>
#include <functional>

namespace PickerCtl {

/// What both views of the list share: the empty-view text and the start of a drag.
struct StaticListViewState
{
    QString emptyText;
    bool showEmptyText = false;
    /// Runs a drag of the selection with the actions the view offers.
    std::function<void(Qt::DropActions)> startDrag;
};

/// Paints the empty-view text centred and word-wrapped in the placeholder colour.
void paintEmptyText(QWidget *viewport, const QString &text);

/// The report view: a flat tree view with a header, searched by name as the user types.
class StaticListTreeView : public QTreeView
{
    Q_OBJECT

public:
    StaticListTreeView(const StaticListViewState &state, QWidget *parent = nullptr);
    void keyboardSearch(const QString &search) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;

private:
    const StaticListViewState &m_state;
};

/// The list and icon view over the same model and selection.
class StaticListIconView : public QListView
{
    Q_OBJECT

public:
    StaticListIconView(const StaticListViewState &state, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;

private:
    const StaticListViewState &m_state;
};

} // namespace PickerCtl
