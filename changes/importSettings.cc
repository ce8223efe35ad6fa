#include "changes/importSettings.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "changes/PlacedJson.h"
#include "changes/exportSettings.h"
#include "changes/findCountry.h"
#include "changes/inQuotes.h"
#include "changes/nearestWord.h"
#include "changes/settingValues.h"
#include "linux/propertylist/PropertyListSerialization.h"

using settings::Setting;

namespace {

struct GivenSetting {
  std::string key;
  std::string place;
  std::optional<PropertyListValue> value;
};
using GivenSettings = std::vector<GivenSetting>;

std::string meant(const std::string& suggestion) {
  return suggestion.empty() ? std::string() : " Did you mean " + inQuotes(suggestion) + "?";
}

// A property list begins with its signature, an angle bracket or the mark of a wider encoding.
bool looksLikePropertyList(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (bytes.starts_with("bplist") || bytes.starts_with("\xFE\xFF") ||
      bytes.starts_with("\xFF\xFE")) {
    return true;
  }
  bytes.remove_prefix(bytes.starts_with(kMark) ? kMark.size() : 0);
  const auto first = bytes.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && bytes[first] == '<';
}

std::optional<ImportRefusal> readPropertyList(std::string_view bytes, GivenSettings& given) {
  const auto stored = dictionaryFromBytes(bytes);
  if (!stored) {
    return ImportRefusal{"the file", "This property list is damaged, cut, or holds no dictionary."};
  }
  for (const auto& [key, value] : *stored) {
    given.push_back({key, "the key " + key, value});
  }
  return std::nullopt;
}

// The one member of that name.
std::optional<ImportRefusal> findMember(const PlacedJson::Members& members, std::string_view name,
                                        const PlacedJson::Member*& found) {
  for (const auto& member : members) {
    if (member.name == name) {
      if (found) {
        return ImportRefusal{member.place, inQuotes(name) + " is there twice."};
      }
      found = &member;
    }
  }
  return found ? std::nullopt
               : std::optional(ImportRefusal{"the file", "It has no " + inQuotes(name) +
                                                             ": it is no export of QuietDial."});
}

std::optional<ImportRefusal> checkHead(const PlacedJson::Members& members) {
  const PlacedJson::Member* format = nullptr;
  if (auto refusal = findMember(members, "format", format)) {
    return refusal;
  }
  const auto* const name = std::get_if<PropertyListValue>(&format->value);
  if (!name || *name != PropertyListValue(std::string(kExportFormat))) {
    return ImportRefusal{format->place, "The format has to be " + inQuotes(kExportFormat) + "."};
  }
  const PlacedJson::Member* version = nullptr;
  if (auto refusal = findMember(members, "version", version)) {
    return refusal;
  }
  const auto* const value = std::get_if<PropertyListValue>(&version->value);
  const auto number = value && !value->get<std::string>() ? value->integerValue() : std::nullopt;
  if (!number || *number < 1) {
    return ImportRefusal{version->place, "The version has to be a number from 1."};
  }
  if (*number > kExportVersion) {
    return ImportRefusal{version->place, "A newer QuietDial has written this: version " +
                                             std::to_string(*number) + " is not known here."};
  }
  return std::nullopt;
}

std::optional<ImportRefusal> readExport(std::string_view text, GivenSettings& given) {
  const auto read = readPlacedJson(text);
  if (!read.document) {
    return ImportRefusal{read.place, read.fault};
  }
  const auto* const members = std::get_if<PlacedJson::Members>(&read.document->value);
  if (!members) {
    return ImportRefusal{"line 1", "The file has to be one object."};
  }
  if (auto refusal = checkHead(*members)) {
    return refusal;
  }
  const PlacedJson::Member* settings = nullptr;
  if (auto refusal = findMember(*members, "settings", settings)) {
    return refusal;
  }
  for (const auto& member : *members) {
    constexpr std::array<std::string_view, 3> kNames{"format", "version", "settings"};
    if (std::ranges::find(kNames, member.name) == kNames.end()) {
      return ImportRefusal{member.place, inQuotes(member.name) + " is not known."};
    }
  }
  const auto* const entries = std::get_if<PlacedJson::Members>(&settings->value);
  if (!entries) {
    return ImportRefusal{settings->place, "The settings have to be an object."};
  }
  for (const auto& entry : *entries) {
    const auto* const value = std::get_if<PropertyListValue>(&entry.value);
    given.push_back({entry.name, entry.place, value ? std::optional(*value) : std::nullopt});
  }
  return std::nullopt;
}

std::string suggestionFor(std::string_view key) {
  std::vector<std::string> keys;
  std::ranges::transform(settings::kAll, std::back_inserter(keys),
                         [](const Setting& each) { return std::string(each.key); });
  return nearestWord(key, keys);
}

const GivenSetting* find(const GivenSettings& given, const Setting& setting) {
  const auto found = std::ranges::find(given, setting.key, &GivenSetting::key);
  return found == given.end() ? nullptr : &*found;
}

std::string textOf(const GivenSetting* given) {
  return given ? textOrNothing(given->value).value_or("") : std::string();
}

// Each key by itself. What a setting accepts takes the place of what was given.
std::optional<ImportRefusal> checkKinds(GivenSettings& given) {
  for (auto& each : given) {
    const auto* const setting = settings::find(each.key);
    if (!setting) {
      return ImportRefusal{each.place, "There is no setting " + inQuotes(each.key) + "." +
                                           meant(suggestionFor(each.key))};
    }
    if (find(given, *setting) != &each) {
      return ImportRefusal{each.place, inQuotes(each.key) + " is there twice."};
    }
    auto value = each.value ? accepted(*setting, *each.value) : std::nullopt;
    if (!value || !bytesFromPropertyList(*value)) {
      return ImportRefusal{each.place, each.key + " has to be " + valuesInWords(*setting) + "."};
    }
    each.value = std::move(value);
  }
  return std::nullopt;
}

// Whether a text comes with the integer, and a prefix with the country, that it belongs to.
std::optional<ImportRefusal> checkLeaders(const GivenSettings& given) {
  for (const auto& each : given) {
    const auto* const leader = leaderOf(*settings::find(each.key));
    const bool isLed = !leader || std::ranges::any_of(given, [&](const GivenSetting& other) {
      const auto* const setting = settings::find(other.key);
      return setting->key == leader->key || setting->textKey == each.key;
    });
    if (!isLed) {
      return ImportRefusal{
          each.place, each.key + " goes with " + std::string(leader->key) + ", which is missing."};
    }
  }
  return std::nullopt;
}

std::optional<ImportRefusal> checkCountry(const GivenSettings& given) {
  const auto* const country = find(given, settings::kSelectedCountry);
  if (!country) {
    return std::nullopt;
  }
  const auto* const prefix = find(given, settings::kSelectedPrefix);
  const auto name = textOf(country);
  const auto* const row = std::ranges::find(prefixes, name, &CountryPrefix::first);
  if (row == prefixes.end() && name != kCustomRow) {
    return ImportRefusal{country->place, "There is no country " + inQuotes(name) +
                                             " in the table." +
                                             meant(findCountry(name).suggestion)};
  }
  const auto* const own = find(given, settings::kCustomPrefix);
  if (row == prefixes.end() && prefix && !own) {
    return ImportRefusal{prefix->place, "customPrefix, which it has to be, is missing."};
  }
  const std::string expected = row == prefixes.end() ? textOf(own) : std::string(row->second);
  if (prefix && textOf(prefix) != expected) {
    return ImportRefusal{prefix->place, "The prefix of " + inQuotes(name) + " is " +
                                            inQuotes(expected) + ", not " +
                                            inQuotes(textOf(prefix)) + "."};
  }
  return std::nullopt;
}

}  // namespace

std::optional<ImportRefusal> importSettings(std::string_view bytes, SettingsChange& change) {
  GivenSettings given;
  auto refusal =
      looksLikePropertyList(bytes) ? readPropertyList(bytes, given) : readExport(bytes, given);
  refusal = refusal ? refusal : checkKinds(given);
  refusal = refusal ? refusal : checkLeaders(given);
  refusal = refusal ? refusal : checkCountry(given);
  if (refusal) {
    return refusal;
  }
  for (const auto& setting : settings::kAll) {
    const auto* const each = find(given, setting);
    if (each && !leaderOf(setting)) {
      change.set(setting, *each->value);
    }
  }
  return std::nullopt;
}
