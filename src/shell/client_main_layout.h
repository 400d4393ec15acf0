// Where the controls of the main window stand. All measures are twips, 15 to a device-independent
// pixel; left and top count from the corner of the window's client area.
#pragma once

namespace parlorwire {

inline constexpr int kTwipsPerPixel = 15;

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

// Between the edge of SSTab and Rich, and between Rich and line_razdel.
inline constexpr int kPaneMargin = 45;
inline constexpr int kRazdelGap = 15;

// What the rules start from.
struct ClientMainMeasures {
  int width = 0;  // of the client area, without menu and panels
  int height = 0;
  int strip_height = 0;      // of the row of tab captions
  double split_percent = 0;  // TabSplitPercent of the slot
};

struct ClientMainPlaces {
  Place SSTab;  // the strip and the page under it
  // On the page:
  Place Rich;
  Place Rich_Server;
  Place line_razdel;
  Place frame_button_update;
  Place Rich_Users;
  // Under it:
  int first_row_top = 0;  // StopScroll and its row
  Place intonacia;
  Place msg;
  Place button_say;
  Place button_clear;

  double split_percent = 0;  // clamped
};

// Both the message pane and the user list stay at least 2000 wide; where there is no room for both,
// the message pane gets its 2000. In a window that is too small, sizes come out negative: such a
// control stays where it is.
ClientMainPlaces LayOutClientMain(const ClientMainMeasures& measures);

// The splitter's place that leaves both panes their room.
double ClampSplit(int tab_width, double percent);

}  // namespace parlorwire
