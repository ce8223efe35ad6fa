#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "linux/HostMap.h"

/// What a server has answered, whole.
struct HTTPAnswer {
  int status = 0;
  std::string body;
  std::vector<std::pair<std::string, std::string>> headers;  ///< Names in small letters.

  bool isSuccess() const { return status >= 200 && status <= 299; }
  /// The last header of that name, given in small letters; nothing where there is none.
  std::optional<std::string> header(std::string_view name) const;
};

/// What one request may take, with everything that it is redirected to.
struct HTTPLimits {
  std::chrono::milliseconds time{30'000};
  std::size_t bytes = std::size_t{1} << 20;  ///< Of a body.
  int redirects = 5;
};

/// Gets documents over HTTP. An address goes over the wire as it stands. No cookies, no cache, no
/// credentials, no address but those of http and https. Any thread.
class HTTPClient {
 public:
  enum class Unmapped {
    kLookedUp,     ///< Hosts that are not mapped are looked up, and the system's proxy is used.
    kUnreachable,  ///< Nothing is ever asked of them, not even their address.
  };

  HTTPClient(HostMap hosts, Unmapped unmapped);
  HTTPClient(const HTTPClient&) = delete;
  HTTPClient& operator=(const HTTPClient&) = delete;
  HTTPClient(HTTPClient&&) = delete;
  HTTPClient& operator=(HTTPClient&&) = delete;
  ~HTTPClient() = default;

  /// The answer, of whatever status. Redirects are followed within the host, and not from HTTPS to
  /// HTTP. Nothing where no answer came whole within the limits, or a redirect leads elsewhere.
  std::optional<HTTPAnswer> get(const std::string& url, const HTTPLimits& limits = {});

  /// For the start of the program, when other things are more urgent: what is asked for waits until
  /// `resume()`. Its time counts from then.
  void suspend();
  void resume();

  /// For the end of the program: what is under way ends at once without an answer, and so does
  /// whatever is asked for later.
  void stop();

 private:
  class Transfer;

  void waitWhileSuspended();
  bool isStopped();
  bool enter(void* transfers);
  void leave(void* transfers);

  const HostMap hosts_;
  const Unmapped unmapped_;
  std::mutex mutex_;
  std::condition_variable mayStart_;
  std::set<void*> running_;  // guarded by mutex_
  bool suspended_ = false;   // guarded by mutex_
  bool stopped_ = false;     // guarded by mutex_
};
