// A pane for screen readers: its text, runs, caret, selection and places.
//
// Offsets are positions of the pane. So that they stay such, the CR of a line break reads as a
// blank. Only a picture reads as its code, longer than its one position: what a picture shows is to
// be heard.
#pragma once

#include <QString>

#include "pane/units.h"

namespace parlorwire {

class RichTextBox;

// Makes the toolkit's accessibility know this kind of view. May be called often.
void InstallPaneAccessibility();

// The text as a screen reader gets it, and a position as it counts.
QString AccessibleText(const RichTextBox& box, PaneRange range);
int AccessibleOffset(PanePosition position);

}  // namespace parlorwire
