#pragma once

#include <PickerCtl/pickerctl_export.h>

namespace PickerCtl::ExpTemplate {

/// The gap in twips between every two neighbours of the template editor.
inline constexpr float Gap = 105.0f;

/// A rectangle in twips; the layout never hands out a negative width or height.
struct TwipsBox
{
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    friend bool operator==(const TwipsBox &, const TwipsBox &) = default;
};

/// What one layout run reads, all in twips: the inner size W x H, the heights of the entity label
/// and of the list labels, the Find button's width, the add button's size and where the list
/// labels stand now (their row top).
struct LayoutInput
{
    float width = 0;
    float height = 0;
    float entityLabelHeight = 0;
    float applyWidth = 0;
    float buttonWidth = 0;
    float buttonHeight = 0;
    float listLabelTop = 0;
    float listLabelHeight = 0;
};

/**
 * Where one run puts the pieces. A criterion label gets only its left, a criterion box its left,
 * top and width, Find its left and a list label its left and width; what is not given keeps its
 * value. columnWidth is the raw column width C, negative when the control is narrower than four
 * gaps and the Find button: the positions go on with it, the widths are clamped at 0.
 */
struct Layout
{
    float columnWidth = 0;
    TwipsBox frame;
    float criterionLabelLeft[4] = {};  ///< lblEntity, lblTechTypes, lblFieldTypes, lblNameFilter
    TwipsBox criterionBox[4];          ///< cboEntityTypes, cboTechTypes, cboFieldTypes, txtNameFilter (height 0: kept)
    float applyLeft = 0;
    TwipsBox availableLabel;           ///< height 0: kept
    TwipsBox selectedLabel;            ///< height 0: kept
    TwipsBox availableList;
    TwipsBox selectedList;
    float buttonLeft = 0;
    float buttonTop[4] = {};           ///< cmdAdd, cmdRemove, cmdMoveUp, cmdMoveDown
};

/// The template editor's layout for one resize; never fails, whatever the sizes.
PICKERCTL_AUTOTEST_EXPORT Layout computeLayout(const LayoutInput &in);

} // namespace PickerCtl::ExpTemplate
