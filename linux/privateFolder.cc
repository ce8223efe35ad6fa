#include "linux/privateFolder.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <sys/stat.h>

namespace {

constexpr mode_t kUserAlone = 0700;
constexpr int kFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

}  // namespace

bool makePrivateFolders(const std::string& path) {
  if (!path.starts_with('/')) {
    return false;
  }
  const auto slash = path.find_last_of('/');
  const std::string parent = slash == 0 ? "/" : path.substr(0, slash);
  if (mkdir(path.c_str(), kUserAlone) != 0) {
    if (errno == EEXIST) {
      return true;
    }
    if (errno != ENOENT || path == "/" || !makePrivateFolders(parent) ||
        (mkdir(path.c_str(), kUserAlone) != 0 && errno != EEXIST)) {
      return false;
    }
  }
  // Entered into its parent for good.
  const FileDescriptor containing(open(parent.c_str(), kFolder));
  if (containing) {
    fsync(containing.get());
  }
  return true;
}

FileDescriptor openPrivateFolder(const std::string& base,
                                 std::initializer_list<std::string> names) {
  if (!makePrivateFolders(base)) {
    return FileDescriptor();
  }
  FileDescriptor folder(open(base.c_str(), kFolder));
  for (const auto& name : names) {
    if (!folder || (mkdirat(folder.get(), name.c_str(), kUserAlone) != 0 && errno != EEXIST)) {
      return FileDescriptor();
    }
    folder = FileDescriptor(openat(folder.get(), name.c_str(), kFolder | O_NOFOLLOW));
    struct stat status {};
    if (!folder || fstat(folder.get(), &status) != 0 || status.st_uid != geteuid()) {
      return FileDescriptor();
    }
  }
  return folder && fchmod(folder.get(), kUserAlone) == 0 ? std::move(folder) : FileDescriptor();
}
