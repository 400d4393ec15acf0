// One client for a folder: two of them would write over each other's files.
#pragma once

#include <QObject>
#include <QString>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

class QSocketNotifier;

namespace parlorwire {

// The first client of a folder holds a lock on the folder, and listens on a local socket. Both go
// with the process, however it ends, and leave no file. The folder is known by itself and not by
// its path, so links to it and the length of its path make no difference.
class OneClient : public QObject {
  Q_OBJECT

 public:
  explicit OneClient(const std::filesystem::path& folder);
  ~OneClient() override;

  // Whether this is the first. It is so, too, where the system can't tell.
  bool First() const { return first_; }

  // Not the first: asks that one to show itself. `token` is what the desktop gave this start so
  // that its window may take the focus, or "". False if it doesn't answer within some seconds.
  bool AskFirst(const std::string& token);

  // The first: another start asks for its window.
  std::function<void(const std::string& token)> Asked;

 private:
  void Listen();
  void Answer();

  std::string address_;  // an abstract one, without its leading zero
  int folder_ = -1;      // descriptors; -1 for none
  int listener_ = -1;
  bool first_ = true;
  std::unique_ptr<QSocketNotifier> waiting_;
};

}  // namespace parlorwire
