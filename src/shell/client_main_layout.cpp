#include "shell/client_main_layout.h"

namespace parlorwire {
namespace {

constexpr int kEdge = 120;  // ahead of SSTab and behind it
constexpr int kSSTabTop = 600;
constexpr int kInputRows = 1155;  // under SSTab
constexpr int kRowGap = 140;
constexpr int kFirstRowHeight = 285;
constexpr int kSecondRowHeight = 390;
constexpr int kServerHeight = 300;
constexpr int kRazdelWidth = 60;
constexpr int kFrameButtonHeight = 900;
constexpr int kNarrowestPane = 2000;

}  // namespace

double ClampSplit(int tab_width, double percent) {
  const double w = tab_width;
  if (w - w * percent / 100 < kNarrowestPane) percent = (w - kNarrowestPane) * 100 / w;
  if (w * percent / 100 < kNarrowestPane) percent = kNarrowestPane * 100 / w;
  return percent;
}

ClientMainPlaces LayOutClientMain(const ClientMainMeasures& measures) {
  ClientMainPlaces at;
  at.SSTab = {kEdge, kSSTabTop, measures.width - 2 * kEdge,
              measures.height - kSSTabTop - kInputRows};
  at.split_percent = ClampSplit(at.SSTab.width, measures.split_percent);

  const int page_top = at.SSTab.top + measures.strip_height + kPaneMargin;
  const int page_height = at.SSTab.Bottom() - kPaneMargin - page_top;
  at.Rich = {at.SSTab.left + kPaneMargin, page_top,
             static_cast<int>(at.SSTab.width * at.split_percent / 100),
             page_height - kServerHeight};
  at.Rich_Server = {at.Rich.left, at.Rich.Bottom(), at.Rich.width, kServerHeight};
  at.line_razdel = {at.Rich.Right() + kRazdelGap, at.Rich.top, kRazdelWidth, page_height};
  const int users_left = at.line_razdel.Right() + kRazdelGap;
  const int users_width = at.SSTab.Right() - kPaneMargin - users_left;
  at.frame_button_update = {users_left, page_top, users_width, kFrameButtonHeight};
  at.Rich_Users = {users_left, page_top + kFrameButtonHeight, users_width,
                   page_height - kFrameButtonHeight};

  at.first_row_top = at.SSTab.Bottom() + kRowGap;
  const int second_row = at.first_row_top + kFirstRowHeight + kRowGap;
  at.intonacia = {100, second_row, 2260, kSecondRowHeight};
  at.msg = {at.intonacia.Right() + 100, second_row, at.SSTab.width - 5500, kSecondRowHeight};
  at.button_say = {at.msg.Right() + 200, second_row, 1480, kSecondRowHeight};
  at.button_clear = {at.button_say.Right() + 100, second_row, 1360, kSecondRowHeight};
  return at;
}

}  // namespace parlorwire
