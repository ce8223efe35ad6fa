#include "linux/DevicePaths.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <unistd.h>

#include "linux/homeFolder.h"

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

// Whether the path leads into the folder, wherever the links on either way go.
bool liesIn(const std::string& path, const std::string& folder) {
  namespace fs = std::filesystem;
  std::error_code error;
  const auto inner = fs::weakly_canonical(path, error);
  const auto outer = fs::weakly_canonical(folder, error);
  return error || std::ranges::mismatch(outer, inner).in1 == outer.end();
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
  return (data && *data == '/' ? std::string(data) : homeFolder().value_or("") + "/.local/share") +
         "/quietdial";
}

std::string DevicePaths::installedLibrary() {
  std::error_code error;
  const auto prefix =
      std::filesystem::read_symlink("/proc/self/exe", error).parent_path().parent_path();
  return (prefix / "lib" / "quietdial" / "Library").string();
}

std::optional<std::string> DevicePaths::forReading(const std::string& devicePath) const {
  auto path = forWriting(devicePath);
  if (auto given = inGivenBundle(devicePath)) {
    return given;
  }
  if (path && devicePath.starts_with(kLibrary) && access(path->c_str(), F_OK) != 0) {
    path = installed(devicePath);
  }
  return path;
}

std::optional<std::string> DevicePaths::forModule(const std::string& devicePath, uid_t user) const {
  const std::string_view bundles(kBundles);
  const auto end = devicePath.find('/', bundles.size());
  if (!isDevicePath(devicePath) || !devicePath.starts_with(bundles) || end == std::string::npos) {
    return std::nullopt;
  }
  const auto given = inGivenBundle(devicePath);
  std::error_code error;
  if (!given && std::filesystem::is_directory(installed(devicePath.substr(0, end)), error)) {
    return installed(devicePath);
  }
  auto path = given.value_or(root_ + devicePath);
  return user == 0 && liesIn(path, root_) ? std::nullopt : std::optional(std::move(path));
}

std::optional<std::string> DevicePaths::inGivenBundle(const std::string& devicePath) const {
  if (bundle_.empty() || !isDevicePath(devicePath) || !devicePath.starts_with(bundlePath_)) {
    return std::nullopt;
  }
  const std::string rest = devicePath.substr(bundlePath_.size());
  return rest.empty() || rest.front() == '/' ? std::optional(bundle_ + rest) : std::nullopt;
}

std::string DevicePaths::installed(const std::string& devicePath) const {
  return library_ + "/" + devicePath.substr(kLibrary.size());
}

std::optional<std::string> DevicePaths::forWriting(const std::string& devicePath) const {
  return isDevicePath(devicePath) ? std::optional(root_ + devicePath) : std::nullopt;
}
