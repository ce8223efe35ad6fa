#include "linux/BundleModule.h"

#include <dlfcn.h>
#include <unistd.h>

#include "linux/trustedFile.h"

namespace {

std::string lastError(const std::string& otherwise) {
  const char* text = dlerror();  // NOLINT(concurrency-mt-unsafe): glibc keeps it for each thread
  return text ? text : otherwise;
}

std::string refusal(const std::string& reason) {
  return "The module cannot be opened: " + reason + ".";
}

}  // namespace

BundleModule::BundleModule(const DevicePaths& paths, const std::string& modulePath) {
  const auto file = paths.forModule(modulePath, geteuid());
  if (!file) {
    error_ = refusal("it belongs to no installed bundle, and root opens no others");
    return;
  }
  const auto [path, fault] = trustedFile(*file, geteuid());
  if (!fault.empty()) {
    error_ = refusal(fault);
    return;
  }
  handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (!handle_) {
    error_ = refusal(lastError(path));
    return;
  }
  const auto* table = variable<const ClassTable>("quietDialPreferencesClasses");
  if (!table) {
    error_ = "The file " + path + " is no settings module: it has no table of its classes.";
    return;
  }
  bundle_ = NSBundle::load(modulePath.substr(0, modulePath.rfind('/')), *table);
}

void* BundleModule::address(const char* name) const {
  return handle_ ? dlsym(handle_, name) : nullptr;
}
