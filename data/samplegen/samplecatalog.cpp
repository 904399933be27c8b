#include "samplecatalog.h"

#include "csvtable.h"
#include "sampletexts.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/SqlCatalog.h>

#include <QHash>
#include <QList>

#include <random>
#include <span>

using namespace PickerCtl;

namespace {

// ---- fixed content -------------------------------------------------------------------------

const auto ReportsApp = QStringLiteral("Reports");
const auto BusyHourApp = QStringLiteral("Busy Hour");
const auto EntitiesNode = QStringLiteral("Entities");

const auto Counter = QStringLiteral("CNT");
const auto Expression = QStringLiteral("EXP");
const auto UserCalculation = QStringLiteral("UDC");
const auto Valid = QStringLiteral("V");
const auto Invalid = QStringLiteral("I");
const auto NotValidated = QStringLiteral("N");

struct Technology { const char *name; const char *code; qint32 bit; const char *csvName; };
// Codes are single distinct letters, so no code occurs inside another.
const Technology Technologies[] = {
    {"GSM", "G", 1, "GSM"}, {"UMTS", "U", 2, "UMTS"}, {"LTE", "L", 4, "LTE"},
    {"NR", "N", 8, "NR"}, {"5GC", "C", 16, "5GC"},
};
const auto CommonNfTechnology = QStringLiteral("5GS (common NF)");

const UserSpec Users[] = {
    {1, QStringLiteral("admin"), true, true, false},
    {2, QStringLiteral("alice"), false, true, false},
    {3, QStringLiteral("bob"), false, true, false},
    {4, QStringLiteral("carol"), false, true, false},
    {5, QStringLiteral("viewer"), false, false, true},
};
constexpr qint32 AdminId = 1;
// Owners of user-defined calculations; the read-only user owns none.
const qint32 UdcOwners[] = {2, 3, 4, 2, 3, 1};

struct FieldType { const char *code; const char *name; };
const FieldType FieldTypes[] = {
    {"CNT", "Counter"}, {"EXP", "Calculated Expression"}, {"UDC", "User-Defined Calculation"},
};

const auto ScenarioForm = QStringLiteral("SCENARIO");
const auto TransportForm = QStringLiteral("TRANSPORT");

const QStringList Regions = {
    QStringLiteral("North"), QStringLiteral("South"), QStringLiteral("East"), QStringLiteral("West"),
    QStringLiteral("Central"), QStringLiteral("Coast"), QStringLiteral("Highlands"), QStringLiteral("Capital"),
    QStringLiteral("Lakes"), QStringLiteral("Islands"),
};
constexpr qsizetype MaxRegions = 10;
constexpr int CellsPerSite = 3;
const char CellSectors[] = {'A', 'B', 'C'};

struct KpiTemplate { const char *name; const char *formula; const char *unit; const char *mask; };
// Expressions beyond the four formulas of kpis.csv, across technologies.
const KpiTemplate ExtraKpis[] = {
    {"RRC Setup Success Rate", "100 * RRC.ConnEstabSucc / RRC.ConnEstabAtt", "%", "N"},
    {"DL PRB Utilisation", "100 * RRU.PrbUsedDl / RRU.PrbAvailDl", "%", "N"},
    {"UL PRB Utilisation", "100 * RRU.PrbUsedUl / RRU.PrbAvailUl", "%", "N"},
    {"Intra-gNB Handover Success Rate", "100 * HO.IntraSucc / HO.IntraReq", "%", "N"},
    {"LTE Handover Success Rate", "100 * HO.ExeSucc / HO.ExeAtt", "%", "L"},
    {"Call Setup Success Rate", "100 * TCH Assignment Successes / TCH Assignment Attempts", "%", "G"},
    {"PS RAB Success Rate", "100 * RAB Setup Successes PS / RAB Setup Attempts PS", "%", "U"},
    {"Mobile Data Volume", "DRB.IPVolDl + DRB.IPVolUl", "kbit", "ULN"},
    {"Radio Availability", "100 * (1 - Cell Unavailable Time / Period Duration)", "%", "GULN"},
    {"5GC Registration Success Rate",
     "100 * fivegs_amffunction_rm_reginitsucc / fivegs_amffunction_rm_reginitreq", "%", "C"},
    {"Energy Efficiency", "DRB.IPVolDl / PEE.Energy", "kbit/kWh", "LN"},
};

struct EnumList { const char *title; const char *names; const char *codes; };
const EnumList EnumLists[] = {
    {"Priority", "Low,Normal,High,Critical", "1,2,3,4"},
    {"Cell State", "Enabled,Disabled,Locked,Shutting Down", "0,1,2,3"},
    {"Vendor", "Ericsson,Nokia,Huawei,Samsung,ZTE", "ERI,NOK,HUA,SAM,ZTE"},
};

const auto FullRowSelection = QStringLiteral("Full Row Selection");
const auto WarnOnMultipleTechTypes = QStringLiteral("Warn on Multiple TechTypes");

const auto NoCsv = QStringLiteral("The %1 \"%2\" cannot be read.");
const auto BadCsv = QStringLiteral("The %1 \"%2\" lacks the column \"%3\".");
const auto CounterList = QStringLiteral("counter list");
const auto ExpressionList = QStringLiteral("expression list");
const auto KpiDescription = QStringLiteral("%1: %2");
const auto UdcDescription = QStringLiteral("Written by %1: %2");
const auto RepeatedName = QStringLiteral("%1 #%2");
const auto UdcName = QStringLiteral("%1 (%2)");

// ---- field sources -------------------------------------------------------------------------

struct FieldTemplate
{
    QString name;
    QString typeCode;
    QString techMask;
    QString description;
    QString unit;
    bool busyHour = false;
    QString validationStatus = Valid;
};

enum class Pool {
    None, System, Scenario, Transport, Kpi, Udc,
    GsmCell, GsmNode, UmtsCell, UmtsNode, LteCell, LteRelation, NrCellDu, NrCellCu, NrBeam, NrRelation, NrNode,
    NrSite, Amf, Smf, Upf, Pcf, CommonNf,
};

// Which pool a counter of an object class goes to: the first rule that matches, in order.
enum class Match { Prefix, Part, Whole };
struct ClassRule { Match match; const char *text; Pool pool; };
const ClassRule NrClasses[] = {
    {Match::Prefix, "NRCellDU", Pool::NrCellDu}, {Match::Part, "Relation", Pool::NrRelation},
    {Match::Prefix, "NRCellCU", Pool::NrCellCu}, {Match::Whole, "Beam", Pool::NrBeam},
    {Match::Whole, "ManagedElement", Pool::NrSite},
};
const ClassRule LteClasses[] = {{Match::Whole, "EUtranRelation", Pool::LteRelation}};
const ClassRule CoreClasses[] = {
    {Match::Prefix, "AMF", Pool::Amf}, {Match::Prefix, "SMF", Pool::Smf}, {Match::Prefix, "PCF", Pool::Pcf},
};

Pool poolOf(const QString &objectClass, std::span<const ClassRule> rules, Pool otherwise)
{
    for (const ClassRule &rule : rules) {
        const QLatin1String text(rule.text);
        const bool hit = rule.match == Match::Prefix ? objectClass.startsWith(text)
                         : rule.match == Match::Part ? objectClass.contains(text)
                                                     : objectClass == text;
        if (hit)
            return rule.pool;
    }
    return otherwise;
}

// Counters that make sense for busy-hour selection: traffic, volume, load and connection counts.
bool trafficLike(const QString &name)
{
    static const char *const Marks[] = {"Vol", "Thp", "Traffic", "Prb", "Conn", "Load", "Utilisation"};
    for (const char *mark : Marks) {
        if (name.contains(QLatin1String(mark)))
            return true;
    }
    return false;
}

class Sources
{
public:
    explicit Sources(const SampleOptions &options)
    {
        loadCounters(options.countersCsv);
        loadKpis(options.kpisCsv);
        addBuiltIns(Pool::GsmCell, gsmCellCounters(), QStringLiteral("G"));
        addBuiltIns(Pool::GsmNode, gsmControllerCounters(), QStringLiteral("G"));
        addBuiltIns(Pool::UmtsCell, umtsCellCounters(), QStringLiteral("U"));
        addBuiltIns(Pool::UmtsNode, umtsControllerCounters(), QStringLiteral("U"));
        addBuiltIns(Pool::Transport, transportCounters(), QStringLiteral("GULN"));
        addBuiltIns(Pool::Scenario, scenarioData(), QStringLiteral("GULNC"));
        addBuiltIns(Pool::System, systemFields(), QStringLiteral("GULNC"));
    }

    const QList<FieldTemplate> &pool(Pool pool) const
    {
        static const QList<FieldTemplate> empty;
        const auto it = m_pools.constFind(pool);
        return it == m_pools.constEnd() ? empty : it.value();
    }

    /// The expressions of one technology code, or all of them.
    QList<FieldTemplate> kpisFor(const QString &code) const
    {
        QList<FieldTemplate> out;
        for (const FieldTemplate &kpi : pool(Pool::Kpi)) {
            if (code.isEmpty() || kpi.techMask.contains(code))
                out << kpi;
        }
        return out.isEmpty() ? pool(Pool::Kpi) : out;
    }

private:
    static QString codeOf(const QString &technology)
    {
        for (const Technology &t : Technologies) {
            if (technology == QLatin1String(t.csvName))
                return QLatin1String(t.code);
        }
        return QStringLiteral("C");   // the common-NF measurements of the 5G core
    }

    /// Reads a list, which errors call what it is (the counter or the expression list).
    static CsvTable readCsv(const QString &what, const QString &path, const QStringList &columns)
    {
        CsvTable table;
        if (!table.load(path))
            throw CatalogError(NoCsv.arg(what, path));
        for (const QString &column : columns) {
            if (table.column(column) < 0)
                throw CatalogError(BadCsv.arg(what, path, column));
        }
        return table;
    }

    void loadCounters(const QString &path)
    {
        const QStringList columns = {QStringLiteral("technology"), QStringLiteral("object_class"),
                                     QStringLiteral("name"), QStringLiteral("unit")};
        const CsvTable table = readCsv(CounterList, path, columns);
        const qsizetype tech = table.column(columns[0]), cls = table.column(columns[1]),
                        name = table.column(columns[2]), unit = table.column(columns[3]);
        for (const QStringList &row : table.rows()) {
            const QString technology = row[tech];
            const QString objectClass = row[cls];
            Pool target = Pool::None;
            if (technology == QLatin1String("NR"))
                target = poolOf(objectClass, NrClasses, Pool::NrNode);
            else if (technology == QLatin1String("LTE"))
                target = poolOf(objectClass, LteClasses, Pool::LteCell);
            else if (technology == QLatin1String("5GC"))
                target = poolOf(objectClass, CoreClasses, Pool::Upf);   // UPFFunction and its N3 end points
            else if (technology == CommonNfTechnology)
                target = Pool::CommonNf;
            if (target == Pool::None)
                continue;
            FieldTemplate field;
            field.name = row[name];
            field.typeCode = Counter;
            field.techMask = codeOf(technology);
            field.description = describeCounter(row[name], objectClass);
            field.unit = row[unit];
            field.busyHour = trafficLike(row[name]);
            m_pools[target] << field;
        }
    }

    void loadKpis(const QString &path)
    {
        const QStringList columns = {QStringLiteral("technology"), QStringLiteral("name"),
                                     QStringLiteral("formula"), QStringLiteral("unit")};
        const CsvTable table = readCsv(ExpressionList, path, columns);
        const qsizetype tech = table.column(columns[0]), name = table.column(columns[1]),
                        formula = table.column(columns[2]), unit = table.column(columns[3]);
        QList<FieldTemplate> &kpis = m_pools[Pool::Kpi];
        for (const QStringList &row : table.rows()) {
            // "InitialEPSBEstabSR (E-RAB Accessibility; TS 32.450 6.1.1)": the name, then what it measures.
            const qsizetype paren = row[name].indexOf(QStringLiteral(" ("));
            FieldTemplate kpi;
            kpi.name = paren < 0 ? row[name] : row[name].left(paren);
            const QString topic = paren < 0 ? kpi.name : row[name].mid(paren + 2).chopped(1);
            kpi.typeCode = Expression;
            kpi.techMask = codeOf(row[tech]);
            kpi.description = KpiDescription.arg(topic, row[formula]);
            kpi.unit = row[unit].section(QLatin1Char(' '), 0, 0);
            kpi.busyHour = true;
            kpis << kpi;
        }
        for (const KpiTemplate &extra : ExtraKpis) {
            FieldTemplate kpi;
            kpi.name = QLatin1String(extra.name);
            kpi.typeCode = Expression;
            kpi.techMask = QLatin1String(extra.mask);
            kpi.description = QLatin1String(extra.formula);
            kpi.unit = QLatin1String(extra.unit);
            kpi.busyHour = true;
            kpis << kpi;
        }
        // Some expressions refer to measurements that no longer exist: they are not valid.
        for (qsizetype i = 5; i < kpis.size(); i += 6)
            kpis[i].validationStatus = Invalid;
    }

    void addBuiltIns(Pool target, const BuiltInList &list, const QString &mask)
    {
        for (qsizetype i = 0; i < list.size; ++i) {
            FieldTemplate field;
            field.name = QLatin1String(list.items[i].name);
            field.typeCode = Counter;
            field.techMask = mask;
            field.description = QLatin1String(list.items[i].description);
            field.unit = QLatin1String(list.items[i].unit);
            field.busyHour = trafficLike(field.name);
            m_pools[target] << field;
        }
    }

    QHash<Pool, QList<FieldTemplate>> m_pools;
};

// ---- the category plan ---------------------------------------------------------------------

struct PlannedCategory
{
    CategorySpec spec;
    Pool pool = Pool::None;
    QString techCode;       // entity categories: the technology of their network elements
    int weight = 0;         // share of the fields that are spread by weight
    bool fixedList = false; // holds its pool once, in full (system, scenario, transport)
    bool mixIn = false;     // cells also hold a few expressions and user-defined calculations
    qint64 fieldCount = 0;
};

struct ControllerKind { const char *label; const char *code; Pool node; Pool site; Pool cell; };
const ControllerKind Controllers[] = {
    {"BSC", "G", Pool::GsmNode, Pool::GsmCell, Pool::GsmCell},
    {"RNC", "U", Pool::UmtsNode, Pool::UmtsCell, Pool::UmtsCell},
    {"eNodeB", "L", Pool::LteCell, Pool::LteCell, Pool::LteCell},
    {"gNB-CU", "N", Pool::NrNode, Pool::NrSite, Pool::NrCellDu},
};

class Planner
{
public:
    Planner(const QString &keyPrefix, qint32 firstEntityId)
        : m_prefix(keyPrefix), m_nextEntity(firstEntityId)
    {
    }

    QList<PlannedCategory> categories;

    QString key(const QString &suffix) const { return m_prefix + QLatin1Char(':') + suffix; }

    PlannedCategory &add(const QString &keySuffix, const QString &parentNodeKey, const QString &name,
                         Pool pool = Pool::None, int weight = 0)
    {
        PlannedCategory c;
        c.spec.key = key(keySuffix);
        c.spec.parentKey = parentNodeKey;
        c.spec.name = name;
        c.pool = pool;
        c.weight = weight;
        categories << c;
        return categories.last();
    }

    qint32 nextEntityId() { return m_nextEntity++; }

    /// The entity branch under the root: network, regions, one controller per technology in each
    /// region, then sites of up to three cells dealt out round robin until exactly `budget`
    /// categories are planned (at least 1 + 5 regions' worth).
    void addEntities(const QString &rootKey, qint64 budget)
    {
        const qint64 regionCount = qBound<qint64>(1, qMin(budget / 60, (budget - 1) / 5), MaxRegions);
        const qsizetype controllerCount = qsizetype(regionCount) * qsizetype(std::size(Controllers));
        // cellsOfSites[c]: the cell count of every site of controller c.
        QList<QList<int>> cellsOfSites(controllerCount);
        qint64 left = budget - 1 - regionCount - controllerCount;
        for (qsizetype c = 0; left > 0; c = (c + 1) % controllerCount) {
            const int cells = int(qMin<qint64>(CellsPerSite, left - 1));
            cellsOfSites[c] << cells;
            left -= 1 + cells;
        }

        PlannedCategory &network = add(QStringLiteral("NET"), rootKey, QStringLiteral("Network"), Pool::Kpi, 1);
        network.spec.nodeKey = EntitiesNode;
        network.spec.entityId = nextEntityId();
        for (qsizetype r = 0; r < regionCount; ++r) {
            const QString region = Regions[r];
            PlannedCategory &regionCategory = addEntity(EntitiesNode, region, Pool::Kpi, 1, QString());
            const QString regionKey = regionCategory.spec.key;
            for (qsizetype k = 0; k < qsizetype(std::size(Controllers)); ++k) {
                const ControllerKind &kind = Controllers[k];
                const QString code = QLatin1String(kind.code);
                const QString controllerKey =
                    addEntity(regionKey, QStringLiteral("%1 %2").arg(QLatin1String(kind.label), region), kind.node,
                              2, code).spec.key;
                const QList<int> &sites = cellsOfSites[r * qsizetype(std::size(Controllers)) + k];
                for (qsizetype s = 0; s < sites.size(); ++s) {
                    const QString site = QStringLiteral("%1-%2-%3")
                                             .arg(region.left(2).toUpper(), code)
                                             .arg(s + 1, 3, 10, QLatin1Char('0'));
                    const QString siteKey =
                        addEntity(controllerKey, QStringLiteral("Site %1").arg(site), kind.site, 1, code).spec.key;
                    for (int cell = 0; cell < sites[s]; ++cell) {
                        addEntity(siteKey, QStringLiteral("Cell %1-%2").arg(site, QChar::fromLatin1(CellSectors[cell])),
                                  kind.cell, 3, code).mixIn = true;
                    }
                }
            }
        }
    }

private:
    PlannedCategory &addEntity(const QString &parentKey, const QString &name, Pool pool, int weight,
                               const QString &code)
    {
        const qint32 entityId = nextEntityId();
        PlannedCategory &c = add(QStringLiteral("E%1").arg(entityId), parentKey, name, pool, weight);
        c.spec.entityId = entityId;
        c.techCode = code;
        return c;
    }

    QString m_prefix;
    qint32 m_nextEntity;
};

/// The generic branch of the reporting application: system fields, scenario and transport data,
/// the radio and core measurement families, expressions and user-defined calculations.
void addReportsGeneric(Planner &p, const QString &rootKey)
{
    const QString generic = genericLabel();
    p.add(QStringLiteral("GEN"), rootKey, QStringLiteral("Generic")).spec.nodeKey = generic;
    p.add(QStringLiteral("SYS"), generic, QStringLiteral("SYSTEM"), Pool::System).fixedList = true;
    PlannedCategory &scenario = p.add(QStringLiteral("SCN"), generic, QStringLiteral("Scenario Data"), Pool::Scenario);
    scenario.fixedList = true;
    scenario.spec.rcvFormName = ScenarioForm;
    PlannedCategory &transport = p.add(QStringLiteral("TRN"), generic, QStringLiteral("Transport"), Pool::Transport);
    transport.fixedList = true;
    transport.spec.rcvFormName = TransportForm;

    const QString radio = p.add(QStringLiteral("RAN"), generic, QStringLiteral("Radio Access")).spec.key;
    p.add(QStringLiteral("RAN.G"), radio, QStringLiteral("GSM Cell"), Pool::GsmCell, 2);
    p.add(QStringLiteral("RAN.U"), radio, QStringLiteral("UMTS Cell"), Pool::UmtsCell, 2);
    const QString lte = p.add(QStringLiteral("RAN.L"), radio, QStringLiteral("LTE")).spec.key;
    p.add(QStringLiteral("RAN.L.CELL"), lte, QStringLiteral("E-UTRAN Cell"), Pool::LteCell, 3);
    p.add(QStringLiteral("RAN.L.REL"), lte, QStringLiteral("E-UTRAN Relation"), Pool::LteRelation, 1);
    const QString nr = p.add(QStringLiteral("RAN.N"), radio, QStringLiteral("NR")).spec.key;
    p.add(QStringLiteral("RAN.N.DU"), nr, QStringLiteral("NR Cell DU"), Pool::NrCellDu, 3);
    p.add(QStringLiteral("RAN.N.CU"), nr, QStringLiteral("NR Cell CU"), Pool::NrCellCu, 3);
    p.add(QStringLiteral("RAN.N.BEAM"), nr, QStringLiteral("Beam"), Pool::NrBeam, 1);
    p.add(QStringLiteral("RAN.N.REL"), nr, QStringLiteral("NR Relations"), Pool::NrRelation, 1);
    p.add(QStringLiteral("RAN.N.UP"), nr, QStringLiteral("gNB-CU-UP"), Pool::NrNode, 1);

    const QString core = p.add(QStringLiteral("5GC"), generic, QStringLiteral("5G Core")).spec.key;
    p.add(QStringLiteral("5GC.AMF"), core, QStringLiteral("AMF"), Pool::Amf, 1);
    p.add(QStringLiteral("5GC.SMF"), core, QStringLiteral("SMF"), Pool::Smf, 1);
    p.add(QStringLiteral("5GC.UPF"), core, QStringLiteral("UPF"), Pool::Upf, 1);
    p.add(QStringLiteral("5GC.PCF"), core, QStringLiteral("PCF"), Pool::Pcf, 1);
    p.add(QStringLiteral("5GC.NF"), core, QStringLiteral("Common NF"), Pool::CommonNf, 1);

    p.add(QStringLiteral("KPI"), generic, QStringLiteral("KPIs"), Pool::Kpi, 2);
    p.add(QStringLiteral("UDC"), generic, QStringLiteral("User-Defined Calculations"), Pool::Udc, 2);
}

/// The busy-hour application keeps a smaller generic branch: what a busy-hour pick draws on.
void addBusyHourGeneric(Planner &p, const QString &rootKey)
{
    const QString generic = genericLabel();
    p.add(QStringLiteral("GEN"), rootKey, QStringLiteral("Generic")).spec.nodeKey = generic;
    p.add(QStringLiteral("SYS"), generic, QStringLiteral("SYSTEM"), Pool::System).fixedList = true;
    p.add(QStringLiteral("KPI"), generic, QStringLiteral("Busy Hour KPIs"), Pool::Kpi, 2);
    p.add(QStringLiteral("TRF"), generic, QStringLiteral("Traffic"), Pool::LteCell, 2);
    p.add(QStringLiteral("UDC"), generic, QStringLiteral("User-Defined Calculations"), Pool::Udc, 1);
}

struct PlannedApp
{
    QString name;
    QList<PlannedCategory> categories;
    bool busyHour = false;
};

// Categories outside the entity branch, per application (root and generic branch included).
constexpr qint64 ReportsFixedCategories = 25;
constexpr qint64 BusyHourFixedCategories = 6;
constexpr qint64 SmallestEntityBranch = 6;

QList<PlannedApp> planApps(qint64 categoryBudget)
{
    const qint64 fixed = ReportsFixedCategories + BusyHourFixedCategories;
    const qint64 entities = qMax(categoryBudget - fixed, 2 * SmallestEntityBranch);
    // Three quarters of the entity categories belong to reporting, the rest to busy-hour picks.
    const qint64 reportsEntities = qMax(SmallestEntityBranch, entities * 3 / 4);
    const qint64 busyEntities = qMax(SmallestEntityBranch, entities - reportsEntities);

    QList<PlannedApp> apps;
    for (const auto &[name, prefix, firstEntity, budget] :
         {std::tuple{ReportsApp, QStringLiteral("RPT"), 1, reportsEntities},
          std::tuple{BusyHourApp, QStringLiteral("BH"), 1000001, busyEntities}}) {
        Planner p(prefix, firstEntity);
        const QString rootKey = p.add(QStringLiteral("ROOT"), QString(), name).spec.key;
        p.addEntities(rootKey, budget);
        if (name == ReportsApp)
            addReportsGeneric(p, rootKey);
        else
            addBusyHourGeneric(p, rootKey);
        apps << PlannedApp{name, p.categories, name == BusyHourApp};
    }
    return apps;
}

/// Gives every category its number of fields so that they add up to `total`: lists that stand
/// once (system, scenario, transport) first, the rest by weight, remainders to the first ones.
void allotFields(QList<PlannedApp> &apps, const Sources &sources, qint64 total)
{
    qint64 left = total;
    qint64 weights = 0;
    for (PlannedApp &app : apps) {
        for (PlannedCategory &c : app.categories) {
            if (c.fixedList) {
                c.fieldCount = qMin<qint64>(sources.pool(c.pool).size(), qMax<qint64>(1, total / 100));
                c.fieldCount = qMin(c.fieldCount, left);
                left -= c.fieldCount;
            }
            weights += c.weight;
        }
    }
    qint64 given = 0;
    for (PlannedApp &app : apps) {
        for (PlannedCategory &c : app.categories) {
            if (c.weight > 0) {
                c.fieldCount = left * c.weight / weights;
                given += c.fieldCount;
            }
        }
    }
    for (PlannedApp &app : apps) {
        for (PlannedCategory &c : app.categories) {
            if (c.weight > 0 && given < left) {
                ++c.fieldCount;
                ++given;
            }
        }
    }
}

// ---- writing -------------------------------------------------------------------------------

class FieldWriter
{
public:
    FieldWriter(SqlCatalogBuilder &builder, const Sources &sources, quint32 seed)
        : m_builder(builder), m_sources(sources), m_random(seed)
    {
    }

    void writeCategory(const PlannedCategory &c, qint64 categoryIndex, bool busyHourApp)
    {
        const QList<FieldTemplate> kpis = m_sources.kpisFor(c.techCode);
        const QList<FieldTemplate> &pool = c.pool == Pool::Kpi ? kpis : m_sources.pool(c.pool);
        const QList<FieldTemplate> &own = pool.isEmpty() ? kpis : pool;
        const qint64 start = own.isEmpty() ? 0 : (categoryIndex * 7) % own.size();
        for (qint64 i = 0; i < c.fieldCount; ++i) {
            FieldSpec field;
            field.id = ++m_lastId;
            field.categoryKey = c.spec.key;
            if (c.pool == Pool::Udc || (c.mixIn && i % 15 == 14)) {
                fillUdc(field, i);
            } else if (c.mixIn && i % 10 == 9) {
                fillFrom(field, kpis, i / 10, kpis.size());
            } else {
                fillFrom(field, own, start + i, own.size());
            }
            // Most busy-hour picks are made from traffic fields; the busy-hour application marks more.
            if (busyHourApp && field.typeCode == Counter && m_random() % 2 == 0)
                field.busyHour = true;
            m_builder.addField(field);
            if (!c.spec.rcvFormName.isEmpty())
                m_builder.addRcvField(c.spec.rcvFormName, field.name, field.id);
        }
    }

    qint32 lastId() const { return m_lastId; }

private:
    void fillFrom(FieldSpec &field, const QList<FieldTemplate> &pool, qint64 index, qsizetype size)
    {
        const FieldTemplate &t = pool[index % size];
        const qint64 round = index / size;
        field.name = round == 0 ? t.name : RepeatedName.arg(t.name).arg(round + 1);
        field.typeCode = t.typeCode;
        field.ownerId = AdminId;
        field.techMask = t.techMask;
        field.busyHour = t.busyHour;
        field.expression = t.typeCode != Counter;
        field.validationStatus = t.validationStatus;
        field.description = t.description;
        field.unit = t.unit;
    }

    void fillUdc(FieldSpec &field, qint64 index)
    {
        const UdcTemplate &t = udcTemplate(index + qint64(m_random() % udcTemplateCount()));
        const qint32 owner = UdcOwners[m_random() % std::size(UdcOwners)];
        const QString ownerName = Users[owner - 1].name;
        field.name = UdcName.arg(QLatin1String(t.name), ownerName);
        if (index >= udcTemplateCount())
            field.name = RepeatedName.arg(field.name).arg(index / udcTemplateCount() + 1);
        field.typeCode = UserCalculation;
        field.ownerId = owner;
        field.techMask = MasksOfUdcs[m_random() % std::size(MasksOfUdcs)];
        field.busyHour = m_random() % 3 == 0;
        field.expression = true;
        // Users save drafts: some calculations were never validated.
        field.validationStatus = m_random() % 5 == 0 ? NotValidated : Valid;
        field.description = UdcDescription.arg(ownerName, QLatin1String(t.formula));
        field.unit = QLatin1String(t.unit);
    }

    static inline const QString MasksOfUdcs[] = {
        QStringLiteral("L"), QStringLiteral("N"), QStringLiteral("LN"), QStringLiteral("GUL"), QStringLiteral("GULN"),
    };

    SqlCatalogBuilder &m_builder;
    const Sources &m_sources;
    std::mt19937 m_random;
    qint32 m_lastId = 0;
};

QStringList splitList(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char(','));
}

} // namespace

SampleSummary writeSampleCatalog(SqlCatalogBuilder &builder, const SampleOptions &options)
{
    const Sources sources(options);
    QList<PlannedApp> apps = planApps(options.categories);
    allotFields(apps, sources, options.fields);

    for (const UserSpec &user : Users)
        builder.addUser(user);
    for (const Technology &t : Technologies)
        builder.addTechnology(QLatin1String(t.name), QLatin1String(t.code), t.bit);
    for (const FieldType &t : FieldTypes)
        builder.addFieldType(QLatin1String(t.code), QLatin1String(t.name));

    SampleSummary summary;
    for (const PlannedApp &app : apps) {
        builder.addApplication(app.name);
        for (const PlannedCategory &c : app.categories)
            builder.addCategory(c.spec);
        summary.categories += app.categories.size();
    }

    builder.addRcvForm(ScenarioForm, QStringLiteral("Scenario Data"));
    builder.addRcvForm(TransportForm, QStringLiteral("Transport"));
    FieldWriter writer(builder, sources, options.seed);
    qint64 index = 0;
    for (const PlannedApp &app : apps) {
        for (const PlannedCategory &c : app.categories)
            writer.writeCategory(c, index++, app.busyHour);
    }
    summary.fields = writer.lastId();

    for (const EnumList &list : EnumLists)
        builder.addEnumList(QLatin1String(list.title), splitList(list.names), splitList(list.codes));
    builder.setProperty(FullRowSelection, true);
    builder.setProperty(WarnOnMultipleTechTypes, true);
    return summary;
}
