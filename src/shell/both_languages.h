// A text with a Russian and an English form.
#pragma once

#include <string_view>

#include "session/app_state.h"
#include "text/text.h"

namespace parlorwire {

struct BothLanguages {
  std::string_view russian;
  std::string_view english;

  constexpr std::string_view In(UiLanguage language) const {
    return language == UiLanguage::kEnglish ? english : russian;
  }
};

// The text of a control, which bears the name `control`.
struct ControlText {
  std::string_view control;
  BothLanguages text;
};

}  // namespace parlorwire
