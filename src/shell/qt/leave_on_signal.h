// The desktop asks the program to go.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace parlorwire {

// Calls `leave` from the event loop when the process gets SIGTERM, SIGHUP or SIGINT. One at a time
// in a process; the signals have their usual effect again when it goes.
class LeaveOnSignal : public QObject {
  Q_OBJECT

 public:
  explicit LeaveOnSignal(std::function<void()> leave);
  ~LeaveOnSignal() override;
};

}  // namespace parlorwire
