#pragma once

#include <string>

/// What is to be loaded, and how long the load may take in all.
struct NSURLRequest {
  std::string url;
  double timeoutInterval = 60;  // seconds
  bool operator==(const NSURLRequest&) const = default;
};
