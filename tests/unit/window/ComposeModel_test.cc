#include "settings/sheets/ComposeModel.h"

#include "tests/unit/window/SheetsFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ComposeModelTest : public SheetsFixture {
 protected:
  ComposeModel& compose(std::string_view service = SLServiceTypeTwitter) {
    sheet = presentCompose(service);
    recorder->take();
    return *shown->compose();
  }
  std::vector<std::string> opened() {
    std::vector<std::string> addresses;
    for (const auto& event : take()) {
      if (const auto* open = std::get_if<OpenEvent>(&event)) {
        addresses.push_back(open->url);
      }
    }
    return addresses;
  }

  std::shared_ptr<SLComposeViewController> sheet;
};

TEST_F(ComposeModelTest, ItIsCalledAfterItsServiceAndHoldsItsText) {
  const auto& model = compose();
  EXPECT_EQ(model.service(), QStringLiteral("Twitter"));
  EXPECT_EQ(model.text(), QStringLiteral("I like it"));
}

TEST_F(ComposeModelTest, AnotherServiceHasNoName) {
  EXPECT_EQ(compose("SLServiceTypeOther").service(), QString());
}

TEST_F(ComposeModelTest, PostingOpensTheServicesFormWithTheTextAsItWasEdited) {
  auto& model = compose();
  model.edit(QStringLiteral("50% off & ünïcode? #1\n+"));
  EXPECT_EQ(sheet->text(), "50% off & ünïcode? #1\n+");
  model.post();
  EXPECT_THAT(opened(), ElementsAre("https://twitter.example/intent/tweet?text=50%25%20off%20%26%20"
                                    "%C3%BCn%C3%AFcode%3F%20%231%0A%2B"));
  EXPECT_FALSE(shown->isShowing());
}

TEST_F(ComposeModelTest, CancellingOpensNothing) {
  compose().cancel();
  EXPECT_THAT(opened(), IsEmpty());
  EXPECT_FALSE(shown->isShowing());
}

}  // namespace
