// The text of a control, which changes with the language.
#pragma once

#include <string_view>

#include "session/both_languages.h"

namespace parlorwire {

struct ControlText {
  std::string_view control;  // its name
  BothLanguages text;
};

}  // namespace parlorwire
