#include "session/error_log.h"

#include <string>

#include "session/client.h"
#include "session/fault_trap.h"

namespace parlorwire {
namespace {

constexpr const char* kErrorLog = "error.log";
constexpr std::int64_t kSizeLimit = 51000;  // above 50 whole thousands

}  // namespace

Text DumpText(std::string_view dumped) {
  Text dump(dumped.substr(0, kLargestDump));
  if (dumped.size() > kLargestDump)
    dump += "... (" + std::to_string(dumped.size()) + " bytes in all)";
  return dump;
}

void WriteErrorLog(Client& client, const Text& text) {
  const LocalTime now = client.platform.clock.Now();
  const Text entry = "[" + DateText(now) + " " + TimeText(now) + "] " + text + "\r\n";
  Files& files = client.platform.files;
  bool start_anew = false;
  try {
    start_anew = files.Size(kErrorLog) >= kSizeLimit;
  } catch (const Fault& fault) {
    start_anew = fault.number == fault::kFileNotFound;
  }
  PassOverFault([&] {
    if (start_anew)
      files.Replace(kErrorLog, entry);
    else
      files.Append(kErrorLog, entry);
  });
}

}  // namespace parlorwire
