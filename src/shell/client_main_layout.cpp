#include "shell/client_main_layout.h"

#include <algorithm>
#include <cmath>

namespace parlorwire {
namespace {

constexpr int kSSTabLeft = 120;
constexpr int kSSTabTop = 600;
constexpr int kBesideSSTab = 100;
constexpr int kInputRows = 1800;  // under SSTab, with title, menu and frame
constexpr int kRowGap = 140;
constexpr int kSecondRowHeight = 390;

constexpr int kPaneMargin = 45;  // between the page's edge and the panes
constexpr int kRazdelGap = 15;   // on both sides of line_razdel
constexpr int kRazdelWidth = 60;
constexpr int kServerHeight = 300;
constexpr int kFrameButtonHeight = 900;
constexpr int kBesideUsers = 290;  // from Rich_Users to the edge of SSTab
constexpr int kBeyondUsers = 50000;

constexpr int kLeastRoom = 2000;  // of the message pane, and of the user list
constexpr double kLeastPercent = 18;
constexpr double kMostPercent = 85;
constexpr int kKeyStep = 240;

constexpr int kLinkGap = 120;

Place Kept(const Place& place, const Place& before) {
  return place.width < 0 || place.height < 0 ? before : place;
}

}  // namespace

ClientMainMeasures MeasuresAround(int client_width, int client_height, int panel_row, int strip) {
  return {client_width + kFrameWidth, client_height + panel_row + kTitleAndMenuHeight, panel_row,
          strip};
}

SharedPlaces PlaceShared(const ClientMainMeasures& measures, const SharedPlaces& before) {
  SharedPlaces at;
  at.SSTab = Kept({kSSTabLeft, kSSTabTop, measures.Width - kBesideSSTab,
                   measures.Height - kSSTabTop - measures.panel_row - kInputRows},
                  before.SSTab);
  const Place& tab = at.SSTab;
  at.BackColorTab =
      Kept({tab.left + 10, tab.top, tab.width - 40, measures.strip}, before.BackColorTab);
  const int seen = tab.width - kBesideUsers + kPaneMargin;
  at.strip = Kept({tab.left, tab.top, seen, measures.strip}, before.strip);
  at.page =
      Kept({tab.left, tab.top + measures.strip, seen, tab.height - measures.strip}, before.page);

  at.StopScroll_top = tab.Bottom() + kRowGap;
  at.pers_top = at.StopScroll_top + 10;
  at.perecodirovka_label_top = at.StopScroll_top + 15;
  at.Picture1_top = at.StopScroll_top - 30;

  const int second_row = at.StopScroll_top + kFirstRowHeight + kRowGap;
  at.intonacia = {100, second_row, 2260, kSecondRowHeight};
  at.msg =
      Kept({at.intonacia.Right() + 60, second_row, tab.width - 5500, kSecondRowHeight}, before.msg);
  at.button_say = {at.msg.Right() + 200, second_row, 1380, kSecondRowHeight};
  at.button_clear = {at.button_say.Right() + 100, second_row, 1275, kSecondRowHeight};
  return at;
}

SlotPlaces PlaceSlot(const SharedPlaces& shared, double split_percent, const SlotPlaces& before) {
  const Place& tab = shared.SSTab;
  const int top = tab.top + shared.strip.height + kPaneMargin;
  const int height = tab.Bottom() - kPaneMargin - top;
  SlotPlaces at;
  at.split_percent = ClampSplit(tab.width, split_percent);
  at.Rich = Kept(
      {tab.left + kPaneMargin, top,
       static_cast<int>(std::lround(tab.width * at.split_percent / 100)), height - kServerHeight},
      before.Rich);
  at.Rich_Server = {at.Rich.left, at.Rich.Bottom(), at.Rich.width, kServerHeight};
  at.line_razdel = {at.Rich.Right() + kRazdelGap, at.Rich.top, kRazdelWidth,
                    at.Rich.height + at.Rich_Server.height};
  const int left = at.line_razdel.Right() + kRazdelGap;
  const int width = tab.Right() - left - kBesideUsers;
  at.frame_button_update = Kept({left, top, width, kFrameButtonHeight}, before.frame_button_update);
  at.Rich_Users =
      Kept({left, top + kFrameButtonHeight, width, height - kFrameButtonHeight}, before.Rich_Users);
  at.Rich_Users_right_margin = at.Rich_Users.width + kBeyondUsers;
  return at;
}

double ClampSplit(int tab_width, double percent) {
  if (tab_width <= 0) return percent;
  const double w = tab_width;
  if (w - w * percent / 100 < kLeastRoom) percent = (w - kLeastRoom) * 100 / w;
  if (w * percent / 100 < kLeastRoom) percent = kLeastRoom * 100 / w;
  return percent;
}

int SplitterLeft(const SlotPlaces& places) {
  return places.line_razdel.left - kRazdelGap - places.Rich.left;
}

std::optional<double> DragSplit(int tab_width, int left) {
  if (left <= kLeastRoom || tab_width - left < kLeastRoom) return std::nullopt;
  const double percent = left * 100.0 / tab_width;
  if (percent <= kLeastPercent || percent >= kMostPercent) return std::nullopt;
  return percent;
}

std::optional<double> KeySplit(int tab_width, int left, SplitKey key) {
  const int first =
      std::max(kLeastRoom, static_cast<int>(std::floor(tab_width * kLeastPercent / 100))) + 1;
  const int last = std::min(tab_width - kLeastRoom,
                            static_cast<int>(std::ceil(tab_width * kMostPercent / 100)) - 1);
  if (first > last) return std::nullopt;
  int wanted = left;
  switch (key) {
    case SplitKey::kLeft:
      wanted -= kKeyStep;
      break;
    case SplitKey::kRight:
      wanted += kKeyStep;
      break;
    case SplitKey::kHome:
      wanted = first;
      break;
    case SplitKey::kEnd:
      wanted = last;
      break;
  }
  wanted = std::clamp(wanted, first, last);
  if (wanted == left || (key == SplitKey::kLeft && wanted > left) ||
      (key == SplitKey::kRight && wanted < left))
    return std::nullopt;
  return DragSplit(tab_width, wanted);
}

std::vector<LinkPlace> PlaceLinks(const std::vector<int>& widths, int bracket, int left,
                                  int right) {
  int row = -kLinkGap;
  for (const int width : widths)
    row += width + 2 * bracket + kLinkGap;
  int at = std::max(left, right - row);
  std::vector<LinkPlace> places;
  for (const int width : widths) {
    places.push_back({at, at + bracket, at + bracket + width});
    at = places.back().closing + bracket + kLinkGap;
  }
  return places;
}

}  // namespace parlorwire
