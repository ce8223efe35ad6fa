#include "linux/BundleEntry.h"

#include <filesystem>
#include <system_error>

namespace {

constexpr const char* kBundlesFolder = "/Library/PreferenceBundles/";
// More bundles than any first page could list; a folder full of anything else ends here.
constexpr std::size_t kMostBundles = 1000;

// A file of the bundle's own folder, never one outside of it.
bool isFileName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

std::optional<std::string> entryText(const PropertyListDictionary& dictionary, const char* key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? std::nullopt : textOrNothing(found->second);
}

}  // namespace

std::set<std::string> findBundles(const std::vector<std::string>& libraryFolders) {
  namespace fs = std::filesystem;
  std::set<std::string> names;
  for (const auto& folder : libraryFolders) {
    std::error_code error;
    fs::directory_iterator entry(fs::path(folder) / "PreferenceBundles", error);
    for (; !error && entry != fs::directory_iterator() && names.size() < kMostBundles;
         entry.increment(error)) {
      std::error_code ignored;
      if (entry->path().extension() == ".bundle" && entry->is_directory(ignored)) {
        names.insert(entry->path().filename().string());
      }
    }
  }
  return names;
}

std::vector<BundleEntry> readBundleEntries(
    const std::set<std::string>& names, const FileService& files,
    const std::function<void(const std::string&)>& complain) {
  std::vector<BundleEntry> entries;
  for (const auto& name : names) {
    const std::string bundlePath = kBundlesFolder + name;
    const auto file = files.dictionaryWithContentsOfFile(bundlePath + "/Entry.plist");
    if (!file) {
      continue;  // Bundles may be there for other uses than a page of settings.
    }
    const auto label = entryText(*file, "label");
    const auto module = entryText(*file, "module");
    const auto detail = entryText(*file, "detail");
    if (!label || label->empty() || !module || !isFileName(*module) || !detail) {
      complain(bundlePath + "/Entry.plist needs the texts label, module (a file name) and detail");
      continue;
    }
    const auto icon = entryText(*file, "icon");
    entries.push_back({.bundlePath = bundlePath,
                       .label = *label,
                       .iconPath = icon && isFileName(*icon) ? bundlePath + "/" + *icon : "",
                       .modulePath = bundlePath + "/" + *module,
                       .detail = *detail,
                       .badge = entryText(*file, "badgeString")});
  }
  return entries;
}
