#include "personal/pers_queue.h"

#include <algorithm>
#include <cstddef>

#include "pane/search.h"
#include "personal/pers_pane.h"
#include "personal/personal_window.h"
#include "session/exchange.h"
#include "session/wire_encoding.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr int kTimedOut = 10060;
constexpr std::string_view kLineBreak = "\r\n";

// What stands behind `mark`; nothing without it.
std::optional<std::string_view> Behind(std::string_view text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  if (at == text.npos) return std::nullopt;
  return text.substr(at + mark.size());
}

Text& Entry(PersonalWindow& window, std::int32_t index) {
  return window.PersQueue.at(static_cast<std::size_t>(index));
}

// The lowest index with a link, 0 for none. Entries are done in order, so nothing is left ahead of
// the one that W3 is working on.
std::int32_t FirstLink(const PersonalWindow& window) {
  const auto& queue = window.PersQueue;
  const auto from =
      queue.begin() + std::min<std::ptrdiff_t>(window.PersQueuePos, std::ssize(queue));
  const auto link = std::find_if(from, queue.end(), [](const Text& url) { return !url.empty(); });
  return link == queue.end() ? 0 : static_cast<std::int32_t>(link - queue.begin());
}

void DropQueue(PersonalWindow& window) {
  window.PersQueuePos = 0;
  window.PersQueue.assign(1, Text());
}

// Lines are counted on from where the last count ended: what stands ahead of it never changes.
void UnderlineLine(PersonalWindow& window, std::int32_t number) {
  if (window.CountedLines >= number) {
    window.CountedLines = 0;
    window.CountedUpTo = 0;
  }
  RichTextBox& rich = window.Rich;
  PanePosition start = 0;
  PanePosition end = 0;
  while (window.CountedLines < number) {
    start = window.CountedUpTo;
    const auto line_break = FindForwards(rich, kLineBreak, start, LetterCase::kCounts);
    if (!line_break) return;
    end = *line_break;
    window.CountedUpTo = end + Len(kLineBreak);
    ++window.CountedLines;
  }
  SelectUnseen(rich, start, end);
  rich.SelUnderline(true);
}

}  // namespace

std::optional<PersLink> ReadPersLink(std::string_view url) {
  const auto parts = Split(url, "/");
  const auto reqnum = Behind(url.substr(0, url.find('&')), "reqnum=");
  const auto msgnum = Behind(url, "pm_msgnum=");
  if (parts.size() < 4 || url.find('&') == url.npos || !reqnum || !msgnum) return std::nullopt;
  return PersLink{parts[3].substr(0, parts[3].find('?')), *reqnum, *msgnum};
}

void ClearPers(Client& client, PersonalWindow& window, std::string_view url) {
  ++window.PersQueueTop;
  window.PersQueue.resize(static_cast<std::size_t>(window.PersQueueTop) + 1);
  window.PersQueue.back() = url;
  const SocketState state = window.W3->State();
  if (state != SocketState::kConnected && state != SocketState::kConnecting)
    ConnectAfresh(client, *window.W3);
}

void W3_Connect(Client& client, PersonalWindow& window) {
  for (auto first = FirstLink(window); first != 0; first = FirstLink(window)) {
    window.PersQueuePos = first;
    Text& url = Entry(window, first);
    if (const auto link = ReadPersLink(url)) {
      Text request = "/" + Text(link->script) + "?reqnum=" + Text(link->reqnum);
      request += "&username=" + UrlEncodeKoi(window.PersLogin) + "&ticket=" + window.PersTicket;
      request += "&pm_msgnum=" + Text(link->msgnum);
      SendRequest(client, *window.W3, request);
      return;
    }
    url.clear();
  }
  window.W3->Close();
  DropQueue(window);
}

void W3_Close(Client& client, PersonalWindow& window) {
  const std::int32_t done = window.PersQueuePos;
  if (done == 0) {
    DropQueue(window);
    return;
  }
  Entry(window, done).clear();
  UnderlineLine(window, done);
  if (FirstLink(window) != 0)
    ConnectAfresh(client, *window.W3);
  else
    DropQueue(window);
}

void W3_Error(Client& client, PersonalWindow& window, int number) {
  if (number == kTimedOut)
    ConnectAfresh(client, *window.W3);
  else
    DropQueue(window);
}

}  // namespace parlorwire
