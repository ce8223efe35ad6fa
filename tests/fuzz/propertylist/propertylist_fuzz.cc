#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "linux/propertylist/BinaryPropertyListWriter.h"
#include "linux/propertylist/PropertyListSerialization.h"

// Any bytes as a property list: what is read can be written, and what is written reads as the same.

namespace {

void require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

// A date that is not a number equals no date, so values are compared by the bytes that they give;
// texts in them may lie beyond what one form carries, never beyond what both do.
void requireStable(const PropertyListValue& value) {
  const auto bytes = bytesFromPropertyList(value);
  if (!bytes) {
    return;  // what two forms need differs: a file near the bound may pass it in the other one
  }
  const auto back = propertyListFromBytes(*bytes);
  require(back.has_value());
  require(bytesFromPropertyList(*back) == bytes);

  const auto binary = BinaryPropertyListWriter::write(value);
  require(binary.has_value());
  const auto fromBinary = propertyListFromBytes(*binary);
  require(fromBinary.has_value());
  require(BinaryPropertyListWriter::write(*fromBinary) == binary);
  require(bytesFromPropertyList(*fromBinary) == bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const auto value = propertyListFromBytes({reinterpret_cast<const char*>(bytes), size});
  if (value) {
    requireStable(*value);
  }
  return 0;
}
