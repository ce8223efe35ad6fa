#include "platform/makers/TBSupportInfo.h"

#include "platform/services.h"

constexpr ClassOf<TBSupportInfo> TBSupportInfo::classObject{"TBSupportInfo"};

namespace {

std::string textOf(const PropertyListDictionary& dictionary, std::string_view key) {
  const auto found = dictionary.find(key);
  const auto* text = found == dictionary.end() ? nullptr : found->second.get<std::string>();
  return text ? *text : std::string();
}

std::set<std::string> textsOf(const PropertyListDictionary& dictionary, std::string_view key) {
  const auto found = dictionary.find(key);
  const auto* list = found == dictionary.end() ? nullptr : found->second.get<PropertyListArray>();
  std::set<std::string> texts;
  for (const auto& entry : list ? *list : PropertyListArray()) {
    if (const auto* text = entry.get<std::string>()) {
      texts.insert(*text);
    }
  }
  return texts;
}

}  // namespace

bool TBSupportInfo::initWithPackageFilePath(const std::string& path) {
  if (!NSObject::init()) {
    return false;
  }
  const auto info = services().files->dictionaryWithContentsOfFile(path + "/Info.plist");
  if (info) {
    identifier_ = textOf(*info, "CFBundleIdentifier");
    name_ = textOf(*info, "CFBundleName");
    version_ = textOf(*info, "CFBundleShortVersionString");
    preferenceKeys_ = textsOf(*info, "TBSupportPreferenceKeys");
  }
  return true;
}

std::string TBSupportInfo::mailSubjectForPackageIdentifier(std::string_view identifier) const {
  std::string subject = name_;
  if (!version_.empty()) {
    subject += subject.empty() ? version_ : " " + version_;
  }
  if (subject.empty()) {
    return std::string(identifier);
  }
  return subject + " (" + std::string(identifier) + ")";
}

PropertyListData TBSupportInfo::supportAttachmentDataForPreferencePath(
    const std::string& path) const {
  PropertyListDictionary package;
  for (const auto& [key, text] :
       {std::pair("Identifier", identifier_), {"Name", name_}, {"Version", version_}}) {
    if (!text.empty()) {
      package.insert_or_assign(key, text);
    }
  }
  PropertyListDictionary information{{"Package", package},
                                     {"Device", services().device->deviceInformation()}};
  const auto withoutSettings = information;
  if (auto settings = services().files->dictionaryWithContentsOfFile(path)) {
    std::erase_if(*settings,
                  [this](const auto& entry) { return !preferenceKeys_.contains(entry.first); });
    information.insert_or_assign("Settings", std::move(*settings));
  }
  if (auto data = services().files->dataWithPropertyList(information)) {
    return std::move(*data);
  }
  return services().files->dataWithPropertyList(withoutSettings).value_or(PropertyListData{});
}
