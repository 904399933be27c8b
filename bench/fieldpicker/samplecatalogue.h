#pragma once

// The catalogue users browse, written by the sample generator once per run: names repeat (a few
// thousand distinct counter and expression names spread over every category), which a list of
// made-up unique names does not show.
#include <PickerCtl/FieldCatalog.h>

#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace PickerCtl::bench {

constexpr qint64 SampleFieldCount = 1000000;
constexpr qint64 SampleCategoryCount = 20000;

/// PICKERCTL_BENCH_FIELDS overrides the field count for a quick run (or a profile) on a busy machine.
inline qint64 sampleFieldCount()
{
    bool ok = false;
    const qint64 count = qEnvironmentVariable("PICKERCTL_BENCH_FIELDS").toLongLong(&ok);
    return ok && count > 0 ? count : SampleFieldCount;
}

/// The catalogue file, generated once per run outside the timed loop; empty when generating failed.
inline const QString &sampleCatalogueFile()
{
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString file = dir.filePath(QStringLiteral("bench-sample.sqlite"));
        QProcess generator;
        generator.start(QStringLiteral(PICKERCTL_SAMPLEGEN),
                        {QStringLiteral("--fields"), QString::number(sampleFieldCount()), QStringLiteral("--categories"),
                         QString::number(SampleCategoryCount), QStringLiteral("--out"), file});
        if (!generator.waitForFinished(600000) || generator.exitCode() != 0) {
            std::fprintf(stderr, "the sample generator failed: %s\n", generator.readAllStandardError().constData());
            return QString();
        }
        return file;
    }();
    return path;
}

/// The application with the most fields, since its root view is the largest list.
inline QString largestApplication(FieldCatalog &catalog)
{
    QString largest;
    qsizetype most = -1;
    for (const QString &app : catalog.Applications()) {
        const qsizetype count = catalog.GetCategoryTree(app)->AllFields(0)->Count();
        if (count > most) {
            most = count;
            largest = app;
        }
    }
    return largest;
}

} // namespace PickerCtl::bench
