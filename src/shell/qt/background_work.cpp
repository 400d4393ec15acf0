#include "shell/qt/background_work.h"

#include <utility>

namespace parlorwire {

BackgroundWork::BackgroundWork(std::function<void(const std::stop_token&, const Tell&)> work)
    : thread_([this, work = std::move(work)](const std::stop_token& stop) {
        work(stop, [this](std::function<void()> told) {
          QMetaObject::invokeMethod(this, std::move(told), Qt::QueuedConnection);
        });
      }) {}

}  // namespace parlorwire
