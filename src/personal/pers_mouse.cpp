#include "personal/pers_mouse.h"

#include <cstddef>
#include <utility>

#include "display/links.h"
#include "display/pointed_line.h"
#include "display/whois.h"
#include "personal/pers_pane.h"
#include "personal/personal_window.h"
#include "session/client.h"

namespace parlorwire {
namespace {

bool NothingHovered(const PersonalWindow& window) {
  return window.HoverLink.empty() && window.HoverIP.empty();
}

// What PersWriteLinks has marked begins behind a blank, and so does the piece that is looked
// through.
void FindPersLink(PersonalWindow& window, const PointedLine& line) {
  const PaneRange word = WordUnder(line);
  if (word.empty()) return;
  const Text piece = " " + line.text.substr(static_cast<std::size_t>(word.start),
                                            static_cast<std::size_t>(word.end - word.start));
  if (const auto link = NextPersLink(piece, 0))
    window.HoverLink = link->word;
  else if (const auto mask = NextAddressMask(piece, 0))
    window.HoverIP = mask->word;
}

void ShowPersMenuCopy(PersonalWindow& window, PanePosition at) {
  if (at <= 0) return;
  const PanePosition start = window.Rich.SelStart();
  const bool copies = at >= start && at < start + window.Rich.SelLength();
  if (copies || !window.HoverLink.empty())
    window.hooks.PopUpMenuCopy(CopyMenu{window.HoverLink, copies});
}

}  // namespace

void pers_frm_Rich_MouseDown(PersonalWindow& window, PanePosition at, MouseButton button) {
  if (at > 0 && button == MouseButton::kLeft) window.MouseSelecting = true;
}

void pers_frm_Rich_MouseMove(PersonalWindow& window, PanePosition at) {
  window.HoverLink.clear();
  window.HoverIP.clear();
  if (at > 0 && !window.MouseSelecting)
    if (const auto line = LineUnder(window.Rich, at)) FindPersLink(window, *line);
  window.Rich.MousePointer(NothingHovered(window) ? PanePointer::kArrow : PanePointer::kCustom);
}

void pers_frm_Rich_MouseUp(Client& client, PersonalWindow& window, PanePosition at,
                           MouseButton button) {
  const bool pressed = std::exchange(window.MouseSelecting, false);
  if (button == MouseButton::kRight) return ShowPersMenuCopy(window, at);
  if (!pressed) return;
  if (!window.HoverLink.empty()) return client.hooks.OpenUrl(Text(window.HoverLink));
  if (!window.HoverIP.empty()) OpenWhois(client, Text(window.HoverIP));
}

void ClickAtPersCaret(Client& client, PersonalWindow& window, PaneRange selected,
                      PanePosition caret, MouseButton button) {
  // A caret at the end of the selection belongs to it.
  const PanePosition at = !selected.empty() && caret == selected.end ? caret - 1 : caret;
  pers_frm_Rich_MouseMove(window, caret);
  if (NothingHovered(window) && at != caret) pers_frm_Rich_MouseMove(window, at);
  pers_frm_Rich_MouseDown(window, at, button);
  pers_frm_Rich_MouseUp(client, window, at, button);
  pers_frm_Rich_MouseMove(window, 0);
}

}  // namespace parlorwire
