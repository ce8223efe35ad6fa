#pragma once

#include <map>
#include <string>
#include <string_view>

/// Which country a mobile network belongs to, by the number that it sends (ITU-T E.212): three
/// digits for the country, two or three for the network. Immutable; any thread.
class MobileCountries {
 public:
  /// The table of mobile-broadband-provider-info, an XML file of its DTD version 2.0.
  static constexpr const char* kInstalledTable =
      "/usr/share/mobile-broadband-provider-info/serviceproviders.xml";

  /// A file that cannot be read knows no country.
  explicit MobileCountries(const std::string& path = kInstalledTable);

  /// The region (ISO 3166-1, two capitals) of "26201" or "262"; empty where it is not known. Where
  /// countries share their first three digits and the network is not in the table, the one with the
  /// most networks.
  std::string regionOf(std::string_view network) const;

 private:
  std::map<std::string, std::string, std::less<>> networks_;
  std::map<std::string, std::string, std::less<>> countries_;
};
