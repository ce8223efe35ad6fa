#pragma once

#include <memory>

#include "linux/HTTPClient.h"
#include "platform/services.h"

/// Fetches texts of up to 64 KiB, in 30 seconds at most. Any thread.
class HTTPFetchService : public FetchService {
 public:
  explicit HTTPFetchService(std::shared_ptr<HTTPClient> client);

  std::optional<std::string> stringWithContentsOfURL(const std::string& url) override;

 private:
  std::shared_ptr<HTTPClient> client_;
};
