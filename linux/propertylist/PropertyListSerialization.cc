#include "linux/propertylist/PropertyListSerialization.h"

#include "linux/propertylist/BinaryPropertyListReader.h"
#include "linux/propertylist/BinaryPropertyListWriter.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "linux/propertylist/XMLPropertyListReader.h"
#include "linux/propertylist/XMLPropertyListWriter.h"

std::optional<PropertyListValue> propertyListFromBytes(std::string_view bytes) {
  if (bytes.size() > kPropertyListFileBound) {
    return std::nullopt;
  }
  return BinaryPropertyListReader::isBinary(bytes) ? BinaryPropertyListReader(bytes).read()
                                                   : XMLPropertyListReader(bytes).read();
}

std::optional<PropertyListDictionary> dictionaryFromBytes(std::string_view bytes) {
  const auto value = propertyListFromBytes(bytes);
  const auto* dictionary = value ? value->get<PropertyListDictionary>() : nullptr;
  return dictionary ? std::optional(*dictionary) : std::nullopt;
}

std::optional<std::string> bytesFromPropertyList(const PropertyListValue& value) {
  if (!PropertyListBudget().covers(value)) {
    return std::nullopt;
  }
  auto bytes = XMLPropertyListWriter::write(value);
  return bytes ? bytes : BinaryPropertyListWriter::write(value);
}
