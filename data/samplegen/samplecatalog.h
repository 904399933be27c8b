#pragma once

#include <QString>

namespace PickerCtl {
class SqlCatalogBuilder;
}

struct SampleOptions
{
    qint64 fields = 3000;
    qint64 categories = 150;
    quint32 seed = 20240611;
    QString countersCsv = QStringLiteral(":/samplegen/pm_counters.csv");
    QString kpisCsv = QStringLiteral(":/samplegen/kpis.csv");
};

struct SampleSummary
{
    qint64 fields = 0;
    qint64 categories = 0;
};

/// Writes a mobile-network catalogue shaped by the options into the builder (not committed).
/// Throws PickerCtl::CatalogError when the counter lists cannot be read.
SampleSummary writeSampleCatalog(PickerCtl::SqlCatalogBuilder &builder, const SampleOptions &options);
