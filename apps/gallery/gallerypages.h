#pragma once

#include <PickerCtl/FieldCatalog.h>

#include <QString>

class QWidget;

/// What every gallery page is built from: the opened catalogue, installed as the thread's
/// FieldCatalog before any page exists.
struct GalleryContext
{
    PickerCtl::FieldCatalogPtr catalog;
    /// The application whose categories and fields the pages show.
    QString appName;
    /// Where the catalogue was read from: a file path or a database URL.
    QString sourcePath;
};

// One factory per page, each in its own page_<name>.cpp; the window owns what they return.
QWidget *makeCatalogPage(const GalleryContext &context);
QWidget *makeWidgetKitPage(const GalleryContext &context);
QWidget *makeFieldPickerPage(const GalleryContext &context);
QWidget *makeFiltersPage(const GalleryContext &context);
QWidget *makeTemplatesPage(const GalleryContext &context);
