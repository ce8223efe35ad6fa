#pragma once

#include <optional>
#include <string>

#include "settings/bundles/BundleOptions.h"
#include "settings/start/StartOptions.h"

/// What the command line asks of the tour.
struct TourOptions {
  StartOptions start;
  BundleOptions bundles;
  std::string folder;  // for the pictures

  TourOptions() = default;
  TourOptions(const TourOptions&) = delete;
  TourOptions& operator=(const TourOptions&) = delete;
  TourOptions(TourOptions&&) = delete;
  TourOptions& operator=(TourOptions&&) = delete;
  ~TourOptions() = default;

  /// Nothing when the program is to go on, else the status that it ends with; all is said by then.
  std::optional<int> parse(int count, const char* const* values);
};
