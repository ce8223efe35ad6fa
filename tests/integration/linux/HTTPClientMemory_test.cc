#include "tests/integration/linux/HTTPClientTest.h"
#include "tests/support/AllocationMeter.h"

TEST_F(HTTPClientTest, AnAnswerForWhichThereIsNoMemoryIsNone) {
  HTTPLimits limits;
  limits.bytes = std::size_t{1} << 21;
  serve(std::string(std::size_t{1} << 20, 'x'));
  {
    const allocationmeter::Limit limit(std::size_t{1} << 18);
    EXPECT_EQ(client->get(kList, limits), std::nullopt);
  }
  EXPECT_TRUE(client->get(kList, limits));
  serve("a", "long-header");
  {
    const allocationmeter::Limit limit(4000);
    EXPECT_EQ(client->get(kList, limits), std::nullopt);
  }
  EXPECT_TRUE(client->get(kList, limits));
}
