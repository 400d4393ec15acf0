// The text format of private profile files: sections of keys and values. Windows-1251, no escapes.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

// The value of a key in the text of such a file, at most buffer_size - 1 bytes of it; "" if there
// is none. Of several sections or keys of one name the first counts; names compare without case.
Text ReadProfileValue(std::string_view file, std::string_view section, std::string_view key,
                      std::size_t buffer_size);

// The text of the file with the key set. All other lines stay byte for byte.
Text WriteProfileValue(std::string_view file, std::string_view section, std::string_view key,
                       std::string_view value);

}  // namespace parlorwire
