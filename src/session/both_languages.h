// A text with a Russian and an English form: how everything that changes with the language is said.
#pragma once

#include <string_view>

#include "platform/desktop.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

struct BothLanguages {
  std::string_view russian;
  std::string_view english;

  constexpr std::string_view In(UiLanguage language) const {
    return language == UiLanguage::kEnglish ? english : russian;
  }
};

// The form in the client's language: InLanguage(client, {W<"Отключено">, "Disconnected"}).
Text InLanguage(const Client& client, const BothLanguages& text);

}  // namespace parlorwire
