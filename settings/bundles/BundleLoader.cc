#include "settings/bundles/BundleLoader.h"

#include <utility>

#include "linux/BundleModule.h"

BundleLoader::BundleLoader(std::shared_ptr<const DevicePaths> paths) : paths_(std::move(paths)) {}

std::string BundleLoader::load(const BundleEntry& entry) {
  auto& loaded = loaded_[entry.bundlePath];
  if (loaded) {
    return {};
  }
  const BundleModule module(*paths_, entry.modulePath);
  loaded = module.bundle() != nullptr;
  return module.error();
}
