// The files on a POSIX file system.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/files.h"

namespace parlorwire {

// - Files are created readable and writable for their owner only, folders likewise: there are
//   passwords and conversations in them. A mode that somebody gave a file later stays.
// - Both Replaces write a file "<name>~<process id>" beside the other, which a process that dies
//   then leaves behind for RemoveLeftovers. A file that may not be written is not replaced either.
// - Exists is false for a folder; Read and the writes fail on one with 75.
// - Read takes files up to 2^31 - 1 bytes; larger ones fail with 75.
// - With a Later, the file that WriteAt or Append wrote last stays open until the event is over, so
//   the many small pieces that one event writes into one file open it once. A file that somebody
//   else removes or renames meanwhile gets what that event still writes; the next event opens what
//   then has the name. What the system says only when a file is closed is not heard then.
class PosixFiles : public Files {
 public:
  // Calls what it is given once the event that runs now is over, and never when the files are gone.
  using Later = std::function<void(std::function<void()>)>;

  // The application folder, an absolute path. It must exist by the first write. Without a Later
  // every call closes what it opens.
  explicit PosixFiles(std::filesystem::path folder, Later later = {});
  ~PosixFiles() override;

  bool Exists(const Text& name) const override;
  std::int64_t Size(const Text& name) const override;
  Text Read(const Text& name) const override;
  void Replace(const Text& name, const Text& content) override;
  void ReplaceUnflushed(const Text& name, const Text& content) override;
  void WriteAt(const Text& name, std::int64_t at, const Text& bytes) override;
  void Append(const Text& name, const Text& bytes) override;
  void MakeFolder(const Text& name) override;

  // Removes what Replace has left behind in the application folder itself: regular files of this
  // user that bear such a name and whose process is gone. Never fails.
  void RemoveLeftovers() const;

 private:
  struct KeptFile;

  enum class Flush { kYes, kNo };

  std::filesystem::path PathOf(const Text& name) const;
  void PutInPlace(const Text& name, const Text& content, Flush flush);
  KeptFile& Keep(const Text& name, int flags);

  std::filesystem::path folder_;
  Later later_;
  std::unique_ptr<KeptFile> kept_;
  bool closes_later_ = false;
};

}  // namespace parlorwire
