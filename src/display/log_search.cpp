#include "display/log_search.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

#include "text/letter_case.h"

namespace parlorwire {
namespace {

constexpr std::size_t kBlock = 256 * 1024;

// Letters, which are those that have two cases, and digits.
consteval std::array<bool, 256> MakeWordCharacters() {
  std::array<bool, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    const auto c = static_cast<char>(i);
    const char lower = LowerCase(c);
    if (lower != c) table[i] = table[static_cast<std::uint8_t>(lower)] = true;
    if (c >= '0' && c <= '9') table[i] = true;
  }
  return table;
}

constexpr std::array<bool, 256> kWordCharacters = MakeWordCharacters();

bool IsWordCharacter(char c) {
  return kWordCharacters[static_cast<std::uint8_t>(c)];
}

// What is being searched for, and in which log.
struct Search {
  const LogQuery& query;
  const Searcher searcher;
  const std::function<void(LogHit)>& found;
  DayLog log;

  bool StandsAlone(std::string_view line, const char* hit) const {
    const char* behind = hit + searcher.Size();
    return (hit == line.data() || !IsWordCharacter(hit[-1])) &&
           (behind == line.data() + line.size() || !IsWordCharacter(*behind));
  }

  // Whether the line holds what is wanted, given its first occurrence there.
  bool Counts(std::string_view line, const char* hit) const {
    if (!query.whole_words) return true;
    const char* end = line.data() + line.size();
    for (; hit != end; hit = searcher.Find(hit + 1, end))
      if (StandsAlone(line, hit)) return true;
    return false;
  }

  // Tells the lines of `text`, which ends with a line. Its first byte is byte `at` of the log.
  void In(std::string_view text, std::int64_t at) const {
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    for (const char* line = begin; line != end;) {
      const char* const hit = searcher.Find(line, end);
      if (hit == end) return;
      const auto line_feed =
          std::find(std::make_reverse_iterator(hit), std::make_reverse_iterator(line), '\n');
      line = line_feed.base();
      const char* next =
          static_cast<const char*>(std::memchr(hit, '\n', static_cast<std::size_t>(end - hit)));
      std::string_view whole(line, static_cast<std::size_t>((next ? next : end) - line));
      while (whole.ends_with('\r'))
        whole.remove_suffix(1);
      // What is wanted may hold no end of a line.
      const bool inside = hit + searcher.Size() <= whole.data() + whole.size();
      if (inside && Counts(whole, hit)) found({log, at + (line - begin), Text(whole)});
      if (!next) return;
      line = next + 1;
    }
  }
};

std::vector<DayLog> Wanted(const DayLogs& logs, const LogQuery& query) {
  std::vector<DayLog> wanted = logs.List();
  std::erase_if(wanted, [&](const DayLog& log) {
    return log.day < query.first || log.day > query.last ||
           (!query.channel.empty() && log.channel != query.channel);
  });
  std::sort(wanted.begin(), wanted.end(), [](const DayLog& a, const DayLog& b) {
    return std::tie(b.day, a.channel) < std::tie(a.day, b.channel);
  });
  return wanted;
}

}  // namespace

void SearchLogs(const DayLogs& logs, const LogQuery& query, const std::stop_token& stop,
                const std::function<void(LogHit)>& found,
                const std::function<void(const LogProgress&)>& progress) {
  if (query.wanted.empty()) return;
  const std::vector<DayLog> wanted = Wanted(logs, query);
  Search search{query, Searcher(query.wanted, query.letter_case), found, {}};
  LogProgress done{0, wanted.size(), 0};
  std::vector<char> block(kBlock);
  for (const DayLog& log : wanted) {
    search.log = log;
    const auto reader = logs.Open(log);
    std::size_t kept = 0;  // bytes of a line whose end was not read yet, at the block's beginning
    std::int64_t at = 0;   // of the block's first byte in the log
    while (reader && !stop.stop_requested()) {
      const std::size_t more = reader->Read({block.data() + kept, kBlock - kept});
      const std::size_t size = kept + more;
      const std::string_view text(block.data(), size);
      const std::size_t last_end = more == 0 ? std::string_view::npos : text.rfind('\n');
      const std::size_t whole = last_end == std::string_view::npos
                                    ? (more == 0 || size == kBlock ? size : 0)
                                    : last_end + 1;
      search.In(text.substr(0, whole), at);
      done.bytes += static_cast<std::int64_t>(more);
      if (more == 0) break;
      kept = size - whole;
      std::memmove(block.data(), block.data() + whole, kept);
      at += static_cast<std::int64_t>(whole);
      progress(done);
    }
    if (stop.stop_requested()) return;
    ++done.logs;
    progress(done);
  }
}

}  // namespace parlorwire
