#include "display/chat_log.h"

#include <cstddef>
#include <cstdint>

#include "session/client.h"
#include "session/fault_trap.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr const char* kLogs = "Logs";
constexpr std::size_t kMostTold = 100;  // channels a day

std::int64_t SizeOrZero(const Files& files, const Text& file) {
  std::int64_t size = 0;
  PassOverFault([&] { size = files.Size(file); });
  return size;
}

void WritePiece(Files& files, const Text& file, const Text& bytes) {
  if (!bytes.ends_with("\r\n")) {
    files.Append(file, bytes);
    return;
  }
  const std::int64_t last_byte = SizeOrZero(files, file);
  if (last_byte == 0)
    files.Append(file, "");  // opened, and nothing written
  else
    files.WriteAt(file, last_byte, bytes);
}

// Once for a channel and a day, however many pieces are lost.
void TellOfLostLog(Client& client, const Fault& fault, const Text& channel, const Text& day) {
  AppState& app = client.app;
  if (app.UnwritableDay != day) app.UnwritableLogs.clear();
  app.UnwritableDay = day;
  if (app.UnwritableLogs.size() < kMostTold && app.UnwritableLogs.insert(channel).second)
    LogFault(client, fault, ". Function: LogChatLine. Channel: " + DumpText(channel));
}

}  // namespace

void LogChatLine(Client& client, std::string_view piece, const Text& channel) {
  if (TrimView(channel).empty()) return;
  const Text day = DateText(client.platform.clock.Now());
  if (Contains(channel, "\\")) {  // no name of one folder
    TellOfLostLog(client, Fault(fault::kBadFileName), channel, day);
    return;
  }
  const Text folder = Text(kLogs) + "\\" + channel;
  const Text file = folder + "\\" + day + ".log";
  const Text bytes = Replace(piece, "\n", "\r\n");
  Files& files = client.platform.files;
  try {
    try {
      WritePiece(files, file, bytes);
    } catch (const Fault& fault) {
      if (fault.number != fault::kPathNotFound) throw;
      PassOverFault([&] { files.MakeFolder(kLogs); });
      PassOverFault([&] { files.MakeFolder(folder); });
      WritePiece(files, file, bytes);
    }
  } catch (const Fault& fault) {
    TellOfLostLog(client, fault, channel, day);
  }
}

}  // namespace parlorwire
