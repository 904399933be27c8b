#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <PickerCtl/Fields.h>

#include <QString>

#include <vector>

namespace PickerCtl::fieldpicker {

/// The seven values every field of the list is asked about, exactly as the host set them.
struct FieldFilterValues
{
    QString tech;
    QString fieldType;
    QString owner;
    QString name;
    bool useForBusyHour = false;
    QString rcvForm;
    QString rcvField;

    friend bool operator==(const FieldFilterValues &, const FieldFilterValues &) = default;
};

/// The fields of source, in its order, that pass the filter values (Field::PassesFilter). Every
/// empty filter lets every field through, so with no filter at all the result is a copy of source.
PICKERCTL_AUTOTEST_EXPORT FieldsPtr filterPass(const Fields &source, const FieldFilterValues &values);

/// True when every field that passes `to` also passes `from`: only the name filter differs and
/// the new one extends the old one. A name filter matches a run of the name, "*" and "?" standing
/// for any run and any one character; whatever matches the longer pattern contains a match of its
/// beginning, so the longer pattern never lets through a field that the shorter one kept out.
PICKERCTL_AUTOTEST_EXPORT bool narrows(const FieldFilterValues &from, const FieldFilterValues &to);

/**
 * The filter pass of the list with a memory of its last runs over the same source. While the user
 * types a name filter each new character only narrows an earlier result, so the pass looks again
 * only at the fields that passed before; a character taken back finds its earlier result again.
 */
class PICKERCTL_AUTOTEST_EXPORT NarrowingFilterPass
{
public:
    /// The passing fields of source; from an earlier result when that is safe, else a full pass.
    FieldsPtr run(const FieldsPtr &source, const FieldFilterValues &values);
    /// Forgets the earlier results: the catalogue changed fields in place (an owner, a name).
    void invalidate();

private:
    struct Step
    {
        FieldFilterValues values;
        // The list shows a result by reference and may append to it; a result that changed size
        // since is not used again.
        FieldsPtr result;
        qsizetype resultSize = 0;

        bool intact() const { return result && result->size() == resultSize; }
    };

    FieldsPtr m_source;
    qsizetype m_sourceSize = 0;
    std::vector<Step> m_steps;
};

} // namespace PickerCtl::fieldpicker
