// A folder of its own on the real file system, and children of the process to try things in.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace parlorwire {

// Goes with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string Content(const std::string& relative) const;
  void Put(const std::string& relative, std::string_view content) const;
  // The file permissions, as in 0644.
  unsigned Mode(const std::string& relative) const;
  void SetMode(const std::string& relative, unsigned mode) const;
  // How many entries the folder itself has.
  int Entries() const;

 private:
  std::filesystem::path path_;
};

// What `action` returns, 0..255, when a child of the process runs it as a user without privileges.
int InChildWithoutPrivileges(const std::function<int()>& action);

// The same with a full disk: a file system of `bytes` of its own at `mount_point`, which nobody
// else sees. -1 if this machine doesn't allow it.
int InChildOnSmallDisk(const std::filesystem::path& mount_point, int bytes,
                       const std::function<int()>& action);

// Lets a child run `action` over and over, and kills it so many microseconds after it has run once.
void InChildThatIsKilled(int microseconds, const std::function<void()>& action);

// The id of a process that has ended.
int GoneProcess();

}  // namespace parlorwire
