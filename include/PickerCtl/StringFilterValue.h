#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <memory>

namespace PickerCtl {

/// A text match filter: one expression and three match options.
class PICKERCTL_EXPORT StringFilterValue
{
public:
    QString Expression() const { return m_expression; }
    void setExpression(const QString &expression) { m_expression = expression; }
    bool UsePatternMatching() const { return m_pattern; }
    void setUsePatternMatching(bool on) { m_pattern = on; }
    bool MatchWholeName() const { return m_whole; }
    void setMatchWholeName(bool on) { m_whole = on; }
    bool MatchCase() const { return m_case; }
    void setMatchCase(bool on) { m_case = on; }

private:
    QString m_expression;
    bool m_pattern = false;
    bool m_whole = false;
    bool m_case = false;
};

using StringFilterValuePtr = std::shared_ptr<StringFilterValue>;

} // namespace PickerCtl
