// The unit in which the program's windows and panes are measured.
#pragma once

namespace parlorwire {

inline constexpr int kTwipsPerPixel = 15;  // device-independent pixels

}  // namespace parlorwire
