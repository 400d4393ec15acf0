// The log of addresses: any file, and nicks logged in it. The parts of the input are separated by
// NULs: the file, and then a nick and an address in turn.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "bot/ip_log.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

using namespace parlorwire;

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4000) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const auto parts = Split(input, std::string_view("\0", 1));
  if (parts.empty()) return 0;
  SimulatedPlatform platform;
  Client client(platform.Ports());
  Text& file = platform.files.files["IPlog.log"];
  file = parts[0];
  LoadIpLog(client);
  const Text& log = client.app.IpLogText;
  Check(log == file);
  for (std::size_t i = 1; i + 1 < parts.size(); i += 2) {
    const Text nick(parts[i]);
    const Text address(parts[i + 1]);
    // No list gives such ones, but for an address with a CR, which may match the end of a line.
    if (nick.empty() || address.empty() || Contains(nick + address, "\n")) continue;
    const Text before = log;
    const bool was_there = Contains(before, address);
    const SeenBefore seen = LogNickAtAddress(client, nick, address);
    Check(seen.address == was_there);
    Check(file == log);
    Check(log.size() == before.size() + (seen.nick      ? 0
                                         : seen.address ? 1 + nick.size()
                                                        : 3 + address.size() + nick.size()));
    if (Contains(nick + address, "\r")) continue;
    Check(ContainsNoCase(log, nick) && Contains(log, address));
    if (Contains(address, " ")) continue;
    const Text then = log;
    Check(LogNickAtAddress(client, nick, address).nick);
    Check(log == then);
  }
  return 0;
}
