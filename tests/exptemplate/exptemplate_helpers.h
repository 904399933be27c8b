#pragma once

#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/TemplateFields.h>
#include <PickerCtl/testing/CursorLog.h>
#include <PickerCtl/testing/ScriptedMessageService.h>
#include <PickerCtl/XExpTemplate.h>
#include <PickerCtl/XStaticList.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <memory>
#include <vector>

namespace TemplateTest {

inline const QString App = QStringLiteral("Reports");
inline const QString EmptyApp = QStringLiteral("Empty");
inline const QString WarnKey = QStringLiteral("Warn on Multiple TechTypes");

/**
 * The catalogue the template tests search, application "Reports":
 *
 *   Network (root)
 *   +- Cell      F1 "Cell Attempts"  CNT  mask "A"
 *   |            F2 "Cell Drops"     CNT  mask "B"
 *   |            F3 "Cell Load"      CNT  mask "AB"
 *   |            F4 "Drop Rate"      EXP  mask "A",  valid
 *   |            F5 "Bad Rate"       EXP  mask "A",  not validated
 *   |            F6 "Handover"       CNT  mask ""
 *   +- Traffic   F7 "Traffic Volume" CNT  mask "C"
 *                F8 "Traffic Errors" UDC  mask "C",  not validated
 *
 * Technologies "Tech A" (code A), "Tech B" (B), "Tech C" (C); field types CNT "Counter",
 * EXP "Expression", UDC "User Calculation". Application "Empty" has no categories.
 */
std::shared_ptr<PickerCtl::MemoryCatalog> makeCatalog();

/// Installs a catalogue, cursor-logging services and a scripted message box for a test's life.
class Services
{
public:
    explicit Services(std::shared_ptr<PickerCtl::MemoryCatalog> catalog = makeCatalog());
    ~Services();

    PickerCtl::MemoryCatalog &catalog() const { return *m_catalog; }
    PickerCtl::CursorLog &cursor() const { return *m_services->log(); }
    PickerCtl::ScriptedMessageService &messages() const { return *m_messages; }

private:
    std::shared_ptr<PickerCtl::MemoryCatalog> m_catalog;
    std::shared_ptr<PickerCtl::CursorLogServices> m_services;
    std::shared_ptr<PickerCtl::ScriptedMessageService> m_messages;
};

/// An editor loaded with category "Cell" and a template of the named fields, both lists' models under test.
struct Fixture
{
    explicit Fixture(const QString &templateNames);

    Services services;
    PickerCtl::XExpTemplate editor;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
};

/// Shows the editor at 900 x 500 and waits until it is exposed.
bool showEditor(PickerCtl::XExpTemplate &editor);

/// "A|B" as {"A", "B"}; the empty string as no names.
inline QStringList split(const QString &joined)
{
    return joined.isEmpty() ? QStringList() : joined.split(QLatin1Char('|'));
}

/// The named child of the editor; fails the test's QVERIFY when absent.
template<typename T>
T *child(const PickerCtl::XExpTemplate &editor, const char *name);

PickerCtl::XStaticList *available(const PickerCtl::XExpTemplate &editor);
PickerCtl::XStaticList *selected(const PickerCtl::XExpTemplate &editor);

/// The names of the list's fields in display order, joined by "|".
QString names(const PickerCtl::XStaticList &list);
/// Selects the fields with these names in the list (by key of the field found by name).
void selectByName(PickerCtl::XStaticList &list, const QStringList &fieldNames);

/// A template of the catalogue's fields with these names, each item with flag false and code "X".
PickerCtl::TemplateFieldsPtr templateOf(const PickerCtl::MemoryCatalog &catalog, const QStringList &fieldNames);
/// Names of the template's fields in order, joined by "|".
QString names(const PickerCtl::TemplateFieldsPtr &tplfs);

} // namespace TemplateTest

template<typename T>
T *TemplateTest::child(const PickerCtl::XExpTemplate &editor, const char *name)
{
    return editor.findChild<T *>(QLatin1String(name));
}
