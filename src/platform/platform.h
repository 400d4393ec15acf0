// All that is outside the program, in one record.
#pragma once

#include <functional>
#include <memory>

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/day_logs.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/random.h"
#include "platform/timer.h"
#include "platform/tray.h"
#include "platform/winsock.h"

namespace parlorwire {

// The ports, owned by whoever builds the platform; they outlive every Client that uses them.
struct Platform {
  Files& files;
  const Files& program_files;  // beside the installed program; never written to
  const DayLogs& day_logs;
  Clock& clock;
  Random& random;
  Clipboard& clipboard;
  Desktop& desktop;
  Tray& tray;
  std::function<std::unique_ptr<Winsock>()> NewWinsock;
  std::function<std::unique_ptr<Timer>()> NewTimer;
};

}  // namespace parlorwire
