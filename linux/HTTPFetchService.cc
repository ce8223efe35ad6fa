#include "linux/HTTPFetchService.h"

#include <utility>

#include "linux/propertylist/Unicode.h"

namespace {

// The catalogue's list is kept in the settings file, which has to stay small enough to be written.
constexpr std::size_t kMostBytes = std::size_t{64} << 10;

// Strictly: halves of surrogate pairs have no place in UTF-8 (RFC 3629, 3).
bool isUTF8(std::string_view text) {
  while (!text.empty()) {
    const auto character = decodeUTF8(text);
    if (!character || isSurrogate(character->codePoint)) {
      return false;
    }
    text.remove_prefix(character->length);
  }
  return true;
}

}  // namespace

HTTPFetchService::HTTPFetchService(std::shared_ptr<HTTPClient> client)
    : client_(std::move(client)) {}

std::optional<std::string> HTTPFetchService::stringWithContentsOfURL(const std::string& url) {
  auto answer = client_->get(url, {.bytes = kMostBytes});
  if (!answer || !answer->isSuccess() || !isUTF8(answer->body)) {
    return std::nullopt;
  }
  return std::move(answer->body);
}
