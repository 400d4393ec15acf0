#include "shell/command_line.h"

#include <string_view>

#include "shell/version.h"

namespace parlorwire {
namespace {

constexpr std::string_view kHelp =
    R"(Usage: parlorwire

A desktop client for a web chat. All settings are made in its windows and kept
in the file config.ini: beside the program, or, if it is installed for all users,
in parlorwire in $XDG_DATA_HOME, or in ~/.local/share/parlorwire without that.

  --help       print this
  --version    print the version
)";

}  // namespace

std::optional<std::string> AnswerOnCommandLine(std::span<const char* const> arguments) {
  for (const std::string_view argument : arguments) {
    if (argument == "--help") return std::string(kHelp);
    if (argument == "--version") return "parlorwire " + std::string(kVersion) + "\n";
  }
  return std::nullopt;
}

}  // namespace parlorwire
