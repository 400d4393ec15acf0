// The port to the day logs that were written, for those who read them.
#pragma once

#include <compare>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "text/text.h"

namespace parlorwire {

struct LogDay {
  int year = 0;
  int month = 1;  // 1..12
  int day = 1;    // 1..31

  friend auto operator<=>(const LogDay&, const LogDay&) = default;
};

struct DayLog {
  Text channel;
  LogDay day;

  friend bool operator==(const DayLog&, const DayLog&) = default;
};

// Read on any thread, while the event thread writes.
class DayLogs {
 public:
  // One log, which may grow while it is read.
  class Reader {
   public:
    virtual ~Reader() = default;
    // The next bytes, Windows-1251, as many as fit; fewer than fit only at the end. 0 at the end,
    // and where reading fails.
    virtual std::size_t Read(std::span<char> bytes) = 0;
  };

  virtual ~DayLogs() = default;

  // The folder in which they lie, as the system names it. It need not exist.
  virtual std::string Folder() const = 0;

  // All there are, in no order. A folder that can't be read has none.
  virtual std::vector<DayLog> List() const = 0;

  // Null if the log can't be opened.
  virtual std::unique_ptr<Reader> Open(const DayLog& log) const = 0;
};

}  // namespace parlorwire
