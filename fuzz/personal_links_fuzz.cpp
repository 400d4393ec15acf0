// Links of personal messages, any bytes: those that are requested, and those that are marked in the
// pane.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "personal/pers_frm.h"
#include "personal/pers_pane.h"
#include "personal/pers_queue.h"
#include "personal/personal_window.h"
#include "support/chat.h"

using namespace parlorwire;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Chat chat;
  chat.tab().Ticket = "T1";
  pers_Click(chat.client, 0);
  PersonalWindow& window = *chat.client.app.PersWindows.back();
  SimulatedSocket& links = Simulated(window.W3);
  ClearPers(chat.client, window, text);
  links.Accept();
  if (links.host != "chat.example" || links.connects != 1) std::abort();
  const bool requested = links.sends > 0;
  if (requested != ReadPersLink(text).has_value()) std::abort();
  if (requested && (!links.sent.starts_with("POST /") ||
                    links.sent.find("&username=alice&ticket=T1&pm_msgnum=") == Text::npos))
    std::abort();
  links.PeerCloses();
  if (window.PersQueue.size() != 1) std::abort();

  window.Rich.Text("");
  WriteAtEnd(window.Rich, " " + Text(text), {});
  PersWriteLinks(window, " " + Text(text), 0);
  if (window.Rich.Text() != " " + Text(text)) std::abort();
  for (const PaneRun& run : window.Rich.Runs())
    if (run.format.underline &&
        window.Rich.TextBetween(run.start, run.start + run.length).find('.') == Text::npos)
      std::abort();
  return 0;
}
