#pragma once

#include "postgres_helpers.h"

#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/testing/CatalogSpecs.h>

#include <QTemporaryDir>

namespace PickerCtl::test {

inline const UserSpec Admin{1, QStringLiteral("admin"), true, true, false};
inline const UserSpec Alice{2, QStringLiteral("alice"), false, true, false};
inline const UserSpec Bob{3, QStringLiteral("bob"), false, true, false};
inline const UserSpec Viewer{4, QStringLiteral("viewer"), false, false, true};
/// An administrator who may only look: read-only wins over administrator.
inline const UserSpec Auditor{5, QStringLiteral("auditor"), true, false, true};
inline const QString App = QStringLiteral("Reports");
inline const QString OtherApp = QStringLiteral("Busy Hour");

// Field ids of the small catalogue.
constexpr qint32 CounterId = 10;
constexpr qint32 ExpressionId = 11;
constexpr qint32 AliceUdcId = 20;
constexpr qint32 BobUdcId = 21;
constexpr qint32 ViewerUdcId = 22;
constexpr qint32 AuditorUdcId = 23;
constexpr qint32 ScenarioFieldId = 30;
constexpr qint32 OtherAppFieldId = 40;
/// The first of the extra UDCs of Alice that writeSmallCatalogue adds on request.
constexpr qint32 FirstExtraUdcId = 1000;

/// A field with a description and, for a counter, a unit, so that every column is written.
FieldSpec field(qint32 id, const QString &categoryKey, const QString &name, const QString &type, qint32 owner,
                const QString &mask);
QList<FieldSpec> smallCatalogueFields();

/// Two applications shaped like the sample (root, entity branch, generic branch with SYSTEM),
/// users admin, alice, bob, viewer and auditor, and extraAliceUdcs more UDCs of Alice.
void writeSmallCatalogue(const QString &location, int extraAliceUdcs = 0);

FieldsPtr fieldsWithIds(FieldCatalog &catalog, const QList<qint32> &ids);
void logIn(const UserSpec &user);

/// The catalogue stores every store-level test runs over, as one table of locations.
inline const QString SqliteStore = QStringLiteral("SQLite file");
inline const QString PostgresStore = QStringLiteral("PostgreSQL");
inline const QStringList Stores{SqliteStore, PostgresStore};
/// A "store" column with one row per store.
void addStoreRows();

/**
 * The places of the stores' catalogues: an SQLite file in a temporary folder and a database of a
 * throwaway PostgreSQL server, started on first use and stopped with stop() or when this goes.
 */
class CatalogueStores
{
public:
    /// The location of a fresh small catalogue in the store, or "" with the reason in error().
    QString fresh(const QString &store, int extraAliceUdcs = 0);
    QString error() const { return m_error; }
    PostgresCluster &postgres() { return m_postgres; }
    QString folder() const { return m_dir.path(); }
    void stop() { m_postgres.stop(); }

private:
    QTemporaryDir m_dir;
    PostgresCluster m_postgres;
    bool m_postgresReady = false;
    QString m_error;
};

} // namespace PickerCtl::test
