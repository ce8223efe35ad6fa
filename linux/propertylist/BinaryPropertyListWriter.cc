#include "linux/propertylist/BinaryPropertyListWriter.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <utility>

#include "linux/propertylist/BinaryPropertyListFormat.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "linux/propertylist/Unicode.h"

namespace {

void appendNumber(std::string& bytes, std::uint64_t number, std::size_t size) {
  for (std::size_t byte = size; byte > 0; --byte) {
    bytes.push_back(static_cast<char>((number >> (8 * (byte - 1))) & 0xFFU));
  }
}

std::string marker(unsigned kind, unsigned low) {
  return {static_cast<char>((kind << 4U) | low)};
}

// The fewest bytes of 1, 2, 4 or 8 that hold the number, as a power of two.
unsigned widthOf(std::uint64_t number) {
  return number < 0x100 ? 0 : number < 0x10000 ? 1 : number < 0x100000000 ? 2 : 3;
}

std::string integerObject(std::uint64_t bits) {
  const unsigned width = widthOf(bits);
  auto bytes = marker(bplist::kInteger, width);
  appendNumber(bytes, bits, std::size_t{1} << width);
  return bytes;
}

std::string countedObject(unsigned kind, std::size_t count) {
  if (count < bplist::kLongCount) {
    return marker(kind, static_cast<unsigned>(count));
  }
  return marker(kind, bplist::kLongCount) + integerObject(count);
}

std::string scalarObject(const PropertyListValue& value) {
  if (const auto* boolean = value.get<bool>()) {
    return marker(bplist::kSimple, *boolean ? bplist::kTrue : bplist::kFalse);
  }
  if (const auto* number = value.get<std::int64_t>()) {
    return integerObject(static_cast<std::uint64_t>(*number));
  }
  std::string bytes;
  if (const auto* number = value.get<std::uint64_t>()) {
    // Above the signed range eight bytes would read as a negative number.
    bytes = marker(bplist::kInteger, 4);
    appendNumber(bytes, 0, 8);
    appendNumber(bytes, *number, 8);
  } else if (const auto* real = value.get<double>()) {
    bytes = marker(bplist::kReal, 3);
    appendNumber(bytes, std::bit_cast<std::uint64_t>(*real), 8);
  } else if (const auto* date = value.get<PropertyListDate>()) {
    bytes = marker(bplist::kDate, 3);
    appendNumber(bytes, std::bit_cast<std::uint64_t>(date->secondsSinceReferenceDate), 8);
  } else if (const auto* uid = value.get<PropertyListUID>()) {
    const auto size = std::size_t{1} << widthOf(uid->value);
    bytes = marker(bplist::kUID, static_cast<unsigned>(size - 1));
    appendNumber(bytes, uid->value, size);
  } else if (const auto* data = value.get<PropertyListData>()) {
    bytes = countedObject(bplist::kData, data->size());
    std::ranges::transform(*data, std::back_inserter(bytes),
                           [](std::byte byte) { return static_cast<char>(byte); });
  }
  return bytes;
}

}  // namespace

std::optional<std::string> BinaryPropertyListWriter::write(const PropertyListValue& value) {
  BinaryPropertyListWriter writer;
  if (!writer.add(value)) {
    return std::nullopt;
  }
  auto bytes = writer.assemble();
  return bytes.size() <= kPropertyListFileBound ? std::optional(std::move(bytes)) : std::nullopt;
}

std::size_t BinaryPropertyListWriter::addObject(std::string bytes) {
  size_ += bytes.size();
  objects_.push_back({std::move(bytes), {}});
  return objects_.size() - 1;
}

std::optional<std::size_t> BinaryPropertyListWriter::add(const PropertyListValue& value) {
  if (size_ > kPropertyListFileBound) {
    return std::nullopt;
  }
  if (const auto* array = value.get<PropertyListArray>()) {
    return addArray(*array);
  }
  if (const auto* dictionary = value.get<PropertyListDictionary>()) {
    return addDictionary(*dictionary);
  }
  if (const auto* text = value.get<std::string>()) {
    return addText(*text);
  }
  return addObject(scalarObject(value));
}

std::optional<std::size_t> BinaryPropertyListWriter::addText(const std::string& text) {
  if (const auto known = texts_.find(text); known != texts_.end()) {
    return known->second;
  }
  const bool ascii =
      std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 128; });
  const auto content = ascii ? std::optional(text) : utf16FromUTF8(text);
  if (!content) {
    return std::nullopt;
  }
  auto bytes = ascii ? countedObject(bplist::kASCII, content->size())
                     : countedObject(bplist::kUTF16, content->size() / 2);
  bytes += *content;
  return texts_[text] = addObject(std::move(bytes));
}

std::optional<std::size_t> BinaryPropertyListWriter::addArray(const PropertyListArray& array) {
  const auto index = addObject(countedObject(bplist::kArray, array.size()));
  std::vector<std::size_t> references;
  for (const auto& element : array) {
    const auto reference = add(element);
    if (!reference) {
      return std::nullopt;
    }
    references.push_back(*reference);
  }
  objects_[index].references = std::move(references);
  return index;
}

std::optional<std::size_t> BinaryPropertyListWriter::addDictionary(
    const PropertyListDictionary& dictionary) {
  const auto index = addObject(countedObject(bplist::kDictionary, dictionary.size()));
  std::vector<std::size_t> references;
  for (const auto& entry : dictionary) {
    const auto reference = addText(entry.first);
    if (!reference) {
      return std::nullopt;
    }
    references.push_back(*reference);
  }
  for (const auto& entry : dictionary) {
    const auto reference = add(entry.second);
    if (!reference) {
      return std::nullopt;
    }
    references.push_back(*reference);
  }
  objects_[index].references = std::move(references);
  return index;
}

std::string BinaryPropertyListWriter::assemble() const {
  const std::size_t referenceSize = std::size_t{1} << widthOf(objects_.size() - 1);
  std::string bytes(bplist::kHeader);
  std::vector<std::size_t> offsets;
  offsets.reserve(objects_.size());
  for (const auto& object : objects_) {
    offsets.push_back(bytes.size());
    bytes += object.bytes;
    for (const auto reference : object.references) {
      appendNumber(bytes, reference, referenceSize);
    }
  }
  const std::size_t table = bytes.size();
  const std::size_t offsetSize = std::size_t{1} << widthOf(table);
  for (const auto offset : offsets) {
    appendNumber(bytes, offset, offsetSize);
  }
  appendNumber(bytes, 0, 6);
  appendNumber(bytes, offsetSize, 1);
  appendNumber(bytes, referenceSize, 1);
  appendNumber(bytes, objects_.size(), 8);
  appendNumber(bytes, 0, 8);  // the top object is the first
  appendNumber(bytes, table, 8);
  return bytes;
}
