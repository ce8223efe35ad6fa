#include "linux/trustedFile.h"

#include <filesystem>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

// Why the user is not to trust what is there; empty for no reason.
std::string faultOf(const fs::path& path, uid_t user) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    return path.string() + " cannot be looked at";
  }
  if (status.st_uid != 0 && status.st_uid != user) {
    return path.string() + " belongs to neither root nor the user";
  }
  // An access list for others shows in the group's bits.
  if ((status.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
    return "others may write to " + path.string();
  }
  return {};
}

}  // namespace

TrustedFile trustedFile(const std::string& path, uid_t user) {
  std::error_code error;
  const auto target = fs::canonical(path, error);
  if (error) {
    return {.path = {}, .fault = path + ": " + error.message()};
  }
  if (!fs::is_regular_file(target, error)) {
    return {.path = {}, .fault = path + " is no file"};
  }
  for (const auto& each : {fs::path(path).parent_path(), target.parent_path(), target}) {
    if (auto fault = faultOf(each, user); !fault.empty()) {
      return {.path = {}, .fault = std::move(fault)};
    }
  }
  return {.path = target.string(), .fault = {}};
}
