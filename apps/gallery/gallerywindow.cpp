#include "gallerywindow.h"

#include <PickerCtl/SqlCatalog.h>

#include <QTabWidget>

namespace {

const auto WindowTitle = QStringLiteral("PickerCtl Gallery \u2014 %1");

struct PageEntry
{
    const char *name;      // --page NAME and the page's objectName
    const char *caption;   // the tab text
    QWidget *(*make)(const GalleryContext &);
};

const PageEntry Pages[] = {
    {"catalog", "Catalogue", makeCatalogPage},
    {"widgetkit", "Widget Kit", makeWidgetKitPage},
    {"fieldpicker", "Field Picker", makeFieldPickerPage},
    {"filters", "Filters", makeFiltersPage},
    {"templates", "Templates", makeTemplatesPage},
};

} // namespace

GalleryWindow::GalleryWindow(const GalleryContext &context, QWidget *parent)
    : QMainWindow(parent), m_tabs(new QTabWidget(this))
{
    setWindowTitle(WindowTitle.arg(PickerCtl::maskedLocation(context.sourcePath)));
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->setDocumentMode(true);
    for (const PageEntry &entry : Pages) {
        QWidget *page = entry.make(context);
        page->setObjectName(QLatin1String(entry.name));
        m_tabs->addTab(page, QString::fromUtf8(entry.caption));
    }
    setCentralWidget(m_tabs);
}

QStringList GalleryWindow::pageNames()
{
    QStringList names;
    for (const PageEntry &entry : Pages)
        names << QLatin1String(entry.name);
    return names;
}

bool GalleryWindow::selectPage(const QString &name)
{
    const qsizetype index = pageNames().indexOf(name);
    if (index < 0)
        return false;
    m_tabs->setCurrentIndex(int(index));
    return true;
}
