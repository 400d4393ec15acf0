// The dialogs behind the font and colour commands of the menu.
#pragma once

#include <QString>
#include <optional>

#include "display/fonts.h"

class QWidget;

namespace parlorwire {

// The font dialog, opened with `font`: it shows the family that the panes are painted with. What is
// not changed in it stays as it is in `font`. Nothing on cancel.
std::optional<ChosenFont> ChooseFontDialog(const ChosenFont& font, const QString& title,
                                           QWidget* owner);

// The colour dialog, opened with `colour`. Nothing on cancel.
std::optional<PaneColour> ChooseColorDialog(PaneColour colour, const QString& title,
                                            QWidget* owner);

}  // namespace parlorwire
