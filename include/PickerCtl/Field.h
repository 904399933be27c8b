#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <memory>

namespace PickerCtl {

/// One field of the catalogue: a counter, a calculated expression or a user-defined calculation (UDC).
class PICKERCTL_EXPORT Field
{
public:
    virtual ~Field();

    /// The field's id, as FieldCatalog::GetField and the selection by id take it.
    virtual qint32 Id() const = 0;
    /// Name of the category that holds the field.
    virtual QString CategoryName() const = 0;
    /// The field's name as shown to the user.
    virtual QString Name() const = 0;
    /// The field's key in any Fields collection.
    virtual QString Key() const = 0;
    /// Id of the user who owns the field.
    virtual qint32 OwnerId() const = 0;

    /**
     * True when the field is to be shown under these filters. Every filter that is empty (or false)
     * lets every field through; the rules of the catalogue implementations are:
     * - techFilter: a technology mask. The field passes when one catalogue technology code that occurs
     *   in the filter also occurs in the field's mask (case-sensitive substring tests, as masks are
     *   built). A filter holding no known code passes the fields whose mask contains it as a substring.
     * - fieldTypeFilter: one field-type code, or several joined by ","; exact, case-sensitive.
     * - ownerFilter: a whole number is an owner id; any other text is an owner name, compared
     *   case-insensitively.
     * - nameFilter: a case-insensitive substring of the name, in which "*" stands for any run of
     *   characters and "?" for one character. Every other character, regular-expression
     *   metacharacters, quotes and SQL included, is plain text.
     * - useForBusyHour: true keeps only fields marked for busy-hour use.
     * - rcvFormFilter / rcvFieldFilter: see the implementation's documentation (MemoryCatalog.h).
     */
    virtual bool PassesFilter(const QString &techFilter, const QString &fieldTypeFilter,
                              const QString &ownerFilter, const QString &nameFilter,
                              bool useForBusyHour, const QString &rcvFormFilter,
                              const QString &rcvFieldFilter) const = 0;

    /// The technologies of the field as a technology mask (codes concatenated in catalogue order).
    virtual QString TechMask() const = 0;
    /// The field-type code ("CNT" counter, "EXP" calculated expression, "UDC" user-defined calculation).
    virtual QString FieldTypeCode() const = 0;
    /// True for calculated expressions and UDCs.
    virtual bool IsExpression() const = 0;
    /// Validation status of an expression; "V" means valid.
    virtual QString ValidationStatus() const = 0;
    /// True when the field may be used for a busy-hour pick.
    virtual bool UseForBusyHour() const = 0;
    /// Name of the owning user.
    virtual QString OwnerName() const = 0;
    virtual QString Description() const = 0;
    virtual QString Unit() const = 0;
};

using FieldPtr = std::shared_ptr<Field>;

} // namespace PickerCtl
