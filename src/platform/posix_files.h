// The files on a POSIX file system.
#pragma once

#include <filesystem>

#include "platform/files.h"

namespace parlorwire {

// - Files are created readable and writable for their owner only, folders likewise: there are
//   passwords and conversations in them. A mode that somebody gave a file later stays.
// - Replace writes a file "<name>~<process id>" beside the other, which a process that dies then
//   leaves behind. A file that may not be written is not replaced either.
// - Exists is false for a folder; Read and the writes fail on one with 75.
// - Read takes files up to 2^31 - 1 bytes; larger ones fail with 75.
class PosixFiles : public Files {
 public:
  // The application folder, an absolute path. It must exist by the first write.
  explicit PosixFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}

  bool Exists(const Text& name) const override;
  std::int64_t Size(const Text& name) const override;
  Text Read(const Text& name) const override;
  void Replace(const Text& name, const Text& content) override;
  void WriteAt(const Text& name, std::int64_t at, const Text& bytes) override;
  void Append(const Text& name, const Text& bytes) override;
  void MakeFolder(const Text& name) override;

 private:
  std::filesystem::path PathOf(const Text& name) const;

  std::filesystem::path folder_;
};

}  // namespace parlorwire
