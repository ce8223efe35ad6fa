#include "linux/HTTPClient.h"

#include <algorithm>
#include <memory>
#include <ranges>

#include "linux/CurlLibrary.h"
#include "linux/redirect.h"
#include "platform/foundation/asciiText.h"

namespace {

using SteadyClock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

constexpr const char* kUserAgent = "QuietDial/1.0";
constexpr const char* kSchemes = "http,https";
constexpr std::size_t kMostHeaders = 200;

// A part of an address; nothing where there is none.
std::optional<std::string> partOf(const CurlLibrary& curl, CURLU& url, CURLUPart part) {
  char* text = nullptr;
  if (curl.url_get(&url, part, &text, 0) != CURLUE_OK) {
    return std::nullopt;
  }
  const std::unique_ptr<char, decltype(curl.free)> owner(text, curl.free);
  return lowered(text);
}

// Whom an address asks; nothing where it is no address.
std::optional<WebServer> serverOf(const CurlLibrary& curl, const std::string& address) {
  const std::unique_ptr<CURLU, decltype(curl.url_cleanup)> url(curl.url(), curl.url_cleanup);
  if (!url || curl.url_set(url.get(), CURLUPART_URL, address.c_str(), 0) != CURLUE_OK) {
    return std::nullopt;
  }
  auto scheme = partOf(curl, *url, CURLUPART_SCHEME);
  auto host = partOf(curl, *url, CURLUPART_HOST);
  return scheme && host ? std::optional(WebServer{std::move(*scheme), std::move(*host)})
                        : std::nullopt;
}

bool isRedirect(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

}  // namespace

/// One request and its answer, without redirects.
class HTTPClient::Transfer {
 public:
  Transfer(const CurlLibrary& curl, HTTPClient& client, std::size_t mostBytes)
      : curl_(curl),
        client_(client),
        mostBytes_(mostBytes),
        multi_(curl.multi_init()),
        easy_(curl.easy_init()),
        connectTo_(nullptr, curl.slist_free_all) {}
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  Transfer(Transfer&&) = delete;
  Transfer& operator=(Transfer&&) = delete;
  ~Transfer() {
    curl_.multi_remove_handle(multi_, easy_);
    curl_.easy_cleanup(easy_);
    curl_.multi_cleanup(multi_);
  }

  /// True when the answer has come whole.
  bool run(const std::string& url, const HostMap::Address* address, Milliseconds time) {
    if (!multi_ || !easy_ || !configure(url, address, time) || !client_.enter(multi_)) {
      return false;
    }
    const bool done = wait();
    client_.leave(multi_);
    long status = 0;
    curl_.easy_getinfo(easy_, CURLINFO_RESPONSE_CODE, &status);
    answer_.status = static_cast<int>(status);
    return done;
  }

  HTTPAnswer takeAnswer() { return std::move(answer_); }

  /// Where the answer leads, as a whole address; nothing for an answer that is no redirect.
  std::optional<std::string> redirect() const {
    char* url = nullptr;
    if (!isRedirect(answer_.status) ||
        curl_.easy_getinfo(easy_, CURLINFO_REDIRECT_URL, &url) != CURLE_OK || !url) {
      return std::nullopt;
    }
    return std::string(url);
  }

 private:
  template <class Value>
  bool set(CURLoption option, Value value) {
    return curl_.easy_setopt(easy_, option, value) == CURLE_OK;
  }

  bool configure(const std::string& url, const HostMap::Address* address, Milliseconds time) {
    bool ok = set(CURLOPT_URL, url.c_str()) && set(CURLOPT_PATH_AS_IS, 1L) &&
              set(CURLOPT_PROTOCOLS_STR, kSchemes) && set(CURLOPT_USERAGENT, kUserAgent) &&
              set(CURLOPT_DISALLOW_USERNAME_IN_URL, 1L) && set(CURLOPT_NOSIGNAL, 1L) &&
              set(CURLOPT_TIMEOUT_MS, static_cast<long>(time.count())) &&
              set(CURLOPT_QUICK_EXIT, 1L) &&
              set(CURLOPT_WRITEFUNCTION, &Transfer::callback<&Transfer::receiveBody>) &&
              set(CURLOPT_WRITEDATA, this) &&
              set(CURLOPT_HEADERFUNCTION, &Transfer::callback<&Transfer::receiveHeader>) &&
              set(CURLOPT_HEADERDATA, this);
    if (ok && address) {
      connectTo_.reset(curl_.slist_append(nullptr, ("::" + address->text()).c_str()));
      ok = connectTo_ && set(CURLOPT_CONNECT_TO, connectTo_.get()) && set(CURLOPT_PROXY, "");
    }
    return ok && curl_.multi_add_handle(multi_, easy_) == CURLM_OK;
  }

  bool wait() {
    int running = 1;
    while (!client_.isStopped()) {
      if (curl_.multi_perform(multi_, &running) != CURLM_OK) {
        return false;
      }
      if (running == 0) {
        int left = 0;
        const auto* message = curl_.multi_info_read(multi_, &left);
        return message && message->msg == CURLMSG_DONE && message->data.result == CURLE_OK;
      }
      constexpr int kLongestWait = 1000;
      if (curl_.multi_poll(multi_, nullptr, 0, kLongestWait, nullptr) != CURLM_OK) {
        return false;
      }
    }
    return false;
  }

  // What the library calls: no exception may pass through its frames.
  template <bool (Transfer::*receive)(std::string_view)>
  static std::size_t callback(char* data, std::size_t size, std::size_t count,
                              void* self) noexcept {
    const std::string_view bytes(data, size * count);
    try {
      if ((static_cast<Transfer*>(self)->*receive)(bytes)) {
        return bytes.size();
      }
    } catch (...) {
      return CURL_WRITEFUNC_ERROR;
    }
    return CURL_WRITEFUNC_ERROR;
  }

  // False ends the transfer.
  bool receiveBody(std::string_view bytes) {
    if (bytes.size() > mostBytes_ - answer_.body.size()) {
      return false;
    }
    answer_.body.append(bytes);
    return true;
  }

  bool receiveHeader(std::string_view line) {
    auto& headers = answer_.headers;
    if (line.starts_with("HTTP/")) {
      headers.clear();  // what was before were headers of an interim answer
    }
    const auto colon = line.find(':');
    if (colon != std::string_view::npos && headers.size() < kMostHeaders) {
      headers.emplace_back(lowered(line.substr(0, colon)), trimmed(line.substr(colon + 1)));
    }
    return true;
  }

  const CurlLibrary& curl_;
  HTTPClient& client_;
  const std::size_t mostBytes_;
  CURLM* multi_;
  CURL* easy_;
  std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> connectTo_;
  HTTPAnswer answer_;
};

std::optional<std::string> HTTPAnswer::header(std::string_view name) const {
  const auto found = std::ranges::find(headers.rbegin(), headers.rend(), name,
                                       &std::pair<std::string, std::string>::first);
  return found == headers.rend() ? std::nullopt : std::optional(found->second);
}

HTTPClient::HTTPClient(HostMap hosts, Unmapped unmapped)
    : hosts_(std::move(hosts)), unmapped_(unmapped) {}

std::optional<HTTPAnswer> HTTPClient::get(const std::string& url, const HTTPLimits& limits) {
  waitWhileSuspended();
  const auto* curl = isStopped() ? nullptr : CurlLibrary::shared();
  if (!curl) {
    return std::nullopt;
  }
  const auto deadline = SteadyClock::now() + limits.time;
  std::string next = url;
  auto server = serverOf(*curl, next);
  for (int redirects = 0; redirects <= limits.redirects; ++redirects) {
    const auto* address = server ? hosts_.find(server->host) : nullptr;
    const auto left = std::chrono::ceil<Milliseconds>(deadline - SteadyClock::now());
    if (!server || (!address && unmapped_ == Unmapped::kUnreachable) || left.count() <= 0) {
      return std::nullopt;
    }
    Transfer transfer(*curl, *this, limits.bytes);
    if (!transfer.run(next, address, left)) {
      return std::nullopt;
    }
    auto target = transfer.redirect();
    if (!target) {
      return transfer.takeAnswer();
    }
    next = std::move(*target);
    auto onward = serverOf(*curl, next);
    if (!onward || !mayRedirect(*server, *onward)) {
      return std::nullopt;
    }
    server = std::move(onward);
  }
  return std::nullopt;
}

void HTTPClient::suspend() {
  const std::lock_guard lock(mutex_);
  suspended_ = true;
}

void HTTPClient::resume() {
  const std::lock_guard lock(mutex_);
  suspended_ = false;
  mayStart_.notify_all();
}

void HTTPClient::waitWhileSuspended() {
  std::unique_lock lock(mutex_);
  mayStart_.wait(lock, [this] { return !suspended_ || stopped_; });
}

void HTTPClient::stop() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  mayStart_.notify_all();
  for (void* transfers : running_) {
    CurlLibrary::shared()->multi_wakeup(static_cast<CURLM*>(transfers));
  }
}

bool HTTPClient::isStopped() {
  const std::lock_guard lock(mutex_);
  return stopped_;
}

bool HTTPClient::enter(void* transfers) {
  const std::lock_guard lock(mutex_);
  return !stopped_ && running_.insert(transfers).second;
}

void HTTPClient::leave(void* transfers) {
  const std::lock_guard lock(mutex_);
  running_.erase(transfers);
}
