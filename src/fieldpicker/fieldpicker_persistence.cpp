#include "fieldpicker/fieldpicker_p.h"

#include "fieldpicker/fieldpicker_keys.h"

#include <PickerCtl/HostSite.h>
#include <PickerCtl/PropertyBag.h>

#include <array>
#include <functional>

namespace PickerCtl {

using namespace fieldpicker::keys;

namespace {

constexpr bool DefaultCaptionVisible = true;
constexpr bool DefaultEnabled = true;
constexpr float DefaultIndentation = 150.2362f;
constexpr bool DefaultFullRowSelect = false;
constexpr float DefaultSplitterWidth = 64.0f;
constexpr float DefaultSplitterLeft = 3000.0f;
constexpr bool DefaultHideSelection = true;
constexpr bool DefaultUseForBusyHour = false;
constexpr bool DefaultMultiSelect = true;
constexpr auto DefaultCaption = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Entity Hierarchy");
constexpr bool DefaultAllowContextMenu = false;
constexpr bool DefaultAllowDragDrop = true;
constexpr bool DefaultAllowOpenMenu = false;
constexpr auto DefaultOpenMenuCaption = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Open Editor");
constexpr bool DefaultShowEntityFld = false;
constexpr bool DefaultShowAll = false;

/// One persisted property: how to put its default, read it from a bag and write it to one.
struct Persisted
{
    const char *key;
    std::function<void(XFieldPicker &)> putDefault;
    std::function<void(XFieldPicker &, PropertyBag &)> read;
    std::function<void(const XFieldPicker &, PropertyBag &)> write;
};

/// T is the type the value has in the bag; the default may depend on the host (ambient values),
/// so it is asked for at the moment of reading or writing.
template<class T>
Persisted persisted(const char *key, std::function<T(const XFieldPicker &)> get,
                    std::function<void(XFieldPicker &, const T &)> set,
                    std::function<T(const XFieldPicker &)> defaultValue)
{
    return Persisted{
        key,
        [set, defaultValue](XFieldPicker &picker) { set(picker, defaultValue(picker)); },
        [key, set, defaultValue](XFieldPicker &picker, PropertyBag &bag) {
            // A key that cannot be read, converted or applied keeps the current value.
            try {
                if (const std::optional<T> value = readAs<T>(bag, QLatin1String(key), defaultValue(picker)))
                    set(picker, *value);
            } catch (...) {
                // A host's bag may throw anything; the key keeps the current value all the same.
            }
        },
        [key, get, defaultValue](const XFieldPicker &picker, PropertyBag &bag) {
            bag.WriteProperty(QLatin1String(key), QVariant::fromValue(get(picker)),
                              QVariant::fromValue(defaultValue(picker)));
        }};
}

template<class T>
std::function<T(const XFieldPicker &)> fixed(T value)
{
    return [value](const XFieldPicker &) { return value; };
}

// A default caption is compared in the current language, so a caption left at it follows the language.
std::function<QString(const XFieldPicker &)> translatedText(const char *text)
{
    return [text](const XFieldPicker &) { return XFieldPicker::tr(text); };
}

template<class Enum>
Persisted persistedEnum(const char *key, Enum (XFieldPicker::*get)() const,
                        void (XFieldPicker::*set)(Enum), Enum defaultValue)
{
    return persisted<qint32>(
        key, [get](const XFieldPicker &p) { return qint32((p.*get)()); },
        [set](XFieldPicker &p, const qint32 &v) { (p.*set)(static_cast<Enum>(v)); },
        fixed(qint32(defaultValue)));
}

Persisted persistedFlag(const char *key, bool (XFieldPicker::*get)() const,
                        void (XFieldPicker::*set)(bool), bool defaultValue)
{
    return persisted<bool>(
        key, [get](const XFieldPicker &p) { return (p.*get)(); },
        [set](XFieldPicker &p, const bool &v) { (p.*set)(v); }, fixed(defaultValue));
}

Persisted persistedMeasure(const char *key, float (XFieldPicker::*get)() const,
                           void (XFieldPicker::*set)(float), float defaultValue)
{
    return persisted<float>(
        key, [get](const XFieldPicker &p) { return (p.*get)(); },
        [set](XFieldPicker &p, const float &v) { (p.*set)(v); }, fixed(defaultValue));
}

Persisted persistedText(const char *key, QString (XFieldPicker::*get)() const,
                        void (XFieldPicker::*set)(const QString &), const char *defaultValue)
{
    return persisted<QString>(
        key, [get](const XFieldPicker &p) { return (p.*get)(); },
        [set](XFieldPicker &p, const QString &v) { (p.*set)(v); }, translatedText(defaultValue));
}

// Colours travel as OLE colour numbers, 32-bit, like the enumerations.
Persisted persistedColor(const char *key, QColor (XFieldPicker::*get)() const,
                         void (XFieldPicker::*set)(const QColor &), QColor (HostSite::*ambient)() const)
{
    return persisted<qint32>(
        key, [get](const XFieldPicker &p) { return toOleColor((p.*get)()); },
        [set](XFieldPicker &p, const qint32 &v) { (p.*set)(fromOleColor(v)); },
        [ambient](const XFieldPicker &p) { return toOleColor((p.hostSite()->*ambient)()); });
}

Persisted persistedFont()
{
    return persisted<QFont>(
        KeyFont, [](const XFieldPicker &p) { return p.Font(); },
        [](XFieldPicker &p, const QFont &v) { p.setFont(v); },
        [](const XFieldPicker &p) { return p.hostSite()->AmbientFont(); });
}

const std::vector<Persisted> &persistedProperties()
{
    static const std::vector<Persisted> properties{
        persistedEnum(KeyTemplateView, &XFieldPicker::TemplateView, &XFieldPicker::setTemplateView,
                      tplTreeAndList),
        persistedFlag(KeyCaptionVisible, &XFieldPicker::CaptionVisible,
                      &XFieldPicker::setCaptionVisible, DefaultCaptionVisible),
        persistedColor(KeyBackColor, &XFieldPicker::BackColor, &XFieldPicker::setBackColor,
                       &HostSite::AmbientBackColor),
        persistedColor(KeyForeColor, &XFieldPicker::ForeColor, &XFieldPicker::setForeColor,
                       &HostSite::AmbientForeColor),
        persistedFont(),
        persistedFlag(KeyEnabled, &XFieldPicker::Enabled, &XFieldPicker::setEnabled, DefaultEnabled),
        persistedMeasure(KeyIndentation, &XFieldPicker::Indentation, &XFieldPicker::setIndentation,
                         DefaultIndentation),
        persistedFlag(KeyFullRowSelect, &XFieldPicker::FullRowSelect, &XFieldPicker::setFullRowSelect,
                      DefaultFullRowSelect),
        persistedMeasure(KeySplitterWidth, &XFieldPicker::SplitterWidth,
                         &XFieldPicker::setSplitterWidth, DefaultSplitterWidth),
        persistedMeasure(KeySplitterLeft, &XFieldPicker::SplitterLeft, &XFieldPicker::setSplitterLeft,
                         DefaultSplitterLeft),
        persistedFlag(KeyHideSelection, &XFieldPicker::HideSelection, &XFieldPicker::setHideSelection,
                      DefaultHideSelection),
        persistedFlag(KeyUseForBusyHour, &XFieldPicker::UseForBusyHour,
                      &XFieldPicker::setUseForBusyHour, DefaultUseForBusyHour),
        persistedFlag(KeyMultiSelect, &XFieldPicker::MultiSelect, &XFieldPicker::setMultiSelect,
                      DefaultMultiSelect),
        persistedText(KeyCaption, &XFieldPicker::Caption, &XFieldPicker::setCaption, DefaultCaption),
        persistedFlag(KeyContextMenu, &XFieldPicker::AllowContextMenu,
                      &XFieldPicker::setAllowContextMenu, DefaultAllowContextMenu),
        persistedFlag(KeyAllowDragDrop, &XFieldPicker::AllowDragDrop, &XFieldPicker::setAllowDragDrop,
                      DefaultAllowDragDrop),
        persistedFlag(KeyAllowOpenMenu, &XFieldPicker::AllowOpenMenu, &XFieldPicker::setAllowOpenMenu,
                      DefaultAllowOpenMenu),
        persistedText(KeyOpenMenuCaption, &XFieldPicker::OpenMenuCaption,
                      &XFieldPicker::setOpenMenuCaption, DefaultOpenMenuCaption),
        persistedEnum(KeyRootLabel, &XFieldPicker::RootLbl, &XFieldPicker::setRootLbl, tplEntities),
        persistedFlag(KeyShowEntityField, &XFieldPicker::ShowEntityFld, &XFieldPicker::setShowEntityFld,
                      DefaultShowEntityFld),
        persistedFlag(KeyShowAll, &XFieldPicker::ShowAll, &XFieldPicker::setShowAll, DefaultShowAll),
    };
    return properties;
}

const Persisted &persistedProperty(const char *key)
{
    for (const Persisted &property : persistedProperties()) {
        if (qstrcmp(property.key, key) == 0)
            return property;
    }
    Q_UNREACHABLE();
}

// Initialising and reading share one order; UseForBusyHour comes before MultiSelect so that a
// restored single-pick control is not turned back into a multiple pick by the rule of MultiSelect.
constexpr std::array ReadOrder{
    KeyTemplateView, KeyCaptionVisible, KeyBackColor,     KeyForeColor,     KeyFont,
    KeyEnabled,      KeyIndentation,    KeyFullRowSelect, KeySplitterWidth, KeySplitterLeft,
    KeyHideSelection, KeyUseForBusyHour, KeyMultiSelect,  KeyCaption,       KeyContextMenu,
    KeyAllowDragDrop, KeyAllowOpenMenu, KeyOpenMenuCaption, KeyRootLabel,   KeyShowEntityField,
    KeyShowAll,
};

// Differs from the read order in its first two entries and in the place of "RootLabel"; saved
// bags of existing hosts are written in this order.
constexpr std::array WriteOrder{
    KeyCaptionVisible, KeyTemplateView, KeyBackColor,     KeyForeColor,     KeyFont,
    KeyEnabled,        KeyIndentation,  KeyFullRowSelect, KeySplitterWidth, KeySplitterLeft,
    KeyHideSelection,  KeyUseForBusyHour, KeyMultiSelect, KeyCaption,       KeyContextMenu,
    KeyAllowDragDrop,  KeyRootLabel,    KeyAllowOpenMenu, KeyOpenMenuCaption, KeyShowEntityField,
    KeyShowAll,
};

} // namespace

void XFieldPicker::InitProperties()
{
    for (const char *key : ReadOrder)
        persistedProperty(key).putDefault(*this);
}

void XFieldPicker::ReadProperties(PropertyBag &bag)
{
    for (const char *key : ReadOrder)
        persistedProperty(key).read(*this, bag);
}

void XFieldPicker::WriteProperties(PropertyBag &bag) const
{
    for (const char *key : WriteOrder)
        persistedProperty(key).write(*this, bag);
}

} // namespace PickerCtl
