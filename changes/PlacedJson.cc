#include "changes/PlacedJson.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

constexpr std::size_t kDeepest = 8;

std::string placeAt(std::string_view text, std::size_t offset) {
  const auto before = text.substr(0, std::min(offset, text.size()));
  const auto lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
  return "line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", column " +
         std::to_string(before.size() - lineStart + 1);
}

// Builds the document from the parser's events.
class Builder : public Json::json_sax_t {
 public:
  Builder(std::string_view text, std::istream& stream) : text_(text), stream_(stream) {}

  PlacedJsonResult take() { return std::move(result_); }

  bool null() override { return add(PlacedJson::Value()); }
  bool boolean(bool /*value*/) override { return add(PlacedJson::Value()); }
  bool number_integer(Json::number_integer_t value) override {
    return add(PropertyListValue(value));
  }
  bool number_unsigned(Json::number_unsigned_t value) override {
    return add(PropertyListValue(value));
  }
  bool number_float(Json::number_float_t /*value*/, const std::string& /*text*/) override {
    return add(PlacedJson::Value());
  }
  bool string(std::string& value) override { return add(PropertyListValue(std::move(value))); }
  bool binary(Json::binary_t& /*value*/) override { return add(PlacedJson::Value()); }

  bool start_object(std::size_t /*count*/) override { return open(/*isArray=*/false); }
  bool key(std::string& name) override {
    levels_.back().members.push_back({name, placeAt(text_, startOfKey()), {}});
    return true;
  }
  bool end_object() override {
    auto members = std::move(levels_.back().members);
    levels_.pop_back();
    return add(PlacedJson::Value(std::move(members)));
  }
  bool start_array(std::size_t /*count*/) override { return open(/*isArray=*/true); }
  bool end_array() override {
    auto level = std::move(levels_.back());
    levels_.pop_back();
    return add(level.isPlain ? PlacedJson::Value(PropertyListValue(std::move(level.elements)))
                             : PlacedJson::Value());
  }
  bool parse_error(std::size_t position, const std::string& /*token*/,
                   const nlohmann::detail::exception& /*error*/) override {
    return fail(position == 0 ? 0 : position - 1, "This is not JSON, or it is cut.");
  }

 private:
  struct Level {
    bool isArray = false;
    bool isPlain = true;
    PlacedJson::Members members;
    PropertyListArray elements;
  };

  bool open(bool isArray) {
    if (levels_.size() == kDeepest) {
      return fail(position(), "It is nested too deeply for settings.");
    }
    levels_.emplace_back();
    levels_.back().isArray = isArray;
    return true;
  }

  bool add(PlacedJson::Value value) {
    if (levels_.empty()) {
      result_.document = PlacedJson{std::move(value)};
    } else if (!levels_.back().isArray) {
      levels_.back().members.back().value = std::move(value);
    } else if (auto* const element = std::get_if<PropertyListValue>(&value)) {
      levels_.back().elements.push_back(std::move(*element));
    } else {
      levels_.back().isPlain = false;
    }
    return true;
  }

  bool fail(std::size_t offset, std::string sentence) {
    result_ = {std::nullopt, placeAt(text_, offset), std::move(sentence)};
    return false;
  }

  // How much of the text has been read.
  std::size_t position() const {
    return static_cast<std::size_t>(stream_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in));
  }

  // Back from a name's closing quote to the one that opens it.
  std::size_t startOfKey() const {
    std::size_t quote = position() - 1;
    while (quote > 0) {
      quote = text_.rfind('"', quote - 1);
      const auto before = text_.substr(0, quote);
      const auto last = before.find_last_not_of('\\');
      const auto backslashes = before.size() - (last == std::string_view::npos ? 0 : last + 1);
      if (backslashes % 2 == 0) {
        break;
      }
    }
    return quote;
  }

  std::string_view text_;
  std::istream& stream_;
  std::vector<Level> levels_;
  PlacedJsonResult result_;
};

}  // namespace

PlacedJsonResult readPlacedJson(std::string_view text) {
  std::istringstream stream{std::string(text)};
  Builder builder(text, stream);
  Json::sax_parse(stream, &builder);
  return builder.take();
}
