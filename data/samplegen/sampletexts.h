#pragma once

#include <QString>
#include <QStringList>

/// A short readable description of a measurement, made from its name and object class,
/// e.g. "DRB.AirIfDelayDl" of NRCellDU -> "Data radio bearer: air interface delay downlink (per NRCellDU)".
QString describeCounter(const QString &name, const QString &objectClass);

/// A measurement that the catalogue adds to those of the counter lists (technologies the lists lack,
/// transport, scenario data and the built-in system fields).
struct BuiltInCounter
{
    const char *name;
    const char *unit;
    const char *description;
};

struct BuiltInList
{
    const BuiltInCounter *items;
    qsizetype size;
};

BuiltInList gsmCellCounters();
BuiltInList gsmControllerCounters();
BuiltInList umtsCellCounters();
BuiltInList umtsControllerCounters();
BuiltInList transportCounters();
BuiltInList scenarioData();
BuiltInList systemFields();

/// Calculations that users write for themselves: a name and a formula.
struct UdcTemplate
{
    const char *name;
    const char *formula;
    const char *unit;
};

qsizetype udcTemplateCount();
/// The template at index modulo their number.
const UdcTemplate &udcTemplate(qsizetype index);
