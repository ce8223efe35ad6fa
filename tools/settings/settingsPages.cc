#include "tools/settings/settingsPages.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "changes/compactText.h"
#include "linux/DeviceFileService.h"
#include "platform/foundation/asciiText.h"

namespace {

constexpr const char* kFirstPage =
    "/Library/PreferenceBundles/quietDialPreferences.bundle/quietDialPreferences.plist";

std::string textAt(const PropertyListDictionary& row, std::string_view key) {
  const auto entry = row.find(key);
  return entry == row.end() ? std::string() : textOrNothing(entry->second).value_or("");
}

bool hasWord(std::string_view title, std::string_view word) {
  const auto all = ' ' + lowered(title) + ' ';
  return all.find(' ' + lowered(word) + ' ') != std::string::npos;
}

template <class Test>
std::vector<SettingsPage> pagesThat(const std::vector<SettingsPage>& pages, Test test) {
  std::vector<SettingsPage> found;
  std::ranges::copy_if(pages, std::back_inserter(found),
                       [&](const SettingsPage& page) { return test(page.title); });
  return found;
}

}  // namespace

std::vector<SettingsPage> settingsPages(const DevicePaths& paths) {
  const DeviceFileService files(std::make_shared<const DevicePaths>(paths));
  const auto list = files.dictionaryWithContentsOfFile(kFirstPage);
  const auto items = list ? list->find("items") : PropertyListDictionary::const_iterator();
  const auto* const rows =
      list && items != list->end() ? items->second.get<PropertyListArray>() : nullptr;
  std::vector<SettingsPage> pages;
  for (const auto& row : rows ? *rows : PropertyListArray()) {
    const auto* const properties = row.get<PropertyListDictionary>();
    if (properties && !textAt(*properties, "detail").empty()) {
      pages.push_back({textAt(*properties, "label"), textAt(*properties, "detail")});
    }
  }
  return pages;
}

std::vector<SettingsPage> pagesNamed(const std::vector<SettingsPage>& pages,
                                     const std::string& name) {
  auto found =
      pagesThat(pages, [&](const auto& title) { return compactText(title) == compactText(name); });
  if (found.empty()) {
    found = pagesThat(pages, [&](const auto& title) { return hasWord(title, name); });
  }
  return found;
}
