#include <map>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/ClassDescription.h"

extern "C" const ClassTable quietDialPreferencesClasses;

// Resources, scripts and stored rows name these.
TEST(BundleClasses, TheTableHoldsEachByItsName) {
  std::vector<std::string_view> names;
  for (const auto* description : quietDialPreferencesClasses.classes) {
    names.push_back(description->name);
  }
  EXPECT_THAT(names, testing::UnorderedElementsAre(
                         "FLAnimatedImage", "FLAnimatedImageView", "FLWeakProxy",
                         "QDPreferencesListController", "QDSupportListController",
                         "QDCreditsListController", "QDSoftwareCreditsController",
                         "QDCountryPrefixController", "prefixTableCell", "QDPromotionController",
                         "QDDialerStyleSelectionController", "QDDialerTabStyleCell",
                         "QDSystemwideStyleSelectionController", "QDSystemwideStyleCell",
                         "QDButtonStyleSelectionController", "QDButtonPickerCell"));
}

TEST(BundleClasses, EachAnswersForItsSelectors) {
  const std::map<std::string_view, std::vector<std::string_view>> selectors{
      {"FLAnimatedImage",
       {"animatedImageWithGIFData:", "didReceiveMemoryWarning:",
        "growFrameCacheSizeAfterMemoryWarning:", "resetFrameCacheSizeMaxInternal"}},
      {"FLAnimatedImageView",
       {"displayDidRefresh:", "setAnimatedImage:", "frameCount", "currentFrameIndex",
        "loopCountdown"}},
      {"QDPreferencesListController",
       {"applyChangedSettings", "showLove", "installUpdate",
        "readPreferenceValue:", "setPreferenceValue:specifier:"}},
      {"QDSupportListController", {"sendSupportEmail"}},
      {"QDCreditsListController", {"followOnTwitter", "donate", "visitTallowbyte"}},
      {"QDCountryPrefixController",
       {"getValueForSpecifier:", "setValue:forSpecifier:", "cellSelected:"}},
      {"QDDialerTabStyleCell", {"updateImageForIndex"}},
      {"QDSystemwideStyleSelectionController",
       {"readPreferenceValue:", "setPreferenceValue:specifier:", "dismissKeyboard"}},
      {"QDSystemwideStyleCell", {"updateImageForIndex"}},
      {"QDButtonPickerCell", {"buttonPressed:"}},
  };
  for (const auto* description : quietDialPreferencesClasses.classes) {
    std::vector<std::string_view> own;
    for (const auto& method : description->methods) {
      own.push_back(method.selector);
    }
    const auto expected = selectors.find(description->name);
    EXPECT_THAT(own, testing::UnorderedElementsAreArray(expected == selectors.end()
                                                            ? std::vector<std::string_view>{}
                                                            : expected->second))
        << description->name;
  }
}
