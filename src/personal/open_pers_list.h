// OpenPersList: the open personal windows as a text, with an entry "login_handle" for each and
// blanks between. It is searched as plain text, without regard to case.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

// Whether a login stands in the list, be it as a part of another one.
bool IsListed(std::string_view list, std::string_view login);

// The handle in the first entry that the login stands in: what is behind the entry's first "_" that
// is no part of the login. No number: Fault 13, too large: Fault 6.
std::int32_t ListedHandle(std::string_view list, std::string_view login);

Text WithEntry(std::string_view list, std::string_view entry);

// Takes an entry out, and the blanks around it: its neighbours become one entry. See docs/names.md.
Text WithoutEntry(std::string_view list, std::string_view entry);

}  // namespace parlorwire
