#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <type_traits>

#include <benchmark/benchmark.h>
#include <plist/plist.h>

#include "linux/propertylist/BinaryPropertyListReader.h"
#include "linux/propertylist/BinaryPropertyListWriter.h"
#include "linux/propertylist/PropertyListSerialization.h"

// Property lists in memory, read and written by our own code and by libplist.

namespace {

PropertyListValue settings(std::int64_t keys) {
  PropertyListDictionary dictionary{{"selectedPrefix", "#31#"}};
  for (std::int64_t key = 1; key < keys; ++key) {
    const auto name = "someSettingsKey" + std::to_string(key);
    dictionary.emplace(name, key % 2 == 0 ? PropertyListValue(key) : PropertyListValue("Style 1"));
  }
  return dictionary;
}

std::string xml(std::int64_t keys) {
  return *bytesFromPropertyList(settings(keys));
}

std::string binary(std::int64_t keys) {
  return *BinaryPropertyListWriter::write(settings(keys));
}

struct Free {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<std::remove_pointer_t<plist_t>, Free>;

Node nodeFrom(const std::string& bytes) {
  plist_t node = nullptr;
  const auto size = static_cast<std::uint32_t>(bytes.size());
  if (BinaryPropertyListReader::isBinary(bytes)) {
    plist_from_bin(bytes.data(), size, &node);
  } else {
    plist_from_xml(bytes.data(), size, &node);
  }
  return Node(node);
}

void read(benchmark::State& state, std::string (*make)(std::int64_t)) {
  const auto bytes = make(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(propertyListFromBytes(bytes));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void readLibplist(benchmark::State& state, std::string (*make)(std::int64_t)) {
  const auto bytes = make(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(nodeFrom(bytes));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void writeXML(benchmark::State& state) {
  const auto value = settings(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(bytesFromPropertyList(value));
  }
}

void writeXMLLibplist(benchmark::State& state) {
  const auto node = nodeFrom(xml(state.range(0)));
  for (auto _ : state) {
    char* text = nullptr;
    std::uint32_t size = 0;
    plist_to_xml(node.get(), &text, &size);
    benchmark::DoNotOptimize(text);
    std::free(text);  // NOLINT(cppcoreguidelines-no-malloc): what the library hands over
  }
}

BENCHMARK_CAPTURE(read, XML, xml)->Arg(13)->Arg(10000);
BENCHMARK_CAPTURE(readLibplist, XML, xml)->Arg(13)->Arg(10000);
BENCHMARK_CAPTURE(read, binary, binary)->Arg(13)->Arg(10000);
BENCHMARK_CAPTURE(readLibplist, binary, binary)->Arg(13)->Arg(10000);
BENCHMARK(writeXML)->Arg(13)->Arg(10000);
BENCHMARK(writeXMLLibplist)->Arg(13)->Arg(10000);

}  // namespace

BENCHMARK_MAIN();
