#include "linux/propertylist/BinaryPropertyListReader.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

#include "linux/propertylist/Unicode.h"

std::optional<PropertyListValue> BinaryPropertyListReader::read() {
  return isBinary(bytes_) && readTrailer() ? readValue(topObject_, 1) : std::nullopt;
}

bool BinaryPropertyListReader::readTrailer() {
  if (bytes_.size() < bplist::kHeader.size() + bplist::kTrailerSize) {
    return false;
  }
  const std::size_t trailer = bytes_.size() - bplist::kTrailerSize;
  offsetSize_ = static_cast<unsigned char>(bytes_[trailer + 6]);
  referenceSize_ = static_cast<unsigned char>(bytes_[trailer + 7]);
  objectCount_ = *numberAt(trailer + 8, 8);
  topObject_ = *numberAt(trailer + 16, 8);
  const std::uint64_t table = *numberAt(trailer + 24, 8);
  if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8 ||
      table < bplist::kHeader.size() || table > trailer ||
      objectCount_ > (trailer - table) / offsetSize_) {
    return false;
  }
  offsets_ = bytes_.substr(table, trailer - table);
  bytes_ = bytes_.substr(0, table);
  return true;
}

std::optional<std::uint64_t> BinaryPropertyListReader::numberAt(std::size_t position,
                                                                std::size_t size) const {
  if (position > bytes_.size() || size > bytes_.size() - position) {
    return std::nullopt;
  }
  std::uint64_t number = 0;
  for (const char byte : bytes_.substr(position, size)) {
    number = (number << 8U) | static_cast<unsigned char>(byte);
  }
  return number;
}

std::optional<BinaryPropertyListReader::Object> BinaryPropertyListReader::objectAt(
    std::uint64_t reference) const {
  if (reference >= objectCount_) {
    return std::nullopt;
  }
  std::uint64_t offset = 0;
  for (const char byte : offsets_.substr(reference * offsetSize_, offsetSize_)) {
    offset = (offset << 8U) | static_cast<unsigned char>(byte);
  }
  if (offset < bplist::kHeader.size() || offset >= bytes_.size()) {
    return std::nullopt;
  }
  const unsigned marker = static_cast<unsigned char>(bytes_[offset]);
  return Object{marker >> 4U, marker & 0xFU, static_cast<std::size_t>(offset) + 1};
}

// The count of an object whose content has units of that size, all of which lie within the file;
// moves the object's position to the first of them.
std::optional<std::size_t> BinaryPropertyListReader::readCount(Object& object,
                                                               std::size_t unitSize) const {
  std::uint64_t count = object.low;
  if (object.low == bplist::kLongCount) {
    const auto marker = numberAt(object.position, 1);
    if (!marker || *marker >> 4U != bplist::kInteger || (*marker & 0xFU) > 3) {
      return std::nullopt;
    }
    const std::size_t size = std::size_t{1} << (*marker & 0xFU);
    const auto number = numberAt(object.position + 1, size);
    if (!number) {
      return std::nullopt;
    }
    count = *number;
    object.position += 1 + size;
  }
  if (count > (bytes_.size() - object.position) / unitSize) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(count);
}

std::optional<PropertyListValue> BinaryPropertyListReader::readValue(std::uint64_t reference,
                                                                     int depth) {
  const auto object = objectAt(reference);
  if (!object || depth > kPropertyListDepthBound || !budget_.spendValue()) {
    return std::nullopt;
  }
  switch (object->kind) {
    case bplist::kSimple:
      return object->low == bplist::kTrue || object->low == bplist::kFalse
                 ? std::optional<PropertyListValue>(object->low == bplist::kTrue)
                 : std::nullopt;
    case bplist::kInteger:
      return readInteger(*object);
    case bplist::kReal:
      return readReal(*object);
    case bplist::kDate:
      return readDate(*object);
    case bplist::kData:
      return readData(*object);
    case bplist::kASCII:
    case bplist::kUTF16: {
      auto text = readText(*object);
      return text ? std::optional<PropertyListValue>(std::move(*text)) : std::nullopt;
    }
    case bplist::kUID:
      return readUID(*object);
    case bplist::kArray:
      return readArray(*object, depth);
    case bplist::kDictionary:
      return readDictionary(*object, depth);
    default:
      return std::nullopt;
  }
}

std::optional<PropertyListValue> BinaryPropertyListReader::readInteger(const Object& object) const {
  if (object.low > 4) {
    return std::nullopt;
  }
  if (object.low < 4) {
    const auto number = numberAt(object.position, std::size_t{1} << object.low);
    if (!number) {
      return std::nullopt;
    }
    return object.low == 3 ? PropertyListValue(static_cast<std::int64_t>(*number))
                           : PropertyListValue(*number);
  }
  // 16 bytes hold what 8 signed ones cannot; only what 64 bits can hold has a counterpart.
  const auto high = numberAt(object.position, 8);
  const auto low = high ? numberAt(object.position + 8, 8) : std::nullopt;
  if (low && *high == 0) {
    return PropertyListValue(*low);
  }
  const bool negative = low && *high == std::numeric_limits<std::uint64_t>::max() &&
                        static_cast<std::int64_t>(*low) < 0;
  return negative ? std::optional<PropertyListValue>(static_cast<std::int64_t>(*low))
                  : std::nullopt;
}

std::optional<PropertyListValue> BinaryPropertyListReader::readReal(const Object& object) const {
  const std::size_t size = std::size_t{1} << object.low;
  const auto bits = size == 4 || size == 8 ? numberAt(object.position, size) : std::nullopt;
  if (!bits) {
    return std::nullopt;
  }
  return size == 8 ? std::bit_cast<double>(*bits)
                   : static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(*bits)));
}

std::optional<PropertyListValue> BinaryPropertyListReader::readDate(const Object& object) const {
  const auto bits = object.low == 3 ? numberAt(object.position, 8) : std::nullopt;
  return bits ? std::optional<PropertyListValue>(PropertyListDate{std::bit_cast<double>(*bits)})
              : std::nullopt;
}

std::optional<PropertyListValue> BinaryPropertyListReader::readUID(const Object& object) const {
  const auto number = object.low < 8 ? numberAt(object.position, object.low + 1) : std::nullopt;
  return number ? std::optional<PropertyListValue>(PropertyListUID{*number}) : std::nullopt;
}

std::optional<PropertyListValue> BinaryPropertyListReader::readData(Object object) {
  const auto count = readCount(object, 1);
  if (!count || !budget_.spend(*count)) {
    return std::nullopt;
  }
  const auto content = bytes_.substr(object.position, *count);
  PropertyListData data(content.size());
  std::ranges::transform(content, data.begin(),
                         [](char byte) { return static_cast<std::byte>(byte); });
  return PropertyListValue(std::move(data));
}

std::optional<std::string> BinaryPropertyListReader::readText(Object object) {
  const bool ascii = object.kind == bplist::kASCII;
  if (!ascii && object.kind != bplist::kUTF16) {
    return std::nullopt;
  }
  const std::size_t unitSize = ascii ? 1 : 2;
  const auto count = readCount(object, unitSize);
  if (!count) {
    return std::nullopt;
  }
  const auto content = bytes_.substr(object.position, *count * unitSize);
  if (!ascii) {
    auto text = utf8FromUTF16(content);
    return budget_.spend(text.size()) ? std::optional(std::move(text)) : std::nullopt;
  }
  const bool pure = std::ranges::all_of(
      content, [](char byte) { return static_cast<unsigned char>(byte) < 128; });
  return pure && budget_.spend(content.size()) ? std::optional(std::string(content)) : std::nullopt;
}

std::optional<PropertyListValue> BinaryPropertyListReader::readArray(Object object, int depth) {
  const auto count = readCount(object, referenceSize_);
  if (!count) {
    return std::nullopt;
  }
  PropertyListArray array;
  for (std::size_t index = 0; index < *count; ++index) {
    const auto reference = numberAt(object.position + index * referenceSize_, referenceSize_);
    auto element = readValue(*reference, depth + 1);
    if (!element) {
      return std::nullopt;
    }
    array.push_back(std::move(*element));
  }
  return PropertyListValue(std::move(array));
}

std::optional<PropertyListValue> BinaryPropertyListReader::readDictionary(Object object,
                                                                          int depth) {
  // All key references come first, then those of the values.
  const auto count = readCount(object, 2 * referenceSize_);
  if (!count) {
    return std::nullopt;
  }
  PropertyListDictionary dictionary;
  for (std::size_t index = 0; index < *count; ++index) {
    const auto position = object.position + index * referenceSize_;
    const auto keyObject = objectAt(*numberAt(position, referenceSize_));
    auto key = keyObject ? readText(*keyObject) : std::nullopt;
    if (!key) {
      return std::nullopt;
    }
    auto value =
        readValue(*numberAt(position + *count * referenceSize_, referenceSize_), depth + 1);
    if (!value) {
      return std::nullopt;
    }
    dictionary.insert_or_assign(std::move(*key), std::move(*value));
  }
  return PropertyListValue(std::move(dictionary));
}
