// Nicks that look alike. All Windows-1251.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire::service {

// What is left of a nick for the eye: nicks with equal skeletons are one nick. Letters that look
// alike in one of their cases are the same here, whatever their alphabet, and so are "1", "l" and
// "i", and "0" and "o".
Text Skeleton(std::string_view nick);

// Whether no letters of two alphabets stand in it.
bool IsOfOneAlphabet(std::string_view nick);

}  // namespace parlorwire::service
