#include "display/chat_log.h"

#include <cstdint>

#include "session/client.h"
#include "session/fault_trap.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr const char* kLogs = "Logs";

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

}  // namespace

void LogChatLine(Client& client, std::string_view piece, const Text& channel) {
  if (TrimView(channel).empty()) return;
  if (Contains(channel, "\\")) return;  // no name of one folder
  const Text folder = Text(kLogs) + "\\" + channel;
  const Text file = folder + "\\" + DateText(client.platform.clock.Now()) + ".log";
  const Text bytes = Replace(piece, "\n", "\r\n");
  Files& files = client.platform.files;
  try {
    WritePiece(files, file, bytes);
  } catch (const Fault& fault) {
    if (fault.number != fault::kPathNotFound) return;
    PassOverFault([&] { files.MakeFolder(kLogs); });
    PassOverFault([&] { files.MakeFolder(folder); });
    PassOverFault([&] { WritePiece(files, file, bytes); });
  }
}

}  // namespace parlorwire
