#include <cctype>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tools/gif/GifCommand.h"
#include "tools/runCommand.h"

namespace {

struct Sample {
  std::string folder;
  nlohmann::json expected;
};

std::ostream& operator<<(std::ostream& stream, const Sample& sample) {
  return stream << sample.folder << '/' << sample.expected["file"].get<std::string>();
}

std::vector<Sample> samples() {
  std::vector<Sample> result;
  for (const std::string folder : {QD_OWN_GIF_SAMPLES, QD_GIF_SAMPLES}) {
    if (folder.empty()) {
      continue;
    }
    std::ifstream stream(folder + "/manifest.json");
    const nlohmann::json manifest = nlohmann::json::parse(stream);
    for (const nlohmann::json& file : manifest["files"]) {
      result.push_back({folder, file});
    }
  }
  return result;
}

std::string nameOf(const testing::TestParamInfo<Sample>& info) {
  std::string name = info.param.folder == QD_OWN_GIF_SAMPLES ? "own_" : "other_";
  for (const char character : info.param.expected["file"].get<std::string>()) {
    name += std::isalnum(static_cast<unsigned char>(character)) != 0 ? character : '_';
  }
  return name;
}

class GIFSamples : public testing::TestWithParam<Sample> {};

TEST_P(GIFSamples, EveryFrameHasItsChecksum) {
  const nlohmann::json& expected = GetParam().expected;
  const std::string file = GetParam().folder + "/" + expected["file"].get<std::string>();
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream nothing;
  GifCommand command;
  ASSERT_EQ(runCommand(command, {"--checksums", file}, {nothing, out, err}), 0) << err.str();
  const nlohmann::json actual = nlohmann::json::parse(out.str());

  EXPECT_EQ(actual["width"], expected["width"]);
  EXPECT_EQ(actual["height"], expected["height"]);
  const std::size_t count = expected["frames"];
  ASSERT_GE(actual["frames"], count);
  if (file.find("truncated") == std::string::npos) {
    EXPECT_EQ(actual["frames"], count);
  }
  ASSERT_EQ(expected["frame_sha256"].size(), count);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(actual["checksums"][i], expected["frame_sha256"][i]) << i;
    const nlohmann::json& delay = actual["unclamped"][i];
    EXPECT_EQ(delay.is_null() ? 0.0 : delay.get<double>(),
              expected["delays_cs"][i].get<unsigned>() / 100.0)
        << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Files, GIFSamples, testing::ValuesIn(samples()), nameOf);

}  // namespace
