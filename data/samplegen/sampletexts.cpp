#include "sampletexts.h"

#include <QHash>
#include <QRegularExpression>

namespace {

const QHash<QString, QString> &families()
{
    static const QHash<QString, QString> table = {
        {QStringLiteral("DRB"), QStringLiteral("Data radio bearer")},
        {QStringLiteral("RRC"), QStringLiteral("RRC connection")},
        {QStringLiteral("RRU"), QStringLiteral("Radio resource utilisation")},
        {QStringLiteral("HO"), QStringLiteral("Handover")},
        {QStringLiteral("ERAB"), QStringLiteral("E-RAB")},
        {QStringLiteral("QF"), QStringLiteral("QoS flow")},
        {QStringLiteral("UECNTX"), QStringLiteral("UE context")},
        {QStringLiteral("CARR"), QStringLiteral("Carrier")},
        {QStringLiteral("L1M"), QStringLiteral("Layer 1 measurement")},
        {QStringLiteral("PEE"), QStringLiteral("Power, energy and environment")},
        {QStringLiteral("TB"), QStringLiteral("Transport block")},
        {QStringLiteral("MR"), QStringLiteral("Measurement report")},
        {QStringLiteral("PAG"), QStringLiteral("Paging")},
        {QStringLiteral("RACH"), QStringLiteral("Random access")},
        {QStringLiteral("S1SIG"), QStringLiteral("S1 signalling")},
        {QStringLiteral("GTP"), QStringLiteral("GTP tunnel")},
        {QStringLiteral("VR"), QStringLiteral("Virtualised resource")},
        {QStringLiteral("SM"), QStringLiteral("Session management")},
        {QStringLiteral("RM"), QStringLiteral("Registration management")},
        {QStringLiteral("MM"), QStringLiteral("Mobility management")},
        {QStringLiteral("fivegs"), QStringLiteral("5G core")},
    };
    return table;
}

const QHash<QString, QString> &words()
{
    static const QHash<QString, QString> table = {
        {QStringLiteral("Dl"), QStringLiteral("downlink")}, {QStringLiteral("Ul"), QStringLiteral("uplink")},
        {QStringLiteral("Succ"), QStringLiteral("successes")}, {QStringLiteral("Att"), QStringLiteral("attempts")},
        {QStringLiteral("Nbr"), QStringLiteral("number")}, {QStringLiteral("Estab"), QStringLiteral("establishment")},
        {QStringLiteral("Conn"), QStringLiteral("connection")}, {QStringLiteral("Thp"), QStringLiteral("throughput")},
        {QStringLiteral("Vol"), QStringLiteral("volume")}, {QStringLiteral("If"), QStringLiteral("interface")},
        {QStringLiteral("Freq"), QStringLiteral("frequency")}, {QStringLiteral("Meas"), QStringLiteral("measurement")},
        {QStringLiteral("Init"), QStringLiteral("initial")}, {QStringLiteral("Mod"), QStringLiteral("modification")},
        {QStringLiteral("Rel"), QStringLiteral("release")}, {QStringLiteral("Req"), QStringLiteral("requests")},
        {QStringLiteral("Dist"), QStringLiteral("distribution")}, {QStringLiteral("Max"), QStringLiteral("maximum")},
        {QStringLiteral("Min"), QStringLiteral("minimum")}, {QStringLiteral("Avg"), QStringLiteral("average")},
        {QStringLiteral("Mean"), QStringLiteral("mean")}, {QStringLiteral("Cause"), QStringLiteral("per cause")},
        {QStringLiteral("QCI"), QStringLiteral("per QCI")}, {QStringLiteral("Qos"), QStringLiteral("QoS")},
        {QStringLiteral("Prep"), QStringLiteral("preparation")}, {QStringLiteral("Exe"), QStringLiteral("execution")},
        {QStringLiteral("Out"), QStringLiteral("outgoing")}, {QStringLiteral("Inc"), QStringLiteral("incoming")},
        {QStringLiteral("Fail"), QStringLiteral("failures")}, {QStringLiteral("Usage"), QStringLiteral("usage")},
        {QStringLiteral("Ip"), QStringLiteral("IP")}, {QStringLiteral("IP"), QStringLiteral("IP")},
        {QStringLiteral("Lat"), QStringLiteral("latency")}, {QStringLiteral("Sess"), QStringLiteral("session")},
    };
    return table;
}

// "AirIfDelayDl" -> "air interface delay downlink"; runs of capitals stay acronyms ("PRB", "UE").
QString spellOut(const QString &token)
{
    static const QRegularExpression parts(QStringLiteral("[A-Z]+(?![a-z])|[A-Z]?[a-z]+|[0-9]+"));
    QStringList out;
    auto it = parts.globalMatch(token);
    while (it.hasNext()) {
        const QString part = it.next().captured(0);
        const auto known = words().constFind(part);
        if (known != words().constEnd())
            out << known.value();
        else if (part.size() > 1 && part == part.toUpper())
            out << part;
        else
            out << part.toLower();
    }
    return out.join(QLatin1Char(' '));
}

const BuiltInCounter GsmCell[] = {
    {"TCH Assignment Attempts", "", "Traffic channel assignments requested in the cell"},
    {"TCH Assignment Successes", "", "Traffic channel assignments completed in the cell"},
    {"TCH Drops", "", "Calls lost on a traffic channel after assignment"},
    {"TCH Traffic", "Erl", "Carried traffic on traffic channels"},
    {"SDCCH Attempts", "", "Signalling channel seizure attempts"},
    {"SDCCH Drops", "", "Signalling channel connections lost"},
    {"SDCCH Congestion Time", "s", "Time during which no signalling channel was free"},
    {"Handover Out Attempts", "", "Outgoing handovers started"},
    {"Handover Out Successes", "", "Outgoing handovers completed"},
    {"Paging Requests", "", "Paging messages sent in the cell"},
    {"GPRS Downlink Volume", "kbit", "Packet data sent to mobiles"},
    {"GPRS Uplink Volume", "kbit", "Packet data received from mobiles"},
};

const BuiltInCounter GsmController[] = {
    {"BSC Processor Load", "%", "Mean load of the controller's processors"},
    {"Abis Link Utilisation", "%", "Mean use of the links to the base stations"},
    {"A Interface Call Setups", "", "Call set-ups towards the core network"},
    {"Location Updates", "", "Location updates handled"},
};

const BuiltInCounter UmtsCell[] = {
    {"RRC Setup Attempts", "", "RRC connection set-ups requested"},
    {"RRC Setup Successes", "", "RRC connection set-ups completed"},
    {"RAB Setup Attempts CS", "", "Circuit-switched radio access bearer set-ups requested"},
    {"RAB Setup Successes CS", "", "Circuit-switched radio access bearer set-ups completed"},
    {"RAB Setup Attempts PS", "", "Packet-switched radio access bearer set-ups requested"},
    {"RAB Setup Successes PS", "", "Packet-switched radio access bearer set-ups completed"},
    {"RAB Abnormal Releases", "", "Radio access bearers released by failure"},
    {"HSDPA Throughput", "kbps", "Mean HSDPA user throughput"},
    {"HSUPA Throughput", "kbps", "Mean HSUPA user throughput"},
    {"Soft Handover Attempts", "", "Soft handover branch additions requested"},
    {"Transmitted Carrier Power", "dBm", "Mean transmitted carrier power"},
    {"Received Total Wideband Power", "dBm", "Mean uplink interference level"},
};

const BuiltInCounter UmtsController[] = {
    {"RNC Processor Load", "%", "Mean load of the controller's processors"},
    {"Iub Link Utilisation", "%", "Mean use of the links to the NodeBs"},
    {"Iu-PS Throughput", "kbps", "Packet data towards the core network"},
    {"Iur Handover Attempts", "", "Handovers to cells of other controllers"},
};

const BuiltInCounter Transport[] = {
    {"IP Link Utilisation", "%", "Mean use of the IP transport link"},
    {"IP Link Peak Utilisation", "%", "Highest use of the IP transport link in the period"},
    {"Ethernet Frames Sent", "", "Frames sent on the transport interface"},
    {"Ethernet Frames Received", "", "Frames received on the transport interface"},
    {"Ethernet Frames Lost", "", "Frames lost on the transport interface"},
    {"Round Trip Time", "ms", "Mean round-trip time to the core network"},
    {"Packet Delay Variation", "ms", "Mean variation of the one-way delay"},
    {"Link Availability", "%", "Share of the period with the link in service"},
};

const BuiltInCounter Scenario[] = {
    {"Subscribers", "", "Subscribers planned for the area"},
    {"Busy Hour Traffic Forecast", "Erl", "Voice traffic expected in the busy hour"},
    {"Data Volume Forecast", "GB", "Data volume expected per day"},
    {"Planned Sites", "", "Sites in the roll-out plan"},
    {"Planned Cells", "", "Cells in the roll-out plan"},
    {"Coverage Target", "%", "Share of the area to be covered"},
    {"Population", "", "Inhabitants of the area"},
    {"Area", "km2", "Surface of the area"},
};

const BuiltInCounter System[] = {
    {"Date", "", "Day of the measurement period"},
    {"Hour", "", "Hour of the measurement period"},
    {"Period Duration", "min", "Length of the measurement period"},
    {"Network Element", "", "Name of the reporting network element"},
    {"Vendor", "", "Vendor of the reporting network element"},
    {"Record Count", "", "Number of records summarised"},
    {"Data Availability", "%", "Share of the expected records that arrived"},
    {"Cell State", "", "Administrative state of the cell"},
    {"Priority", "", "Priority given to the network element"},
};

const UdcTemplate Udcs[] = {
    {"Dropped Call Ratio", "100 * TCH Drops / TCH Assignment Successes", "%"},
    {"RRC Failure Ratio", "100 * (1 - RRC.ConnEstabSucc / RRC.ConnEstabAtt)", "%"},
    {"Downlink Volume per User", "DRB.IPVolDl / RRC.ConnMean", "kbit"},
    {"PRB Headroom", "100 - RRU.PrbUsedDl", "%"},
    {"Handover Success Ratio", "100 * HO.ExeSucc / HO.ExeAtt", "%"},
    {"Busy Hour Erlangs", "max(TCH Traffic)", "Erl"},
    {"Energy per Gigabyte", "PEE.Energy / (DRB.IPVolDl / 8000000)", "kWh"},
    {"Registration Success Ratio", "100 * fivegs_amffunction_rm_reginitsucc / fivegs_amffunction_rm_reginitreq", "%"},
    {"Peak Throughput Ratio", "DRB.UEThpDl / DRB.IPThpDl", ""},
    {"Paging Load", "PAG.DiscardedNbr / PAG.ReceivedNbr", ""},
};

template<typename T, qsizetype N>
BuiltInList listOf(const T (&items)[N])
{
    return {items, N};
}

} // namespace

QString describeCounter(const QString &name, const QString &objectClass)
{
    const QStringList tokens = name.split(QLatin1Char(name.contains(QLatin1Char('.')) ? '.' : '_'));
    const QString family = families().value(tokens.first(), tokens.first());
    QStringList rest;
    for (qsizetype i = 1; i < tokens.size(); ++i)
        rest << spellOut(tokens[i]);
    QString text = rest.isEmpty() ? family : family + QStringLiteral(": ") + rest.join(QLatin1Char(' '));
    if (!objectClass.isEmpty())
        text += QStringLiteral(" (per %1)").arg(QString(objectClass).replace(QLatin1Char('|'), QStringLiteral(" or ")));
    return text;
}

BuiltInList gsmCellCounters() { return listOf(GsmCell); }
BuiltInList gsmControllerCounters() { return listOf(GsmController); }
BuiltInList umtsCellCounters() { return listOf(UmtsCell); }
BuiltInList umtsControllerCounters() { return listOf(UmtsController); }
BuiltInList transportCounters() { return listOf(Transport); }
BuiltInList scenarioData() { return listOf(Scenario); }
BuiltInList systemFields() { return listOf(System); }
qsizetype udcTemplateCount() { return qsizetype(std::size(Udcs)); }
const UdcTemplate &udcTemplate(qsizetype index) { return Udcs[index % qsizetype(std::size(Udcs))]; }
