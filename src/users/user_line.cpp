#include "users/user_line.h"

#include "text/cut.h"

namespace parlorwire {
namespace {

Text UnlessEmptyBrackets(const Text& text) {
  return text == "[]" ? Text() : text;
}

UserRecord CutFormA(std::string_view line) {
  const Position bar = InStr(line, "|");
  const Position flags_end = InStr(bar + 2, line, "]");
  const Position address_end = InStr(flags_end + 2, line, "]");
  UserRecord user;
  user.nick = Left(line, bar - 1);
  user.flags = UnlessEmptyBrackets(Mid(line, bar + 1, flags_end - bar));
  user.IP = UnlessEmptyBrackets(Mid(line, flags_end + 1, address_end - flags_end));
  if (!user.IP.empty()) user.IP = Replace(Mid(user.IP, 2, Len(user.IP) - 2), ":", "");
  user.status = Replace(Mid(line, address_end + 1), "'", "");
  return user;
}

UserRecord CutFormB(std::string_view line) {
  const Position colon = InStr(line, ":");
  const Position flags_end = InStr(colon + 1, line, "]");
  UserRecord user;
  if (colon > 0) user.IP = Left(line, colon - 1);
  user.flags = UnlessEmptyBrackets(Mid(line, colon + 1, flags_end - colon));
  const Position blank = InStr(flags_end, line, " ");
  user.nick =
      blank == 0 ? Mid(line, flags_end + 1) : Mid(line, flags_end + 1, blank - flags_end - 1);
  return user;
}

}  // namespace

UserRecord CutUserLine(std::string_view line, UserFrameForm form) {
  return form == UserFrameForm::kA ? CutFormA(line) : CutFormB(line);
}

}  // namespace parlorwire
