
#include <gtest/gtest.h>

#include "linux/propertylist/BinaryPropertyListWriter.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "linux/propertylist/PropertyListSerialization.h"
#include "linux/propertylist/XMLPropertyListWriter.h"
#include "tests/support/AllocationMeter.h"
#include "tests/support/sampleSettings.h"

namespace {

constexpr std::size_t kMemoryBound = std::size_t{64} << 20;

// Reads within the memory bound; true when there was a value, which must then survive a rewrite.
bool readsBounded(const std::string& bytes) {
  allocationmeter::reset();
  const auto value = propertyListFromBytes(bytes);
  EXPECT_LE(allocationmeter::peak(), kMemoryBound);
  if (!value) {
    return false;
  }
  const auto rewritten = bytesFromPropertyList(*value);
  EXPECT_TRUE(rewritten);
  return rewritten.has_value();
}

void expectEveryPrefixRefused(const std::string& bytes) {
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    // What is cut from the end of a document may be its last line feed alone.
    if (readsBounded(bytes.substr(0, length))) {
      EXPECT_EQ(length, bytes.size() - 1);
      EXPECT_EQ(bytes.back(), '\n');
    }
  }
}

void expectEveryByteChangeBounded(const std::string& bytes) {
  std::size_t accepted = 0;
  auto changed = bytes;
  for (std::size_t position = 0; position < bytes.size(); ++position) {
    for (int value = 0; value < 256; ++value) {
      changed[position] = static_cast<char>(value);
      accepted += readsBounded(changed) ? 1 : 0;
    }
    changed[position] = bytes[position];
  }
  // Texts and numbers have no checksum: some changes must still read.
  EXPECT_GT(accepted, bytes.size());
  EXPECT_LT(accepted, bytes.size() * 256);
}

std::string nestedArrays(std::size_t count) {
  std::string bytes = "<plist>";
  for (std::size_t level = 0; level < count; ++level) {
    bytes += "<array>";
  }
  for (std::size_t level = 0; level < count; ++level) {
    bytes += "</array>";
  }
  return bytes + "</plist>";
}

// Arrays that each hold the next one twice: the tree doubles at every level.
std::string doublingFile(unsigned levels) {
  std::string bytes = "bplist00";
  std::string table;
  for (unsigned level = 0; level < levels; ++level) {
    table += static_cast<char>(bytes.size());
    bytes += "\xA2";
    bytes += std::string(2, static_cast<char>(level + 1));
  }
  table += static_cast<char>(bytes.size());
  bytes += "\x09";
  const auto start = bytes.size();
  return bytes + table + std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') +
         static_cast<char>(levels + 1) + std::string(15, '\0') + static_cast<char>(start);
}

enum class Container { kArray, kDictionary };

// Containers nested in a binary file, with references and offsets of four bytes. Each holds the
// next alone, dictionaries under the key "a".
std::string nestedBinary(std::uint32_t count, Container container = Container::kArray) {
  const auto number = [](std::uint32_t value) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
      bytes += static_cast<char>(value >> shift);
    }
    return bytes;
  };
  std::string bytes = "bplist00";
  std::string table;
  for (std::uint32_t level = 0; level < count; ++level) {
    table += number(static_cast<std::uint32_t>(bytes.size()));
    bytes += container == Container::kArray ? "\xA1" : "\xD1" + number(count + 1);
    bytes += number(level + 1);
  }
  table += number(static_cast<std::uint32_t>(bytes.size()));
  bytes += "\x09";
  table += number(static_cast<std::uint32_t>(bytes.size()));
  bytes +=
      "\x51"
      "a";
  const auto start = static_cast<std::uint32_t>(bytes.size());
  return bytes + table + std::string(6, '\0') + "\x04\x04" + std::string(4, '\0') +
         number(count + 2) + std::string(12, '\0') + number(start);
}

}  // namespace

TEST(DamagedPropertyList, EveryPrefixOfAnXMLFileIsRefused) {
  expectEveryPrefixRefused(*XMLPropertyListWriter::write(ownSettings()));
}

TEST(DamagedPropertyList, EveryPrefixOfABinaryFileIsRefused) {
  expectEveryPrefixRefused(*BinaryPropertyListWriter::write(ownSettings()));
}

TEST(DamagedPropertyList, EveryByteChangeOfAnXMLFileIsBounded) {
  expectEveryByteChangeBounded(*XMLPropertyListWriter::write(ownSettings()));
}

TEST(DamagedPropertyList, EveryByteChangeOfABinaryFileIsBounded) {
  expectEveryByteChangeBounded(*BinaryPropertyListWriter::write(ownSettings()));
}

TEST(DamagedPropertyList, NestingIsReadUpToItsBound) {
  EXPECT_TRUE(readsBounded(nestedArrays(kPropertyListDepthBound)));
  EXPECT_FALSE(readsBounded(nestedArrays(kPropertyListDepthBound + 1)));
  EXPECT_FALSE(readsBounded(nestedArrays(200'000)));
  EXPECT_TRUE(readsBounded(nestedBinary(kPropertyListDepthBound - 1)));
  EXPECT_FALSE(readsBounded(nestedBinary(kPropertyListDepthBound)));
  EXPECT_FALSE(readsBounded(nestedBinary(200'000)));
  EXPECT_TRUE(readsBounded(nestedBinary(kPropertyListDepthBound - 1, Container::kDictionary)));
  EXPECT_FALSE(readsBounded(nestedBinary(kPropertyListDepthBound, Container::kDictionary)));
  EXPECT_FALSE(readsBounded(nestedBinary(200'000, Container::kDictionary)));
}

TEST(DamagedPropertyList, DoublingReferencesEndAtTheBudget) {
  EXPECT_TRUE(readsBounded(doublingFile(10)));
  const auto file = doublingFile(24);
  EXPECT_EQ(file.size(), 138);
  EXPECT_FALSE(readsBounded(file));
  EXPECT_FALSE(readsBounded(doublingFile(60)));
}

TEST(DamagedPropertyList, AFileOverTheBoundIsRefused) {
  std::string bytes = "<plist><string>";
  const std::string end = "</string></plist>";
  bytes += std::string(kPropertyListFileBound - bytes.size() - end.size(), 'x') + end;
  EXPECT_TRUE(propertyListFromBytes(bytes));
  EXPECT_FALSE(propertyListFromBytes(bytes + " "));
}

TEST(DamagedPropertyList, ManySmallValuesEndAtTheBudget) {
  std::string bytes = "<plist><array>";
  while (bytes.size() < kPropertyListFileBound - 64) {
    bytes += "<true/>";
  }
  EXPECT_FALSE(readsBounded(bytes + "</array></plist>"));
}

TEST(DamagedPropertyList, WhatCouldNotBeReadBackIsNotWritten) {
  EXPECT_EQ(bytesFromPropertyList(std::string(kPropertyListFileBound, 'x')), std::nullopt);
  PropertyListValue value = PropertyListArray{};
  for (int depth = 1; depth < kPropertyListDepthBound; ++depth) {
    value = PropertyListArray{value};
  }
  EXPECT_TRUE(propertyListFromBytes(*bytesFromPropertyList(value)));
  EXPECT_EQ(bytesFromPropertyList(PropertyListArray{value}), std::nullopt);
}

TEST(DamagedPropertyList, DataIsPaidForAsTheTextAsWhichItIsRead) {
  // Four letters for each three bytes and for what is left, and what any value costs.
  constexpr std::size_t letters = (std::size_t{32} << 20) - 128;
  constexpr std::size_t most = (letters / 4 - 1) * 3 + 2;
  EXPECT_TRUE(PropertyListBudget().covers(PropertyListValue(PropertyListData(most))));
  EXPECT_FALSE(PropertyListBudget().covers(PropertyListValue(PropertyListData(most + 1))));
}

TEST(DamagedPropertyList, OtherFormatsAndGarbageAreRefused) {
  for (const auto* bytes : {"", "x", " ", "{ a = 1; }", "[1]", "<html></html>", "bplist00",
                            "bplist15", "<", "<plist", "<plist/>", "<!--", "<?xml", "<!DOCTYPE"}) {
    EXPECT_FALSE(readsBounded(bytes)) << bytes;
  }
  EXPECT_FALSE(readsBounded(std::string(1, '\0')));
}
