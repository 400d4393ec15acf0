// The colours of a window whose ground is the system's own, whatever theme the desktop has.
#pragma once

#include <QColor>
#include <QPalette>

namespace parlorwire {

// How far two colours are apart, from 1 to 21.
double Contrast(const QColor& a, const QColor& b);

// A whole palette derived from the ground, 0xRRGGBB: text, boxes, buttons, links and what is
// selected, with a contrast of 4.5 at least, of 3 where it is disabled. Of `desktop` only the
// colour of what is selected is taken. Every role is set, so a change of the desktop's theme
// changes nothing in a window that has it.
QPalette PaletteOn(const QPalette& desktop, unsigned ground);

}  // namespace parlorwire
