// A window that lies where it can be used. All measures are twips.
#pragma once

#include <vector>

#include "shell/client_main_layout.h"

namespace parlorwire {

// The place of a window with its frame and a title so high, on a desktop whose screens leave this
// room: not larger than its screen's room, and with enough of its title there to take hold of. A
// window that is so already keeps its place; another moves as little as it can, to lie wholly
// inside. Its screen is the one that has most of the title, else the nearest.
Place FitWindow(const Place& window, int title, const std::vector<Place>& rooms);

}  // namespace parlorwire
