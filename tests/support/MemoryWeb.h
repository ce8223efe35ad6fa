#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "platform/foundation/NSURLRequest.h"
#include "platform/services.h"

/// A web of which only the answers are known, by address; what it does not know cannot be reached.
/// Any thread.
class MemoryWeb : public FetchService {
 public:
  std::optional<std::string> stringWithContentsOfURL(const std::string& url) override {
    const std::lock_guard lock(mutex_);
    asked_.push_back(url);
    const auto found = texts_.find(url);
    return found == texts_.end() ? std::nullopt : std::optional(found->second);
  }

  /// The height of the page's content in points; nothing for a page that cannot be reached.
  std::optional<double> heightOfPage(const NSURLRequest& request) {
    const std::lock_guard lock(mutex_);
    asked_.push_back(request.url);
    const auto found = pages_.find(request.url);
    return found == pages_.end() ? std::nullopt : std::optional(found->second);
  }

  void setText(const std::string& url, const std::string& text) {
    const std::lock_guard lock(mutex_);
    texts_[url] = text;
  }
  void setPage(const std::string& url, double height) {
    const std::lock_guard lock(mutex_);
    pages_[url] = height;
  }
  /// The server is gone.
  void clear() {
    const std::lock_guard lock(mutex_);
    texts_.clear();
    pages_.clear();
  }

  /// Every address that was asked for, in order.
  std::vector<std::string> asked() const {
    const std::lock_guard lock(mutex_);
    return asked_;
  }

 private:
  mutable std::mutex mutex_;
  std::map<std::string, std::string> texts_;
  std::map<std::string, double> pages_;
  std::vector<std::string> asked_;
};
