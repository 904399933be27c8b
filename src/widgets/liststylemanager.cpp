#include <PickerCtl/ListStyleManager.h>

#include "widgets/fieldlisticons.h"

namespace PickerCtl {

namespace {

const QString kValidStatusCode = QStringLiteral("V");

} // namespace

ListRowColors::~ListRowColors() = default;
ListFontProvider::~ListFontProvider() = default;
ListIconProvider::~ListIconProvider() = default;

// No colour of its own: the list bands every second row with its palette's AlternateBase, which
// stays readable under a dark palette as well as a light one.
ListStyleManager::ListStyleManager() = default;

ListStyleManager::~ListStyleManager() = default;

QBrush ListStyleManager::RowBackground(qsizetype row, const Field &field) const
{
    Q_UNUSED(field);
    if (!m_alternate.isValid() || row % 2 == 0)
        return QBrush(Qt::NoBrush);
    return QBrush(m_alternate);
}

QFont ListStyleManager::ItemFont(const Field &field, const QFont &listFont) const
{
    QFont font = listFont;
    // An expression that is not validated may fail in a report; the italic warns before it is used.
    if (field.IsExpression() && field.ValidationStatus() != kValidStatusCode)
        font.setItalic(true);
    return font;
}

QIcon ListStyleManager::ItemIcon(const Field &field, bool large) const
{
    Q_UNUSED(large);
    return fieldKindIcon(fieldKindOf(field));
}

QColor ListStyleManager::AlternateColor() const
{
    return m_alternate;
}

void ListStyleManager::setAlternateColor(const QColor &color)
{
    m_alternate = color;
}

} // namespace PickerCtl
