#include "shell/window_fit.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace parlorwire {
namespace {

constexpr int kHandle = 1500;  // so much of the width of a title is enough

int Shared(int start, int end, int other_start, int other_end) {
  return std::max(0, std::min(end, other_end) - std::max(start, other_start));
}

int Apart(int start, int end, int other_start, int other_end) {
  return std::max({0, other_start - end, start - other_end});
}

// How well a title suits a room: by what they share, else by how near they are.
std::pair<std::int64_t, std::int64_t> Suits(const Place& title, const Place& room) {
  const std::int64_t shared =
      std::int64_t{Shared(title.left, title.Right(), room.left, room.Right())} *
      Shared(title.top, title.Bottom(), room.top, room.Bottom());
  const std::int64_t apart =
      std::int64_t{Apart(title.left, title.Right(), room.left, room.Right())} +
      Apart(title.top, title.Bottom(), room.top, room.Bottom());
  return {shared, -apart};
}

}  // namespace

Place FitWindow(const Place& window, int title, const std::vector<Place>& rooms) {
  if (rooms.empty()) return window;
  const Place bar{window.left, window.top, window.width, std::min(title, window.height)};
  const Place room =
      *std::ranges::max_element(rooms, {}, [&bar](const Place& each) { return Suits(bar, each); });
  Place fitted = window;
  fitted.width = std::min(window.width, room.width);
  fitted.height = std::min(window.height, room.height);
  const bool reached =
      bar.top >= room.top && bar.Bottom() <= room.Bottom() &&
      Shared(bar.left, bar.Right(), room.left, room.Right()) >= std::min(kHandle, bar.width);
  if (reached && fitted == window) return window;
  fitted.left = std::clamp(window.left, room.left, room.Right() - fitted.width);
  fitted.top = std::clamp(window.top, room.top, room.Bottom() - fitted.height);
  return fitted;
}

}  // namespace parlorwire
