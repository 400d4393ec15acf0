// What the program answers on the command line. It has no options but those that tell about it.
#pragma once

#include <optional>
#include <span>
#include <string>

namespace parlorwire {

// What "--help" or "--version" prints, in UTF-8 with its end of line; the first of them counts.
// Nothing if neither is among `arguments`, those behind the program's name: any other is for the
// toolkit, or for nobody.
std::optional<std::string> AnswerOnCommandLine(std::span<const char* const> arguments);

}  // namespace parlorwire
