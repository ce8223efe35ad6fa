#include "linux/propertylist/PropertyListDateText.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

using std::chrono::days;
using std::chrono::hh_mm_ss;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;
using std::chrono::year_month_day;

constexpr sys_seconds kReference =
    sys_days(year_month_day(std::chrono::year(2001), std::chrono::month(1), std::chrono::day(1)));
constexpr auto kFirst = (sys_seconds(sys_days(std::chrono::year(1) / 1 / 1)) - kReference).count();
constexpr auto kEnd =
    (sys_seconds(sys_days(std::chrono::year(10000) / 1 / 1)) - kReference).count();

// The places of the numbers in the text; what stands between them is in kPattern.
constexpr std::string_view kPattern = "0000-00-00T00:00:00Z";

}  // namespace

std::optional<PropertyListDate> dateFromText(std::string_view text) {
  if (text.size() != kPattern.size()) {
    return std::nullopt;
  }
  for (std::size_t position = 0; position < text.size(); ++position) {
    const bool digit = text[position] >= '0' && text[position] <= '9';
    if (kPattern[position] == '0' ? !digit : text[position] != kPattern[position]) {
      return std::nullopt;
    }
  }
  const auto number = [&](std::size_t position, std::size_t length) {
    unsigned value = 0;
    std::from_chars(text.data() + position, text.data() + position + length, value);
    return value;
  };
  const year_month_day date(std::chrono::year(static_cast<int>(number(0, 4))),
                            std::chrono::month(number(5, 2)), std::chrono::day(number(8, 2)));
  const auto hour = number(11, 2);
  const auto minute = number(14, 2);
  const auto second = number(17, 2);
  if (!date.ok() || date.year() < std::chrono::year(1) || hour > 23 || minute > 59 || second > 59) {
    return std::nullopt;
  }
  const auto moment = sys_days(date) + seconds((hour * 60 + minute) * 60 + second);
  return PropertyListDate{static_cast<double>((moment - kReference).count())};
}

std::optional<std::string> textFromDate(PropertyListDate date) {
  const double whole = date.secondsSinceReferenceDate;
  if (!(whole >= static_cast<double>(kFirst) && whole < static_cast<double>(kEnd)) ||
      std::trunc(whole) != whole) {
    return std::nullopt;
  }
  const auto moment = kReference + seconds(static_cast<std::int64_t>(whole));
  const auto day = std::chrono::floor<days>(moment);
  const year_month_day calendar(day);
  const hh_mm_ss time(moment - day);
  std::array<char, 64> text{};
  const int length = std::snprintf(
      text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(calendar.year()),
      static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
      static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
      static_cast<int>(time.seconds().count()));
  return std::string(text.data(), static_cast<std::size_t>(length));
}
