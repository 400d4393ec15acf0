#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <limits>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "text/fault.h"
#include "text/utf8.h"

namespace parlorwire {
namespace {

using Path = std::filesystem::path;

constexpr mode_t kFileMode = S_IRUSR | S_IWUSR;
constexpr mode_t kFolderMode = S_IRWXU;
constexpr int kWriteAt = O_WRONLY | O_CREAT;
constexpr int kAppend = O_WRONLY | O_CREAT | O_APPEND;

[[noreturn]] void Fail(int error) {
  switch (error) {
    case ENOENT:
      throw Fault(fault::kFileNotFound);
    case ENOTDIR:
      throw Fault(fault::kPathNotFound);
    case ENOSPC:
    case EDQUOT:
      throw Fault(fault::kDiskFull);
    case EACCES:
    case EPERM:
    case EROFS:
      throw Fault(fault::kPermissionDenied);
    default:
      throw Fault(fault::kPathFileAccess);
  }
}

// The same for a call on a file by its path: what is not there may be the file or its folder.
[[noreturn]] void FailOn(const Path& path, int error) {
  if (error == ENOENT && access(path.parent_path().c_str(), F_OK) != 0)
    throw Fault(fault::kPathNotFound);
  Fail(error);
}

class OpenFile {
 public:
  OpenFile(const Path& path, int flags)
      : descriptor_(open(path.c_str(), flags | O_CLOEXEC, kFileMode)) {
    if (descriptor_ < 0) FailOn(path, errno);
  }
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int descriptor() const { return descriptor_; }

  // Writes all of it where the file stands.
  void Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
      if (written >= 0)
        bytes.remove_prefix(static_cast<std::size_t>(written));
      else if (errno != EINTR)
        Fail(errno);
    }
  }

  // Some file systems tell only now that a write has failed.
  void Close() {
    if (close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) Fail(errno);
  }

 private:
  int descriptor_;
};

struct stat Status(const OpenFile& file) {
  struct stat status{};
  if (fstat(file.descriptor(), &status) != 0) Fail(errno);
  return status;
}

// What ends the name of a file that a process writes beside another.
std::string MarkOf(pid_t process) {
  return "~" + std::to_string(process);
}

// The process that such a name names; nothing for any other name.
std::optional<pid_t> WriterOf(std::string_view name) {
  constexpr pid_t kLastProcess = 1 << 22;  // of the system
  const std::size_t mark = name.rfind('~');
  if (mark == std::string_view::npos || mark == 0) return std::nullopt;
  pid_t process = 0;
  std::from_chars(name.data() + mark + 1, name.data() + name.size(), process);
  if (process < 1 || process > kLastProcess || name.substr(mark) != MarkOf(process))
    return std::nullopt;
  return process;
}

bool Lives(pid_t process) {
  return kill(process, 0) == 0 || errno != ESRCH;
}

// Writes the new content beside the file. The file itself is as before, whatever happens here.
void WriteBeside(const Path& path, const Path& beside, const Text& content, bool flush) {
  OpenFile file(beside, O_WRONLY | O_CREAT | O_TRUNC);
  struct stat old{};
  if (stat(path.c_str(), &old) == 0 && fchmod(file.descriptor(), old.st_mode & 07777) != 0)
    Fail(errno);
  file.Write(content);
  if (flush && fsync(file.descriptor()) != 0) Fail(errno);
  file.Close();
}

}  // namespace

struct PosixFiles::KeptFile {
  KeptFile(Text its_name, const Path& path, int its_flags)
      : name(std::move(its_name)), flags(its_flags), file(path, its_flags) {}

  // As if it had been opened with these flags.
  OpenFile& With(int wanted) {
    if (wanted != flags && fcntl(file.descriptor(), F_SETFL, wanted & O_APPEND) != 0) Fail(errno);
    flags = wanted;
    return file;
  }

  Text name;
  int flags;
  OpenFile file;
};

PosixFiles::PosixFiles(Path folder, Later later)
    : folder_(std::move(folder)), later_(std::move(later)) {}

PosixFiles::~PosixFiles() = default;

Path PosixFiles::PathOf(const Text& name) const {
  if (!IsLegalFileName(name)) throw Fault(fault::kBadFileName);
  std::string path = ToUtf8(name);
  std::replace(path.begin(), path.end(), '\\', '/');
  return folder_ / path;
}

bool PosixFiles::Exists(const Text& name) const {
  struct stat status{};
  return IsLegalFileName(name) && stat(PathOf(name).c_str(), &status) == 0 &&
         !S_ISDIR(status.st_mode);
}

std::int64_t PosixFiles::Size(const Text& name) const {
  if (kept_ && kept_->name == name) return Status(kept_->file).st_size;
  const Path path = PathOf(name);
  struct stat status{};
  if (stat(path.c_str(), &status) != 0) FailOn(path, errno);
  if (S_ISDIR(status.st_mode)) Fail(EISDIR);
  return status.st_size;
}

Text PosixFiles::Read(const Text& name) const {
  const OpenFile file(PathOf(name), O_RDONLY);
  if (Status(file).st_size > std::numeric_limits<std::int32_t>::max()) Fail(EFBIG);
  Text content;
  std::array<char, 0x10000> block;
  for (;;) {
    const ssize_t length = read(file.descriptor(), block.data(), block.size());
    if (length == 0) return content;
    if (length > 0)
      content.append(block.data(), static_cast<std::size_t>(length));
    else if (errno != EINTR)
      Fail(errno);
  }
}

void PosixFiles::Replace(const Text& name, const Text& content) {
  PutInPlace(name, content, Flush::kYes);
}

void PosixFiles::ReplaceUnflushed(const Text& name, const Text& content) {
  PutInPlace(name, content, Flush::kNo);
}

void PosixFiles::PutInPlace(const Text& name, const Text& content, Flush flush) {
  kept_.reset();  // it may be the file that goes
  const Path path = PathOf(name);
  if (access(path.c_str(), W_OK) != 0 && errno != ENOENT) Fail(errno);
  Path beside = path;
  beside += MarkOf(getpid());
  try {
    WriteBeside(path, beside, content, flush == Flush::kYes);
    if (rename(beside.c_str(), path.c_str()) != 0) Fail(errno);
  } catch (const Fault&) {
    unlink(beside.c_str());
    throw;
  }
}

// The file, opened unless it is open already.
PosixFiles::KeptFile& PosixFiles::Keep(const Text& name, int flags) {
  if (kept_ && kept_->name == name) return *kept_;
  kept_.reset();
  kept_ = std::make_unique<KeptFile>(name, PathOf(name), flags);
  if (!closes_later_) {
    closes_later_ = true;
    later_([this] {
      closes_later_ = false;
      kept_.reset();
    });
  }
  return *kept_;
}

void PosixFiles::WriteAt(const Text& name, std::int64_t at, const Text& bytes) {
  const auto write = [&](OpenFile& file) {
    if (at < 1) throw Fault(fault::kBadRecordNumber);
    if (lseek(file.descriptor(), at - 1, SEEK_SET) < 0) Fail(errno);
    file.Write(bytes);
  };
  if (later_) return write(Keep(name, kWriteAt).With(kWriteAt));
  OpenFile file(PathOf(name), kWriteAt);
  write(file);
  file.Close();
}

void PosixFiles::Append(const Text& name, const Text& bytes) {
  if (later_) return Keep(name, kAppend).With(kAppend).Write(bytes);
  OpenFile file(PathOf(name), kAppend);
  file.Write(bytes);
  file.Close();
}

void PosixFiles::MakeFolder(const Text& name) {
  const Path path = PathOf(name);
  if (mkdir(path.c_str(), kFolderMode) == 0) return;
  const int error = errno;
  struct stat status{};
  if (error == EEXIST && stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) return;
  FailOn(path, error);
}

void PosixFiles::RemoveLeftovers() const {
  std::error_code error;
  std::filesystem::directory_iterator entry(folder_, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::optional<pid_t> writer = WriterOf(entry->path().filename().native());
    if (!writer || Lives(*writer)) continue;
    struct stat status{};
    if (lstat(entry->path().c_str(), &status) != 0) continue;
    if (S_ISREG(status.st_mode) && status.st_uid == geteuid()) unlink(entry->path().c_str());
  }
}

}  // namespace parlorwire
