#include "session/user_records.h"

#include <cstddef>

namespace parlorwire {
namespace {

constexpr std::size_t kMostPlaces = 10000;  // that are remembered

}  // namespace

void UserRecords::Clear() {
  text_.clear();
  lower_.clear();
  found_.clear();
}

void UserRecords::Append(std::string_view nick, std::string_view ip, std::string_view flags,
                         std::string_view status) {
  const std::size_t old_length = text_.size();
  text_.append("\r\n").append(nick).append("\n").append(ip).append("\n").append(flags);
  text_.append("\n").append(status);
  lower_.append(LCase(std::string_view(text_).substr(old_length)));
  found_.clear();
}

Position UserRecords::Find(std::string_view what) const {
  if (found_.size() >= kMostPlaces) found_.clear();
  const auto [entry, is_new] = found_.try_emplace(LCase(what));
  if (is_new) entry->second = InStr(lower_, entry->first);
  return entry->second;
}

Text UserRecords::FlagsOfRecord(Position at) const {
  const Position nick_end = InStr(at, text_, "\n");
  const Position ip_end = InStr(nick_end + 1, text_, "\n");
  const Position flags_end = InStr(ip_end + 1, text_, "\n");
  if (nick_end == 0 || ip_end == 0 || flags_end == 0) return {};
  return Mid(text_, ip_end + 1, flags_end - ip_end - 1);
}

Text UserRecords::FlagsBehind(Position at, Position length) const {
  const Position ip_end = InStr(at + length + 1, text_, "\n");
  const Position flags_end = InStr(ip_end + 1, text_, "\n");
  if (ip_end == 0 || flags_end == 0) return {};
  return Mid(text_, ip_end + 1, flags_end - ip_end - 1);
}

}  // namespace parlorwire
