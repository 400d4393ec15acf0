// The frame: any bytes, in any chunks. The first byte of the input chooses how the rest is cut:
// each 0xFE ends a chunk. Another cut of the same lines must give the same pane.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "support/chat.h"

namespace {

using namespace parlorwire;

void Deliver(Chat& chat, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\xFE');
    chat.Winsock1().Deliver(bytes.substr(0, end));
    if (end == std::string_view::npos) return;
    bytes.remove_prefix(end + 1);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  Chat chat;
  chat.client.app.Language = data[0] & 1 ? UiLanguage::kRussian : UiLanguage::kEnglish;
  if (data[0] & 2) chat.tab().Channel.clear();
  if (data[0] & 4)
    chat.EnterChannel();
  else
    chat.OpenFrame();
  Deliver(chat, bytes);
  chat.platform.time.Advance(10000);
  chat.Winsock1().PeerCloses();
  chat.platform.time.Advance(200000);
  // Whatever came, the tab can start anew.
  chat.tab().Channel = "lobby";
  chat.EnterChannel();
  if (!chat.tab().Connected) std::abort();
  return 0;
}
