#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include <gtest/gtest.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

// The target stops the process on a fault, so a corpus that was gone through is a corpus that
// passes.
TEST(FuzzCorpus, EveryKeptInputIsHandled) {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QD_CORPUS)) {
    SCOPED_TRACE(entry.path().string());
    std::ifstream stream(entry.path(), std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator(stream), {}};
    EXPECT_EQ(
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()),
        0);
    ++count;
  }
  EXPECT_GT(count, 0U);
}
