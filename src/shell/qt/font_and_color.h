// The dialogs behind the font and colour commands of the menu.
#pragma once

#include <optional>

#include "display/fonts.h"

class QWidget;

namespace parlorwire {

// The font dialog, opened with `font`. Nothing on cancel.
std::optional<ChosenFont> ChooseFontDialog(const ChosenFont& font, QWidget* owner);

// The colour dialog, opened with `colour`. Nothing on cancel.
std::optional<PaneColour> ChooseColorDialog(PaneColour colour, QWidget* owner);

}  // namespace parlorwire
