// The frame of personal messages: any bytes, in any chunks. The first byte of the input chooses the
// window's ticks; in the rest each 0xFE ends a chunk. Every link that is queued is answered.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "personal/pers_frm.h"
#include "personal/personal_window.h"
#include "support/chat.h"
#include "support/one_smile.h"

using namespace parlorwire;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  Chat chat;
  LoadOneSmile(chat.platform, chat.client);
  pers_Click(chat.client, 0);
  PersonalWindow& window = *chat.client.app.PersWindows.back();
  window.ActivateWhenMess = (data[0] & 1) != 0;
  SimulatedSocket& frame = Simulated(window.W1);
  SimulatedSocket& links = Simulated(window.W3);
  frame.Accept();
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\xFE');
    frame.Deliver(bytes.substr(0, end));
    bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
    if ((data[0] & 2) != 0) links.Accept();
  }
  const std::int32_t queued = window.PersQueueTop;
  for (std::int32_t done = 0; done <= queued; ++done) {
    links.Accept();
    links.PeerCloses();
  }
  chat.platform.time.Advance(100);

  if (window.PersQueue.size() != 1 || window.PersQueuePos != 0) std::abort();
  if (!links.host.empty() && links.host != "chat.example") std::abort();
  if (!window.Rich.Redraw() || !window.Rich.Locked()) std::abort();
  if (window.Timer1->Enabled()) std::abort();
  // A line of a byte becomes the marks, two nicks and the blanks around them.
  if (static_cast<std::size_t>(window.Rich.Length()) > 16 * size + 256) std::abort();
  return 0;
}
