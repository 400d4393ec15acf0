// How a frame looks on the wire: a pure function of the line, the reader's style and his flag +R.
// All results are Windows-1251; the frame's writer converts them. A style that doesn't exist looks
// like kFirstStyle.
#pragma once

#include <cstdint>
#include <string_view>

#include "service/line.h"
#include "text/text.h"

namespace parlorwire::service {

// The styles of presentation. 0, 1, 2 and 4 are pages for browsers, 9 is for robots.
inline constexpr int kRobotStyle = 9;
inline constexpr int kFirstStyle = 1;  // of a nick that has chosen none

bool StyleExists(int style);

struct Look {
  int style = kFirstStyle;
  bool reload = false;  // flag +R: the page runs a script at each line

  bool operator==(const Look&) const = default;
};

// What a frame begins with, behind the header. In the robots' style it is "<pre>" and LF.
Text FrameHead(const Look& look);

// One line with its LF. today is the local time at which it is read: a line of another day shows
// its date as well.
Text PresentLine(const Look& look, const Line& line, std::int64_t today);

// Tells the frame's reader that a personal message waits; opens that page, an address that is ready
// for a script, in a browser.
Text PersonalSignal(std::string_view page);

// A line that carries nothing, so that the reader knows that the frame lives.
inline constexpr std::string_view kKeepAlive = "<!-- -->\n";

// Sent by itself, as the last thing on a frame: its reader shall go and not come back.
Text EjectMark();

// "16:45:57"; with a date ahead, "05/04/2004 23:02:38", when the days differ. Both are seconds of
// the local wall clock since 1970-01-01.
Text TimeText(std::int64_t local, std::int64_t today);

}  // namespace parlorwire::service
