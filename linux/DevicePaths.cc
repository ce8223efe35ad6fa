#include "linux/DevicePaths.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::string_view kUser = "/User/";
constexpr std::string_view kLibrary = "/Library/";
constexpr const char* kBundles = "/Library/PreferenceBundles/";

bool climbs(std::string_view path) {
  while (!path.empty()) {
    const auto length = std::min(path.find('/'), path.size());
    if (path.substr(0, length) == "..") {
      return true;
    }
    path.remove_prefix(std::min(length + 1, path.size()));
  }
  return false;
}

bool isDevicePath(std::string_view path) {
  return (path.starts_with(kUser) || path.starts_with(kLibrary)) && !climbs(path) &&
         path.find('\0') == std::string_view::npos;
}

std::string absolute(const std::string& path) {
  std::error_code error;
  auto result = std::filesystem::absolute(path, error).lexically_normal().string();
  while (result.size() > 1 && result.ends_with('/')) {
    result.pop_back();
  }
  return error ? path : result;
}

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home == '/') {
    return home;
  }
  std::vector<char> buffer(16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found) {
    return entry.pw_dir;
  }
  return "/";
}

}  // namespace

DevicePaths::DevicePaths(const std::string& root, const std::string& library,
                         const std::string& bundle)
    : root_(absolute(root)), library_(absolute(library)) {
  if (!bundle.empty()) {
    bundle_ = absolute(bundle);
    bundlePath_ = kBundles + bundle_.substr(bundle_.rfind('/') + 1);
  }
}

std::string DevicePaths::defaultRoot() {
  // A relative value of the variable is to be ignored (XDG base directories).
  const char* data = std::getenv("XDG_DATA_HOME");
  return (data && *data == '/' ? std::string(data) : homeFolder() + "/.local/share") + "/quietdial";
}

std::string DevicePaths::installedLibrary() {
  std::error_code error;
  const auto prefix =
      std::filesystem::read_symlink("/proc/self/exe", error).parent_path().parent_path();
  const auto built = prefix / "Library";
  return std::filesystem::is_directory(built, error)
             ? built.string()
             : (prefix / "share" / "quietdial" / "Library").string();
}

std::optional<std::string> DevicePaths::forReading(const std::string& devicePath) const {
  auto path = forWriting(devicePath);
  if (path && !bundle_.empty() && devicePath.starts_with(bundlePath_)) {
    const std::string rest = devicePath.substr(bundlePath_.size());
    if (rest.empty() || rest.front() == '/') {
      return bundle_ + rest;
    }
  }
  if (path && devicePath.starts_with(kLibrary) && access(path->c_str(), F_OK) != 0) {
    path = library_ + "/" + devicePath.substr(kLibrary.size());
  }
  return path;
}

std::optional<std::string> DevicePaths::forWriting(const std::string& devicePath) const {
  return isDevicePath(devicePath) ? std::optional(root_ + devicePath) : std::nullopt;
}
