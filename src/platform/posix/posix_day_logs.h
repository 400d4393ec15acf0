// The day logs in the application folder, "Logs/<channel>/dd.MM.yyyy.log".
#pragma once

#include <filesystem>

#include "platform/day_logs.h"

namespace parlorwire {

// Regular files with such names, in folders whose names are Windows-1251, are logs; all else is
// passed over.
class PosixDayLogs : public DayLogs {
 public:
  // The folder "Logs", as an absolute path. It need not exist.
  explicit PosixDayLogs(std::filesystem::path folder);

  std::string Folder() const override { return folder_.native(); }
  std::vector<DayLog> List() const override;
  std::unique_ptr<Reader> Open(const DayLog& log) const override;

 private:
  std::filesystem::path folder_;
};

}  // namespace parlorwire
