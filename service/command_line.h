// The command line of the service. HelpText() tells what each option means.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "service/server.h"

namespace parlorwire::service {

struct CommandLine {
  ServerOptions options;
  bool help = false;
};

// The arguments without the program's name, in UTF-8; a value stands behind its option, or behind
// "=". The string tells what is wrong with them. With --help what the others say counts for
// nothing.
std::variant<CommandLine, std::string> ReadCommandLine(std::span<const char* const> arguments);

// What --help prints.
std::string_view HelpText();

}  // namespace parlorwire::service
