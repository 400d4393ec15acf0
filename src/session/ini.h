// config.ini: every read and write goes to the file at once, nothing of it is held in memory.
#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// The largest file, in bytes, that is taken for settings. A larger one counts as unreadable.
inline constexpr std::int64_t kLargestConfigFile = std::int64_t{16} * 1024 * 1024;

// The value of a key, "" if there is none. A missing file is created empty; one that can't be read
// gives "".
Text ReadIni(Client& client, std::string_view section, std::string_view key);

// Lets waiting events run, then writes the key. Failures are ignored, and leave the file as it was.
void WriteIni(Client& client, std::string_view section, std::string_view key,
              std::string_view value);

}  // namespace parlorwire
