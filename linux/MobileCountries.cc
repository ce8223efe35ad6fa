#include "linux/MobileCountries.h"

#include <algorithm>
#include <cctype>
#include <fcntl.h>
#include <optional>

#include "linux/readFile.h"
#include "platform/foundation/asciiText.h"

namespace {

constexpr std::size_t kLargestTable = std::size_t{16} << 20;
constexpr std::size_t kCountryDigits = 3;

bool isNumber(std::string_view text, std::size_t least, std::size_t most) {
  return text.size() >= least && text.size() <= most &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// The value of an attribute inside one tag.
std::optional<std::string_view> attribute(std::string_view tag, std::string_view name) {
  const auto start = tag.find(name);
  if (start == std::string_view::npos) {
    return std::nullopt;
  }
  const auto value = tag.substr(start + name.size());
  const auto end = value.find('"');
  return end == std::string_view::npos ? std::nullopt : std::optional(value.substr(0, end));
}

// Calls `visit` with each tag, without its angle brackets; comments are none.
template <class Visit>
void forEachTag(std::string_view text, Visit visit) {
  while (true) {
    const auto open = text.find('<');
    if (open == std::string_view::npos) {
      return;
    }
    text.remove_prefix(open + 1);
    const bool isComment = text.starts_with("!--");
    const auto close = text.find(isComment ? "-->" : ">");
    if (close == std::string_view::npos) {
      return;
    }
    if (!isComment) {
      visit(text.substr(0, close));
    }
    text.remove_prefix(close);
  }
}

}  // namespace

MobileCountries::MobileCountries(const std::string& path) {
  const auto file = readFile(AT_FDCWD, path, kLargestTable);
  std::string country;
  std::map<std::string, std::map<std::string, int>> counts;
  forEachTag(file.bytes, [&](std::string_view tag) {
    if (tag.starts_with("country ")) {
      country = inCapitals(attribute(tag, " code=\"").value_or(""));
    } else if (tag.starts_with("network-id ") && country.size() == 2) {
      const auto first = attribute(tag, " mcc=\"").value_or("");
      const auto rest = attribute(tag, " mnc=\"").value_or("");
      if (isNumber(first, kCountryDigits, kCountryDigits) && isNumber(rest, 2, 3)) {
        networks_.emplace(std::string(first).append(rest), country);
        ++counts[std::string(first)][country];
      }
    }
  });
  for (const auto& [digits, regions] : counts) {
    const auto most =
        std::ranges::max_element(regions, {}, [](const auto& entry) { return entry.second; });
    countries_.emplace(digits, most->first);
  }
}

std::string MobileCountries::regionOf(std::string_view network) const {
  if (!isNumber(network, kCountryDigits, kCountryDigits + 3)) {
    return {};
  }
  if (const auto exact = networks_.find(network); exact != networks_.end()) {
    return exact->second;
  }
  const auto country = countries_.find(network.substr(0, kCountryDigits));
  return country == countries_.end() ? std::string() : country->second;
}
