#include "platform/foundation/NSBundle.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

std::vector<std::shared_ptr<const NSBundle>>& loadedBundles() {
  static std::vector<std::shared_ptr<const NSBundle>> bundles;
  return bundles;
}

}  // namespace

NSBundle::NSBundle(std::string bundlePath, const ClassTable& table)
    : bundlePath_(std::move(bundlePath)), table_(table) {}

std::shared_ptr<const NSBundle> NSBundle::load(std::string bundlePath, const ClassTable& table) {
  registerClasses(table);
  std::shared_ptr<const NSBundle> bundle(new NSBundle(std::move(bundlePath), table));
  loadedBundles().push_back(bundle);
  return bundle;
}

std::shared_ptr<const NSBundle> NSBundle::bundleForClass(const ClassDescription& description) {
  for (const auto* ancestor = &description; ancestor; ancestor = ancestor->superclass) {
    for (const auto& bundle : loadedBundles()) {
      if (std::ranges::find(bundle->table_.classes, ancestor) != bundle->table_.classes.end()) {
        return bundle;
      }
    }
  }
  return nullptr;
}

std::string NSBundle::pathForResource(std::string_view name, std::string_view type) const {
  std::string path = bundlePath_ + "/";
  path += name;
  path += ".";
  path += type;
  return path;
}
