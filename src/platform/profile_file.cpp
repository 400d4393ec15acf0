#include "platform/profile_file.h"

#include <optional>

#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kBlanks = " \t\v";

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Offsets in the file: of the line, of its end mark, and of the next line.
struct Line {
  std::size_t begin;
  std::size_t end;
  std::size_t next;
};

Line LineFrom(std::string_view file, std::size_t begin) {
  std::size_t end = begin;
  while (end < file.size() && file[end] != '\r' && file[end] != '\n')
    ++end;
  std::size_t next = end;
  if (next < file.size()) next += file.substr(next).starts_with("\r\n") ? 2 : 1;
  return {begin, end, next};
}

std::optional<std::string_view> SectionName(std::string_view line) {
  if (!line.starts_with('[')) return std::nullopt;
  return TrimBlanks(line.substr(1, line.find(']') - 1));
}

// Where a key stands, or where a new one would.
struct Place {
  bool section_found = false;
  std::size_t new_key = 0;           // behind the section's last key, or behind its header
  std::optional<std::size_t> value;  // behind the "=" of the key
  Line line{};                       // that of the key
};

Place FindKey(std::string_view file, std::string_view section, std::string_view key) {
  Place place;
  for (std::size_t at = 0; at < file.size();) {
    const Line line = LineFrom(file, at);
    at = line.next;
    const std::string_view text = TrimBlanks(file.substr(line.begin, line.end - line.begin));
    if (const auto name = SectionName(text)) {
      if (place.section_found) break;
      place.section_found = EqualsNoCase(*name, section);
      place.new_key = line.next;
      continue;
    }
    if (!place.section_found || text.starts_with(';')) continue;
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) continue;
    place.new_key = line.next;
    if (EqualsNoCase(TrimBlanks(text.substr(0, equals)), key)) {
      place.value = file.find('=', line.begin) + 1;
      place.line = line;
      break;
    }
  }
  return place;
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

Text ReadProfileValue(std::string_view file, std::string_view section, std::string_view key,
                      std::size_t buffer_size) {
  if (buffer_size == 0) return {};
  const Place place = FindKey(file, TrimView(section), TrimView(key));
  if (!place.value) return {};
  const std::string_view value =
      WithoutQuotes(TrimBlanks(file.substr(*place.value, place.line.end - *place.value)));
  return Text(value.substr(0, buffer_size - 1));
}

Text WriteProfileValue(std::string_view file, std::string_view section, std::string_view key,
                       std::string_view value) {
  section = TrimView(section);
  key = TrimView(key);
  const Place place = FindKey(file, section, key);
  Text result;
  result.reserve(file.size() + section.size() + key.size() + value.size() + 9);
  if (place.value) {
    result.append(file.substr(0, *place.value)).append(value);
    const bool has_end = place.line.next > place.line.end;
    return result.append(has_end ? file.substr(place.line.end) : "\r\n");
  }

  const std::size_t at = place.section_found ? place.new_key : file.size();
  result.append(file.substr(0, at));
  if (at > 0 && file[at - 1] != '\r' && file[at - 1] != '\n') result.append("\r\n");
  if (!place.section_found) result.append("[").append(section).append("]\r\n");
  result.append(key).append("=").append(value).append("\r\n");
  return result.append(file.substr(at));
}

}  // namespace parlorwire
