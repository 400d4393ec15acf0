#include "session/line_carry.h"

#include <algorithm>
#include <string>

#include "session/error_log.h"

namespace parlorwire {

void CarryOn(Client& client, Text& carry, bool& cut, std::string_view more) {
  const bool line_ends = more.ends_with('\n');
  if (line_ends) more.remove_suffix(1);
  const std::size_t room = kLongestLine - std::min(kLongestLine, carry.size());
  carry += more.substr(0, room);
  if (more.size() > room) {
    cut = !line_ends;
    WriteErrorLog(client, "Error: a line without an end was cut at " +
                              std::to_string(kLongestLine) + " bytes");
  }
  if (line_ends && carry.size() <= kLongestLine) carry += '\n';
}

void DropRestOfCutLine(Text& arrived, bool& cut) {
  if (!cut) return;
  const std::size_t end = arrived.find('\n');
  arrived.erase(0, end);
  cut = end == Text::npos;
}

}  // namespace parlorwire
