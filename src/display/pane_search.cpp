#include "display/pane_search.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "pane/search.h"
#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr PanePosition kSlice = 4'000'000;  // characters that are searched at a time
constexpr std::string_view kSearchOver = W<"Поиск завершен">;

// A search on its way. Hits are the 0-based places of the text itself, without the blanks that
// bound a whole word.
struct PaneSearch {
  Client& client;
  int tab;
  std::uint32_t session;
  std::uint32_t run;
  Text text;
  bool whole_word;
  LetterCase letter_case;
  bool given_up = false;

  const RichTextBox& pane() const { return client.tab(tab).Rich; }
  PanePosition TextLength() const { return Len(text); }
  // The text as it stands inside the pane, and what of it stands ahead of the hit.
  Text Inside() const { return whole_word ? " " + text + " " : text; }
  PanePosition Ahead() const { return whole_word ? 1 : 0; }
};

// Lets waiting events run. False if the search has been overtaken by them.
bool GoesOn(PaneSearch& search) {
  Desktop& desktop = search.client.platform.desktop;
  if (!desktop.EventsWaiting()) return true;
  desktop.YieldToEvents();
  search.given_up = search.client.app.search_form.Run != search.run ||
                    search.client.tab(search.tab).SessionNumber != search.session ||
                    desktop.ActiveTab() != search.tab;
  return !search.given_up;
}

bool StandsAt(const PaneSearch& search, PanePosition at, const Text& wanted) {
  const Text there = search.pane().TextBetween(at, at + Len(wanted));
  return search.letter_case == LetterCase::kIgnored ? EqualsNoCase(there, wanted) : there == wanted;
}

// A whole word at the very start or end of the pane is bounded by what isn't there.
bool IsAtStart(const PaneSearch& search) {
  if (!search.whole_word) return false;
  return search.pane().Length() == search.TextLength() ? StandsAt(search, 0, search.text)
                                                       : StandsAt(search, 0, search.text + " ");
}
bool IsAtEnd(const PaneSearch& search) {
  const PanePosition at = search.pane().Length() - search.TextLength() - 1;
  return search.whole_word && at >= 0 && StandsAt(search, at, " " + search.text);
}

// The first hit at or behind `from`.
std::optional<PanePosition> FindDown(PaneSearch& search, PanePosition from) {
  if (from <= 0 && IsAtStart(search)) return 0;
  const Text inside = search.Inside();
  PanePosition at = std::max<PanePosition>(from - search.Ahead(), 0);
  for (; at < search.pane().Length(); at += kSlice) {
    const auto found =
        FindForwards(search.pane(), inside, PaneRange{at, at + kSlice}, search.letter_case);
    if (found) return *found + search.Ahead();
    if (!GoesOn(search)) return std::nullopt;
  }
  const PanePosition last = search.pane().Length() - search.TextLength();
  if (last >= from && IsAtEnd(search)) return last;
  return std::nullopt;
}

// The last hit that begins at or ahead of `from`.
std::optional<PanePosition> FindUp(PaneSearch& search, PanePosition from) {
  const PanePosition last = search.pane().Length() - search.TextLength();
  if (last <= from && IsAtEnd(search)) return last;
  const Text inside = search.Inside();
  PanePosition behind = std::min(from - search.Ahead(), search.pane().Length()) + 1;
  for (; behind > 0; behind -= kSlice) {
    const PaneRange slice{std::max<PanePosition>(behind - kSlice, 0), behind};
    const auto found = FindBackwards(search.pane(), inside, slice, search.letter_case);
    if (found) return *found + search.Ahead();
    if (!GoesOn(search)) return std::nullopt;
  }
  if (from >= 0 && IsAtStart(search)) return 0;
  return std::nullopt;
}

std::optional<PanePosition> Find(PaneSearch& search, SearchDirection direction,
                                 PanePosition last_found) {
  if (direction == SearchDirection::kDown) return FindDown(search, last_found);
  if (last_found == 0) return FindUp(search, search.pane().Length());
  const PanePosition end = last_found - 1 - 2 * search.Ahead();
  return FindUp(search, end - search.TextLength());
}

// What the program selects while it is hidden becomes the reader's when it is shown.
void SelectHit(RichTextBox& pane, PanePosition at, PanePosition length) {
  pane.HideSelection(true);
  pane.ExSetSel(at, at + length);
  pane.HideSelection(false);
}

}  // namespace

void FindNext(Client& client, SearchDirection direction) {
  SearchForm& form = client.app.search_form;
  if (form.txt_to_search.empty()) return;
  const int tab = client.platform.desktop.ActiveTab();
  TabSession& session = client.tab(tab);
  if (!form.Started && session.Rich.SelLength() != 0) form.LastFound = session.Rich.SelStart();
  form.Started = true;
  PaneSearch search{client,
                    tab,
                    session.SessionNumber,
                    ++form.Run,
                    form.txt_to_search,
                    form.compl_word,
                    form.case_sensitive ? LetterCase::kCounts : LetterCase::kIgnored};
  const auto found = Find(search, direction, form.LastFound);
  if (search.given_up) return;
  if (!found) {
    client.platform.desktop.MessageBox(Text(kSearchOver), BoxIcon::kInformation);
    return;
  }
  form.LastFound = *found + 1;
  SelectHit(session.Rich, *found, search.TextLength());
}

void StopSearch(Client& client) {
  ++client.app.search_form.Run;
}

}  // namespace parlorwire
