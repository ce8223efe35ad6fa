#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What is known of the world's numbering plans. Regions are ISO 3166-1 codes of two capitals; a
/// region that is empty or unknown has no numbers of its own. Numbers are ASCII, `+` in front where
/// international. Immutable; any thread.
class NumberingPlans {
 public:
  struct Number {
    std::string international;  ///< E.164: `+`, the country calling code, the number.
    int callingCode = 0;
    std::string national;   ///< As dialled inside its country, digits only.
    bool isValid = false;   ///< Of a form that its country gives out.
    bool isCostly = false;  ///< Premium rate or shared cost.
    std::string region;     ///< Its country's; empty where it belongs to none.
    std::string written;    ///< As people in the region where it is dialled write it.
  };

  NumberingPlans() = default;
  NumberingPlans(const NumberingPlans&) = delete;
  NumberingPlans& operator=(const NumberingPlans&) = delete;
  NumberingPlans(NumberingPlans&&) = delete;
  NumberingPlans& operator=(NumberingPlans&&) = delete;
  virtual ~NumberingPlans() = default;

  virtual bool isRegion(std::string_view region) const = 0;

  /// Whether exactly these digits, and no other characters, reach an emergency service in the
  /// region.
  virtual bool isEmergency(std::string_view digits, std::string_view region) const = 0;

  /// What the text means when it is dialled in the region; international numbers need none. Nothing
  /// where it cannot be taken apart.
  virtual std::optional<Number> parse(std::string_view text, std::string_view region) const = 0;

  /// What a local number means behind the leading digits of an international one, `+` first
  /// (RFC 3966, 5.1.5). Nothing where that is no number.
  virtual std::optional<Number> parseInContext(std::string_view number,
                                               std::string_view context) const = 0;

  /// The region that the leading digits of an international number belong to; empty where unknown.
  virtual std::string regionOfContext(std::string_view context) const = 0;

  /// 0 where unknown.
  virtual int callingCode(std::string_view region) const = 0;

  /// What is dialled in the region in front of a foreign number; nothing where there are several,
  /// none of them preferred.
  virtual std::optional<std::string> internationalPrefix(std::string_view region) const = 0;
};
