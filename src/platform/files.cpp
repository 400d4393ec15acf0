#include "platform/files.h"

#include <algorithm>

#include "text/cut.h"

namespace parlorwire {

bool IsLegalFileName(std::string_view name) {
  const auto legal = [](std::string_view part) {
    const bool refused = part.empty() || part.ends_with(' ') || part.ends_with('.') ||
                         part.find_first_of("/:*?\"<>|") != std::string_view::npos;
    return !refused && std::none_of(part.begin(), part.end(), [](char c) {
      return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    });
  };
  const auto parts = Split(name, "\\");
  return !parts.empty() && std::all_of(parts.begin(), parts.end(), legal);
}

}  // namespace parlorwire
