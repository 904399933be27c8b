// pickerctl-samplegen: writes a realistic, reproducible sample catalogue into an SQLite file.
#include "samplecatalog.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/SqlCatalog.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

namespace {

const auto BadNumber = QStringLiteral("--%1 needs a whole number of at least %2, not \"%3\".");
const auto NoOutput = QStringLiteral("--out names no file.");
const auto Done = QStringLiteral("Wrote %1 fields in %2 categories to %3 in %4 s.");

bool readCount(const QCommandLineParser &parser, const QCommandLineOption &option, qint64 minimum, qint64 &value,
               QString &error)
{
    if (!parser.isSet(option))
        return true;
    bool ok = false;
    const qint64 number = parser.value(option).toLongLong(&ok);
    if (!ok || number < minimum) {
        error = BadNumber.arg(option.names().first()).arg(minimum).arg(parser.value(option));
        return false;
    }
    value = number;
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pickerctl-samplegen"));

    SampleOptions options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes a sample mobile-network field catalogue (technologies, applications, entity and generic "
        "categories, counters, expressions, user-defined calculations, RCV forms, enumerations) into an "
        "SQLite file. The same options always give the same catalogue."));
    parser.addHelpOption();
    const QCommandLineOption fields(QStringLiteral("fields"),
        QStringLiteral("Number of fields (default %1).").arg(options.fields), QStringLiteral("N"));
    const QCommandLineOption categories(QStringLiteral("categories"),
        QStringLiteral("Number of categories, roughly; small catalogues get a few more (default %1).")
            .arg(options.categories), QStringLiteral("M"));
    const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("The SQLite file to write (replaced)."),
                                 QStringLiteral("file"), QStringLiteral("sample-catalog.sqlite"));
    const QCommandLineOption seed(QStringLiteral("seed"),
        QStringLiteral("Seed of the choices made at random (default %1).").arg(options.seed), QStringLiteral("S"));
    const QCommandLineOption counters(QStringLiteral("counters"),
        QStringLiteral("Counter list (CSV: technology, object_class, name, reference, unit); default built in."),
        QStringLiteral("csv"));
    const QCommandLineOption kpis(QStringLiteral("kpis"),
        QStringLiteral("Expression list (CSV: technology, name, formula, unit); default built in."),
        QStringLiteral("csv"));
    parser.addOptions({fields, categories, out, seed, counters, kpis});
    parser.process(app);

    QString error;
    qint64 seedValue = options.seed;
    if (!readCount(parser, fields, 0, options.fields, error) || !readCount(parser, categories, 1, options.categories, error)
        || !readCount(parser, seed, 0, seedValue, error)) {
        std::fprintf(stderr, "pickerctl-samplegen: %s\n", qPrintable(error));
        return 2;
    }
    options.seed = quint32(seedValue);
    if (parser.isSet(counters))
        options.countersCsv = parser.value(counters);
    if (parser.isSet(kpis))
        options.kpisCsv = parser.value(kpis);
    const QString target = parser.value(out);
    if (target.isEmpty()) {
        std::fprintf(stderr, "pickerctl-samplegen: %s\n", qPrintable(NoOutput));
        return 2;
    }

    QElapsedTimer timer;
    timer.start();
    try {
        PickerCtl::SqlCatalogBuilder builder(target);
        const SampleSummary summary = writeSampleCatalog(builder, options);
        builder.commit();
        std::printf("%s\n", qPrintable(Done.arg(summary.fields).arg(summary.categories).arg(PickerCtl::maskedLocation(target))
                                           .arg(double(timer.elapsed()) / 1000.0, 0, 'f', 1)));
    } catch (const PickerCtl::CatalogError &e) {
        std::fprintf(stderr, "pickerctl-samplegen: %s\n", qPrintable(e.message()));
        return 1;
    }
    return 0;
}
