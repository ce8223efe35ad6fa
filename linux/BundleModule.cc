#include "linux/BundleModule.h"

#include <dlfcn.h>
#include <utility>

namespace {

std::string lastError(const std::string& otherwise) {
  const char* text = dlerror();  // NOLINT(concurrency-mt-unsafe): glibc keeps it for each thread
  return text ? text : otherwise;
}

}  // namespace

BundleModule::BundleModule(const std::string& modulePath, std::string bundlePath)
    : handle_(dlopen(modulePath.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)) {
  if (!handle_) {
    error_ = "The module cannot be opened: " + lastError(modulePath) + ".";
    return;
  }
  const auto* table = variable<const ClassTable>("quietDialPreferencesClasses");
  if (!table) {
    error_ = "The file " + modulePath + " is no settings module: it has no table of its classes.";
    return;
  }
  bundle_ = NSBundle::load(std::move(bundlePath), *table);
}

void* BundleModule::address(const char* name) const {
  return handle_ ? dlsym(handle_, name) : nullptr;
}
