#include "linux/phonenumbers/LibraryNumberingPlans.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include <phonenumbers/phonenumberutil.h>
#include <phonenumbers/shortnumberinfo.h>

namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;
using i18n::phonenumbers::ShortNumberInfo;

constexpr const char* kNoRegion = "ZZ";
constexpr std::size_t kLongestCallingCode = 3;

// Two countries' numbers; where one of them is at home the other is abroad.
constexpr const char* kGermanNumber = "+4930123456";
constexpr const char* kAmericanNumber = "+12015550123";

const PhoneNumberUtil& library() {
  return *PhoneNumberUtil::GetInstance();
}

// Without `+` in front too; the library would read past anything else.
bool isPlain(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
  }
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string digitsOf(const PhoneNumber& number, PhoneNumberUtil::PhoneNumberFormat format) {
  std::string text;
  library().Format(number, format, &text);
  library().NormalizeDigitsOnly(&text);
  return text;
}

NumberingPlans::Number describe(const PhoneNumber& number, std::string_view home) {
  const auto type = library().GetNumberType(number);
  std::string region;
  library().GetRegionCodeForNumber(number, &region);
  std::string written;
  library().Format(number,
                   region == home ? PhoneNumberUtil::NATIONAL : PhoneNumberUtil::INTERNATIONAL,
                   &written);
  return {
      .international = "+" + digitsOf(number, PhoneNumberUtil::E164),
      .callingCode = number.country_code(),
      .national = digitsOf(number, PhoneNumberUtil::NATIONAL),
      .isValid = library().IsValidNumber(number),
      .isCostly = type == PhoneNumberUtil::PREMIUM_RATE || type == PhoneNumberUtil::SHARED_COST,
      .region = region == kNoRegion ? std::string() : region,
      .written = std::move(written),
  };
}

std::optional<PhoneNumber> read(const std::string& text, std::string_view region) {
  PhoneNumber number;
  const std::string home(region.empty() ? kNoRegion : region);
  if (library().Parse(text, home, &number) != PhoneNumberUtil::NO_PARSING_ERROR) {
    return std::nullopt;
  }
  return number;
}

}  // namespace

bool LibraryNumberingPlans::isRegion(std::string_view region) const {
  return callingCode(region) != 0;
}

bool LibraryNumberingPlans::isEmergency(std::string_view digits, std::string_view region) const {
  static const ShortNumberInfo shortNumbers;
  return shortNumbers.IsEmergencyNumber(std::string(digits), std::string(region));
}

std::optional<NumberingPlans::Number> LibraryNumberingPlans::parse(std::string_view text,
                                                                   std::string_view region) const {
  const auto number = isPlain(text) ? read(std::string(text), region) : std::nullopt;
  return number ? std::optional(describe(*number, region)) : std::nullopt;
}

std::optional<NumberingPlans::Number> LibraryNumberingPlans::parseInContext(
    std::string_view number, std::string_view context) const {
  if (!context.starts_with('+') || !isPlain(context) || number.starts_with('+') ||
      !isPlain(number)) {
    return std::nullopt;
  }
  std::string address(number);
  address.append(";phone-context=").append(context);
  const auto joined = read(address, {});
  return joined ? std::optional(describe(*joined, {})) : std::nullopt;
}

std::string LibraryNumberingPlans::regionOfContext(std::string_view context) const {
  if (!context.starts_with('+') || !isPlain(context)) {
    return {};
  }
  const std::string_view digits = context.substr(1);
  for (std::size_t length = 1; length <= std::min(digits.size(), kLongestCallingCode); ++length) {
    int code = 0;
    std::from_chars(digits.data(), digits.data() + length, code);
    std::string region;
    library().GetRegionCodeForCountryCode(code, &region);
    if (isRegion(region)) {
      return region;
    }
  }
  return {};
}

int LibraryNumberingPlans::callingCode(std::string_view region) const {
  return library().GetCountryCodeForRegion(std::string(region));
}

std::optional<std::string> LibraryNumberingPlans::internationalPrefix(
    std::string_view region) const {
  const auto german = read(kGermanNumber, {});
  const bool isAtHome = german && german->country_code() == callingCode(region);
  const auto foreign = isAtHome ? read(kAmericanNumber, {}) : german;
  if (!foreign || !isRegion(region)) {
    return std::nullopt;
  }
  std::string dialled;
  library().FormatOutOfCountryCallingNumber(*foreign, std::string(region), &dialled);
  if (dialled.starts_with('+')) {
    return std::nullopt;  // several prefixes, and none that is preferred
  }
  library().NormalizeDigitsOnly(&dialled);
  const std::string number = digitsOf(*foreign, PhoneNumberUtil::E164);
  return dialled.ends_with(number)
             ? std::optional(dialled.substr(0, dialled.size() - number.size()))
             : std::nullopt;
}

const NumberingPlans* quietdialNumberingPlans() {
  static const LibraryNumberingPlans plans;
  return &plans;
}
