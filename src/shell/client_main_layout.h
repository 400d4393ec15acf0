// Where the controls of the main window stand. All measures are twips, 15 to a device-independent
// pixel; left and top count from the corner of the window's client area under the menu.
#pragma once

#include <optional>
#include <vector>

namespace parlorwire {

// The splitter's place in a window that nobody has changed.
inline constexpr double kDesignedSplitPercent = 75;

struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
  bool operator==(const Place&) const = default;
};

// ---- the window ----

// The rules start from the whole window, with its frame, its title and its menu. How thick those
// are is the desktop's affair, so the controls are placed as if they had these measures: both sides
// of the frame; and title, menu, and the frame above and below.
inline constexpr int kFrameWidth = 120;
inline constexpr int kTitleAndMenuHeight = 705;

struct ClientMainMeasures {
  int Width = 0;  // of the window with its frame
  int Height = 0;
  int panel_row = 0;  // height of the row of panels at the bottom
  int strip = 0;      // height of the row of tab captions
};

// Those of a window whose client area, without menu and panels, is so large.
ClientMainMeasures MeasuresAround(int client_width, int client_height, int panel_row, int strip);

// ---- what the slots share ----

struct SharedPlaces {
  Place SSTab;         // a little of it lies beyond the right edge of the window
  Place BackColorTab;  // behind the strip
  // What is to be seen of SSTab: the strip of captions, and the page on which the panes stand.
  Place strip;
  Place page;
  // The first row under SSTab.
  int StopScroll_top = 0;  // and that of SayUseOp
  int pers_top = 0;
  int perecodirovka_label_top = 0;
  int Picture1_top = 0;
  // The second row. Each slot has its own set, all on one place.
  Place intonacia;
  Place msg;
  Place button_say;
  Place button_clear;

  bool operator==(const SharedPlaces&) const = default;
};

// The height of StopScroll and SayUseOp.
inline constexpr int kFirstRowHeight = 285;

// A control whose width or height would be negative stays where it was, and what follows from its
// place follows from that one.
SharedPlaces PlaceShared(const ClientMainMeasures& measures, const SharedPlaces& before);

// ---- the panes of a slot ----

struct SlotPlaces {
  double split_percent = 0;  // TabSplitPercent, clamped
  Place Rich;
  Place Rich_Server;
  Place line_razdel;
  Place frame_button_update;
  Place Rich_Users;
  int Rich_Users_right_margin = 0;  // so far to the right that no line of the list wraps

  bool operator==(const SlotPlaces&) const = default;
};

// Controls whose size would be negative stay as in PlaceShared.
SlotPlaces PlaceSlot(const SharedPlaces& shared, double split_percent, const SlotPlaces& before);

// The splitter's place that leaves 2000 to the user list and 2000 to the message pane; where there
// is no room for both, to the message pane. A tab without width leaves it as it is.
double ClampSplit(int tab_width, double percent);

// ---- the splitter ----

// The place of line_razdel as `TabSplitPercent` counts it: so that a percentage and the place where
// it puts the splitter mean the same.
int SplitterLeft(const SlotPlaces& places);

// The TabSplitPercent of a splitter that is dragged to `left`; nothing if it can't stand there: the
// percentages kept from one run to the next lie between 18 and 85, and both panes need more than
// 2000, and 2000, of room.
std::optional<double> DragSplit(int tab_width, int left);

enum class SplitKey { kLeft, kRight, kHome, kEnd };

// The same for a key, with the splitter at `left`: a step to one side, or as far as it goes. At the
// end of its way, and in a tab without any room for it: nothing.
std::optional<double> KeySplit(int tab_width, int left, SplitKey key);

// ---- the links at the top ----

struct LinkPlace {
  int opening = 0;  // Left of the bracket ahead of the link
  int link = 0;     // Left of the link
  int closing = 0;  // Left of the bracket behind it

  bool operator==(const LinkPlace&) const = default;
};

// A row of links of these widths, in brackets, each behind the one before it. The row ends at
// `right`; where there is no room for it, it begins at `left`.
std::vector<LinkPlace> PlaceLinks(const std::vector<int>& widths, int bracket, int left, int right);

}  // namespace parlorwire
