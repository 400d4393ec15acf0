#include "bot/join_highlight.h"

#include <algorithm>
#include <limits>
#include <string>

#include "display/rank_colour.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "text/cut.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

constexpr int kLetterTime = 150;  // ms
constexpr int kSweeps = 5;
constexpr int kFirstTimer = 7;  // Timer7 belongs to tab 0

bool Sweeps(const std::unique_ptr<Timer>& timer) {
  return timer && timer->Enabled();
}

// Timers whose highlights have ended; none of them is ticking now.
void UnloadEndedTimers(TabSession& session) {
  for (auto& timer : session.JoinTimers)
    if (!Sweeps(timer)) timer.reset();
}

void ResizeSlots(Client& client, std::size_t count) {
  for (TabSession& session : client.tabs) {
    session.JoinNick.resize(count);
    session.JoinWaitsForList.resize(count);
    session.JoinOffset.resize(count);
    session.JoinSweeps.resize(count);
  }
}

Timer& SlotTimer(Client& client, int tab, int slot) {
  auto& timers = client.tab(tab).JoinTimers;
  const auto index = static_cast<std::size_t>(slot);
  if (timers.size() <= index) timers.resize(index + 1);
  if (!timers[index]) {
    timers[index] = client.platform.NewTimer();
    timers[index]->Tick = [&client, tab, slot] {
      OnEvent(client, "Timer" + std::to_string(kFirstTimer + tab) + "_Timer",
              [&] { JoinTimer_Timer(client, tab, slot); });
    };
  }
  return *timers[index];
}

// Colours [start, end) of the list, 0-based.
void Colour(RichTextBox& list, PanePosition start, PanePosition end, PaneColour colour) {
  list.HideSelection(true);
  list.ExSetSel(start, end);
  list.SelColor(colour);
}

// The nick gets back the colour that the list gave it; without a record it stays as it is.
void RestoreColour(Client& client, int tab, const Text& nick, PanePosition start,
                   PanePosition end) {
  TabSession& session = client.tab(tab);
  if (EqualsNoCase(nick, session.Login))
    Colour(session.Rich_Users, start, end, client.app.rFontMain.ColorMyNick);
  else if (const Position record = session.UsersText.Find(nick); record != 0)
    Colour(session.Rich_Users, start, end,
           RankColour(client.app, session.UsersText.FlagsOfRecord(record)));
}

void JoinHighlightStep(Client& client, int tab, std::size_t slot) {
  TabSession& session = client.tab(tab);
  const Text& nick = session.JoinNick[slot];
  const Text list = session.Rich_Users.Text();
  const Position line_break = InStrNoCase(list, "\r\n" + nick);
  if (line_break == 0) {  // the user has gone: the next tick ends the highlight
    session.JoinSweeps[slot] = kSweeps;
    return;
  }
  const Position p = line_break + 2;
  const Position q = MinNonZero3(InStr(p, list, " "), InStr(p, list, "\r\n"), 0);
  Colour(session.Rich_Users, p - 1, p + 1 + session.JoinOffset[slot],
         client.app.rRichColors.NicksChoose);
  ++session.JoinOffset[slot];
  if (session.JoinOffset[slot] + p < q) return;
  ++session.JoinSweeps[slot];
  session.JoinOffset[slot] = 0;
  RestoreColour(client, tab, nick, p - 1, q - 1);
}

}  // namespace

void StartJoinHighlight(Client& client, int tab, std::string_view nick) {
  TabSession& session = client.tab(tab);
  UnloadEndedTimers(session);
  if (!std::ranges::any_of(session.JoinTimers, Sweeps))
    session.JoinSlot = 1;
  else if (session.JoinSlot == std::numeric_limits<std::int16_t>::max())
    throw Fault(fault::kOverflow);
  else
    ++session.JoinSlot;
  const auto slot = static_cast<std::size_t>(session.JoinSlot);
  ResizeSlots(client, slot + 1);
  session.JoinNick[slot] = nick;
  session.JoinWaitsForList[slot] = true;
}

void StartWaitingHighlight(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const auto slot = static_cast<std::size_t>(session.JoinSlot);
  if (slot >= session.JoinWaitsForList.size() || !session.JoinWaitsForList[slot]) return;
  session.JoinWaitsForList[slot] = false;
  Timer& timer = SlotTimer(client, tab, session.JoinSlot);
  timer.Enabled(false);
  timer.Interval(kLetterTime);
  timer.Enabled(true);
  session.JoinSweeps[slot] = 0;
  session.JoinOffset[slot] = 0;
}

void JoinTimer_Timer(Client& client, int tab, int number) {
  TabSession& session = client.tab(tab);
  const auto slot = static_cast<std::size_t>(number);
  const bool cut_off = slot >= session.JoinNick.size() || session.JoinNick[slot].empty();
  if (!cut_off && session.JoinSweeps[slot] != kSweeps) {
    JoinHighlightStep(client, tab, slot);
    return;
  }
  if (slot < session.JoinNick.size()) {
    session.JoinNick[slot].clear();
    session.JoinSweeps[slot] = 0;
    session.JoinOffset[slot] = 0;
  }
  session.JoinTimers[slot]->Enabled(false);
}

}  // namespace parlorwire
