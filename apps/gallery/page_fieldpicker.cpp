// Stand-in until the page showing the field browser is written.
#include "gallerypages.h"

#include <QLabel>

QWidget *makeFieldPickerPage(const GalleryContext &)
{
    auto *page = new QLabel(QStringLiteral("This page will show the field browser."));
    page->setAlignment(Qt::AlignCenter);
    return page;
}
