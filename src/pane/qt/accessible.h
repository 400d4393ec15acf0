// A pane for screen readers: its text, runs, caret, selection and places.
//
// Offsets are positions of the pane. So that they stay such, the CR of a line break reads as a
// blank, and a picture as one character that stands for an object.
#pragma once

#include <QString>

#include "pane/units.h"

namespace parlorwire {

class RichTextBox;

// Makes the toolkit's accessibility know this kind of view. May be called often.
void InstallPaneAccessibility();

// The text as a screen reader gets it, a character for each position; and a position as it counts.
QString AccessibleText(const RichTextBox& box, PaneRange range);
// The same as it is read out: a line that comes, or a character, word or line that is asked for.
// What a picture shows is to be heard, so it is its code there.
QString SpokenText(const RichTextBox& box, PaneRange range);
int AccessibleOffset(PanePosition position);

}  // namespace parlorwire
