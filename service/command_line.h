// The command line of the service.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>

#include "service/server.h"

namespace parlorwire::service {

struct CommandLine {
  ServerOptions options;
  bool help = false;
};

// The arguments without the program's name, in UTF-8. The string tells what is wrong with them.
std::variant<CommandLine, std::string> ReadCommandLine(std::span<const char* const> arguments);

// What --help prints.
std::string_view HelpText();

}  // namespace parlorwire::service
