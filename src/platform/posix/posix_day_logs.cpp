#include "platform/posix/posix_day_logs.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "text/utf8.h"

namespace parlorwire {
namespace {

namespace fs = std::filesystem;

class OpenLog : public DayLogs::Reader {
 public:
  explicit OpenLog(int descriptor) : descriptor_(descriptor) {}
  ~OpenLog() override { close(descriptor_); }
  OpenLog(const OpenLog&) = delete;
  OpenLog& operator=(const OpenLog&) = delete;

  std::size_t Read(std::span<char> bytes) override {
    std::size_t size = 0;
    while (size < bytes.size()) {
      const ssize_t more = read(descriptor_, bytes.data() + size, bytes.size() - size);
      if (more > 0)
        size += static_cast<std::size_t>(more);
      else if (more == 0 || errno != EINTR)
        break;
    }
    return size;
  }

 private:
  int descriptor_;
};

std::optional<int> Number(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size() || digits.front() == '-')
    return std::nullopt;
  return number;
}

std::string FileName(const LogDay& day) {
  const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  return two(day.day) + "." + two(day.month) + "." + std::to_string(day.year) + ".log";
}

std::optional<LogDay> DayOf(const std::string& file_name) {
  constexpr std::size_t kSize = std::string_view("dd.MM.yyyy.log").size();
  if (file_name.size() != kSize) return std::nullopt;
  const std::string_view name = file_name;
  const auto day = Number(name.substr(0, 2));
  const auto month = Number(name.substr(3, 2));
  const auto year = Number(name.substr(6, 4));
  if (!day || !month || !year || *day < 1 || *day > 31 || *month < 1 || *month > 12)
    return std::nullopt;
  const LogDay log_day{*year, *month, *day};
  if (FileName(log_day) != file_name) return std::nullopt;
  return log_day;
}

void ListFolder(const fs::path& folder, std::vector<DayLog>& logs) {
  const auto channel = FromUtf8(folder.filename().native());
  if (!channel) return;
  std::error_code error;
  for (fs::directory_iterator file(folder, error); !error && file != fs::directory_iterator();
       file.increment(error)) {
    std::error_code unknown;
    const auto day = DayOf(file->path().filename().native());
    if (day && file->is_regular_file(unknown)) logs.push_back({*channel, *day});
  }
}

}  // namespace

PosixDayLogs::PosixDayLogs(fs::path folder) : folder_(std::move(folder)) {}

std::vector<DayLog> PosixDayLogs::List() const {
  std::vector<DayLog> logs;
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error); !error && entry != fs::directory_iterator();
       entry.increment(error))
    ListFolder(entry->path(), logs);
  return logs;
}

std::unique_ptr<DayLogs::Reader> PosixDayLogs::Open(const DayLog& log) const {
  const fs::path path = folder_ / ToUtf8(log.channel) / FileName(log.day);
  // Not blocking, should somebody have put a pipe there.
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return nullptr;
  return std::make_unique<OpenLog>(descriptor);
}

}  // namespace parlorwire
