#pragma once

#include <string_view>

/// Where the maker and the services that it uses are reached: the one place for these names. They
/// are reserved for examples (RFC 2606), so that nothing reaches anybody until they are set.
namespace addresses {

inline constexpr std::string_view kSupportMail = "support@tallowbyte.example";
inline constexpr std::string_view kWebsiteHost = "www.tallowbyte.example";
/// The catalogue of the maker's other tweaks; what is asked of it follows in a query.
inline constexpr std::string_view kCatalogue = "http://tweaks.tallowbyte.example/tweaks/tweaks.php";
inline constexpr std::string_view kTwitterHost = "twitter.example";
inline constexpr std::string_view kPayPalHost = "www.paypal.example";
inline constexpr std::string_view kDonationButton = "QUIETDIALEXAMPLE";

}  // namespace addresses
