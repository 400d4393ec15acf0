#include "users/input_history.h"

#include <algorithm>

#include "session/client.h"
#include "text/cut.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

const Text& EntryAt(const TabSession& session, std::uint8_t position) {
  if (position >= session.HistoryLines.size()) throw Fault(fault::kSubscript);
  return session.HistoryLines[position];
}

Text StepUp(TabSession& session) {
  if (session.HistoryState == "down") ++session.HistoryPos;
  Text entry = EntryAt(session, session.HistoryPos);
  if (session.HistoryPos >= 2) {
    session.HistoryState = "upoverflow";
  } else {
    ++session.HistoryPos;
    session.HistoryState = "up";
  }
  return entry;
}

Text StepDown(TabSession& session) {
  if (session.HistoryState == "up")
    session.HistoryPos = 0;
  else if (session.HistoryPos != 0)
    --session.HistoryPos;
  session.HistoryState = "down";
  return EntryAt(session, session.HistoryPos);
}

}  // namespace

void RememberInput(TabSession& session, const Text& text) {
  auto& lines = session.HistoryLines;
  std::shift_right(lines.begin(), lines.end(), 1);
  lines[0] = text;
  session.HistoryState = "none";
}

Text InputHistoryStep(TabSession& session, HistoryDirection direction) {
  return direction == HistoryDirection::kUp ? StepUp(session) : StepDown(session);
}

void BrowseInputHistory(Client& client, HistoryDirection direction, int tab) {
  const Text line = InputHistoryStep(client.tab(tab), direction);
  if (!TrimView(line).empty()) client.platform.desktop.SetMsgText(tab, line);
}

BoxText DeleteWordAhead(const BoxText& box) {
  const std::size_t caret = std::min(box.caret, box.text.size());
  const std::string_view ahead = std::string_view(box.text).substr(0, caret);
  const std::size_t kept = ahead.rfind(' ') + 1;  // npos + 1 is 0
  return {box.text.substr(0, kept) + box.text.substr(caret), kept};
}

}  // namespace parlorwire
