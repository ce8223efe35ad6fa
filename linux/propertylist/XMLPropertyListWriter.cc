#include "linux/propertylist/XMLPropertyListWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "linux/propertylist/Base64.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "linux/propertylist/PropertyListDateText.h"
#include "linux/propertylist/Unicode.h"

namespace {

// The shortest text that reads back as the same number, whatever the locale.
template <class Number>
std::string textFromNumber(Number number) {
  std::array<char, 32> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), result.ptr};
}

std::string textFromReal(double real) {
  if (std::isnan(real)) {
    return "nan";
  }
  if (std::isinf(real)) {
    return real < 0 ? "-infinity" : "+infinity";
  }
  return textFromNumber(real);
}

}  // namespace

std::optional<std::string> XMLPropertyListWriter::write(const PropertyListValue& value) {
  XMLPropertyListWriter writer;
  writer.document_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
  if (!writer.appendValue(value, 0)) {
    return std::nullopt;
  }
  writer.document_ += "</plist>\n";
  return writer.document_.size() <= kPropertyListFileBound
             ? std::optional(std::move(writer.document_))
             : std::nullopt;
}

bool XMLPropertyListWriter::appendValue(const PropertyListValue& value, std::size_t level) {
  if (document_.size() > kPropertyListFileBound) {
    return false;
  }
  document_.append(level, '\t');
  if (const auto* array = value.get<PropertyListArray>()) {
    return appendArray(*array, level);
  }
  if (const auto* dictionary = value.get<PropertyListDictionary>()) {
    return appendDictionary(*dictionary, level);
  }
  return appendScalar(value);
}

bool XMLPropertyListWriter::appendScalar(const PropertyListValue& value) {
  if (const auto* boolean = value.get<bool>()) {
    document_ += *boolean ? "<true/>\n" : "<false/>\n";
  } else if (const auto* number = value.get<std::int64_t>()) {
    appendElement("integer", textFromNumber(*number));
  } else if (const auto* unsignedNumber = value.get<std::uint64_t>()) {
    appendElement("integer", textFromNumber(*unsignedNumber));
  } else if (const auto* real = value.get<double>()) {
    appendElement("real", textFromReal(*real));
  } else if (const auto* text = value.get<std::string>()) {
    return appendText("string", *text);
  } else if (const auto* data = value.get<PropertyListData>()) {
    document_ += "<data>";
    appendBase64(document_, *data);
    document_ += "</data>\n";
  } else if (const auto* date = value.get<PropertyListDate>()) {
    const auto dateText = textFromDate(*date);
    if (!dateText) {
      return false;
    }
    appendElement("date", *dateText);
  } else {
    return false;
  }
  return true;
}

bool XMLPropertyListWriter::appendArray(const PropertyListArray& array, std::size_t level) {
  if (array.empty()) {
    document_ += "<array/>\n";
    return true;
  }
  document_ += "<array>\n";
  for (const auto& element : array) {
    if (!appendValue(element, level + 1)) {
      return false;
    }
  }
  document_.append(level, '\t');
  document_ += "</array>\n";
  return true;
}

bool XMLPropertyListWriter::appendDictionary(const PropertyListDictionary& dictionary,
                                             std::size_t level) {
  if (dictionary.empty()) {
    document_ += "<dict/>\n";
    return true;
  }
  document_ += "<dict>\n";
  for (const auto& [key, value] : dictionary) {
    document_.append(level + 1, '\t');
    if (!appendText("key", key) || !appendValue(value, level + 1)) {
      return false;
    }
  }
  document_.append(level, '\t');
  document_ += "</dict>\n";
  return true;
}

bool XMLPropertyListWriter::appendText(std::string_view element, std::string_view text) {
  // Readers of XML turn a carriage return into a line feed, and some do so even where it is written
  // as a reference.
  if (text.find('\r') != std::string_view::npos || !isXMLText(text)) {
    return false;
  }
  if (text.find_first_of("&<>") == std::string_view::npos) {
    appendElement(element, text);
    return true;
  }
  std::string escaped;
  escaped.reserve(text.size() + 16);
  for (const char character : text) {
    switch (character) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += character;
    }
  }
  appendElement(element, escaped);
  return true;
}

void XMLPropertyListWriter::appendElement(std::string_view element, std::string_view content) {
  document_ += '<';
  document_ += element;
  document_ += '>';
  document_ += content;
  document_ += "</";
  document_ += element;
  document_ += ">\n";
}
