#include "platform/posix/application_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>

namespace parlorwire {
namespace {

using Path = std::filesystem::path;

// The superuser may write there too, but the files of a user are not to be in it.
bool IsUnderUsr(const Path& folder) {
  const Path usr = "/usr";
  return std::mismatch(usr.begin(), usr.end(), folder.begin(), folder.end()).first == usr.end();
}

bool IsWritable(const Path& folder) {
  return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

}  // namespace

Path ApplicationFolder(const Path& executable_folder, const Path& user_data_folder) {
  std::error_code ignored;
  const bool was_used = std::filesystem::exists(executable_folder / "config.ini", ignored);
  if ((was_used || !IsUnderUsr(executable_folder)) && IsWritable(executable_folder))
    return executable_folder;
  std::filesystem::create_directories(user_data_folder, ignored);
  std::filesystem::permissions(user_data_folder, std::filesystem::perms::owner_all, ignored);
  return user_data_folder;
}

Path ProgramFolder(const Path& executable_folder) {
  const Path shared = executable_folder.parent_path() / "share" / "parlorwire";
  std::error_code ignored;
  return std::filesystem::is_directory(shared, ignored) ? shared : executable_folder;
}

}  // namespace parlorwire
