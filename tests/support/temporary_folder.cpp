#include "support/temporary_folder.h"

#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace parlorwire {
namespace {

constexpr int kNotAllowed = 255;

int ExitOf(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child || !WIFEXITED(status))
    throw std::runtime_error("the child ended badly");
  return WEXITSTATUS(status);
}

pid_t Fork() {
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no child");
  return child;
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string name = std::filesystem::temp_directory_path() / "parlorwire-test-XXXXXX";
  if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::Content(const std::string& relative) const {
  std::ifstream file(path_ / relative, std::ios::binary);
  if (!file) throw std::runtime_error("can't read " + relative);
  return {std::istreambuf_iterator<char>(file), {}};
}

void TemporaryFolder::Put(const std::string& relative, std::string_view content) const {
  std::ofstream(path_ / relative, std::ios::binary) << content;
}

unsigned TemporaryFolder::Mode(const std::string& relative) const {
  struct stat status{};
  if (stat((path_ / relative).c_str(), &status) != 0) throw std::runtime_error("no " + relative);
  return status.st_mode & 07777;
}

void TemporaryFolder::SetMode(const std::string& relative, unsigned mode) const {
  if (chmod((path_ / relative).c_str(), mode) != 0) throw std::runtime_error("no mode");
}

int TemporaryFolder::Entries() const {
  return static_cast<int>(std::distance(std::filesystem::directory_iterator(path_), {}));
}

int InChildWithoutPrivileges(const std::function<int()>& action) {
  const pid_t child = Fork();
  if (child != 0) return ExitOf(child);
  constexpr unsigned kNobody = 65534;
  if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(kNotAllowed);
  _exit(action());
}

int InChildOnSmallDisk(const std::filesystem::path& mount_point, int bytes,
                       const std::function<int()>& action) {
  const pid_t child = Fork();
  if (child != 0) {
    const int result = ExitOf(child);
    return result == kNotAllowed ? -1 : result;
  }
  const std::string size = "size=" + std::to_string(bytes);
  if (unshare(CLONE_NEWNS) != 0 ||
      mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
      mount("tmpfs", mount_point.c_str(), "tmpfs", 0, size.c_str()) != 0)
    _exit(kNotAllowed);
  _exit(action());
}

void InChildThatIsKilled(int microseconds, const std::function<void()>& action) {
  std::array<int, 2> once{};  // the ends of a pipe
  if (pipe(once.data()) != 0) throw std::runtime_error("no pipe");
  const pid_t child = Fork();
  if (child == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // it never outlives the test
    try {
      action();
      if (write(once[1], "", 1) != 1) _exit(1);
      for (;;)
        action();
    } catch (...) {
      _exit(1);
    }
  }
  close(once[1]);
  char byte = 0;
  const bool has_run = read(once[0], &byte, 1) == 1;
  close(once[0]);
  if (has_run) usleep(static_cast<useconds_t>(microseconds));
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL)
    throw std::runtime_error("the child ended before it was killed");
}

int GoneProcess() {
  const pid_t child = Fork();
  if (child == 0) _exit(0);
  ExitOf(child);
  return child;
}

}  // namespace parlorwire
