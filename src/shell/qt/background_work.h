// Work on a thread of its own, for what takes long and touches nothing of the client.
#pragma once

#include <QObject>
#include <functional>
#include <stop_token>
#include <thread>

namespace parlorwire {

// The work ends at its next look at the token when this goes, which waits for it; what it has told
// and nobody has heard by then is dropped.
class BackgroundWork : public QObject {
  Q_OBJECT

 public:
  // Called by the work: has a function called on the thread of this, in its event loop.
  using Tell = std::function<void(std::function<void()>)>;

  explicit BackgroundWork(std::function<void(const std::stop_token&, const Tell&)> work);

 private:
  std::jthread thread_;
};

}  // namespace parlorwire
