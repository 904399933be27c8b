#pragma once

#include "gallerypages.h"

#include <QMainWindow>

class QTabWidget;

/// The gallery's main window: one tab per page, each page built once from the context.
class GalleryWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit GalleryWindow(const GalleryContext &context, QWidget *parent = nullptr);

    /// Names accepted by selectPage, in tab order.
    static QStringList pageNames();
    /// Shows the page with that name; false when there is none.
    bool selectPage(const QString &name);

private:
    QTabWidget *m_tabs;
};
