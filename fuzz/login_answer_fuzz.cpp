// The answer to a login: any bytes. The tab is then either authorised, or idle, or waits to try
// again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "support/chat.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace parlorwire;
  Chat chat;
  chat.AnswerLogin({reinterpret_cast<const char*>(data), size});
  const TabSession& tab = chat.tab();
  const bool idle = tab.CloseHandled && !tab.Connecting;
  if (tab.Authorized == idle) std::abort();
  if (!tab.Authorized && !tab.Timer1->Enabled() && !tab.ClearPanesOnConnect) std::abort();
  return 0;
}
