#include "linux/HTTPClient.h"

#include <future>
#include <optional>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/HTTPFetchService.h"
#include "tests/integration/linux/HTTPClientTest.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST_F(HTTPClientTest, AnAnswerHasItsStatusItsHeadersAndItsBody) {
  serve("a");
  const auto answer = client->get(kList);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 200);
  EXPECT_TRUE(answer->isSuccess());
  EXPECT_EQ(answer->body, "a");
  EXPECT_EQ(answer->header("content-type"), "text/plain; charset=utf-8");
  EXPECT_EQ(answer->header("no-such-header"), std::nullopt);
}

TEST_F(HTTPClientTest, AStatusOtherThan2xxIsAnAnswerButNoText) {
  serve("a", "status=503");
  EXPECT_EQ(client->get(kList)->status, 503);
  EXPECT_EQ(HTTPFetchService(client).stringWithContentsOfURL(kList), std::nullopt);
}

TEST_F(HTTPClientTest, ABodyOfTheGreatestSizeIsTakenAndOneByteMoreIsNot) {
  const HTTPLimits limits{.bytes = 1000};
  serve(std::string(limits.bytes, 'x'));
  EXPECT_EQ(client->get(kList, limits)->body.size(), limits.bytes);
  serve(std::string(limits.bytes + 1, 'x'));
  EXPECT_EQ(client->get(kList, limits), std::nullopt);
}

TEST_F(HTTPClientTest, ATextIsAtMost64KiBLong) {
  constexpr std::size_t kMost = std::size_t{64} << 10;
  serve(std::string(kMost, 'x'));
  const auto text = HTTPFetchService(client).stringWithContentsOfURL(kList);
  ASSERT_TRUE(text);
  EXPECT_EQ(text->size(), kMost);
  serve(std::string(kMost + 1, 'x'));
  EXPECT_FALSE(HTTPFetchService(client).stringWithContentsOfURL(kList).has_value());
}

TEST_F(HTTPClientTest, AnAnswerThatTakesLongerThanItMayIsNone) {
  serve("a", "hang");
  HTTPLimits limits;
  limits.time = milliseconds(100);
  EXPECT_EQ(client->get(kList, limits), std::nullopt);
}

TEST_F(HTTPClientTest, ManyRequestsAtOnceEachGetTheirAnswer) {
  serve("a", "late=0.1");
  std::vector<std::optional<HTTPAnswer>> answers(10);
  std::vector<std::thread> threads;
  for (auto& answer : answers) {
    threads.emplace_back([&] { answer = client->get(kList); });
  }
  for (auto& thread : threads) {
    thread.join();
  }
  for (const auto& answer : answers) {
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->body, "a");
  }
}

TEST_F(HTTPClientTest, StoppingEndsWhatHangsAndRefusesWhatComesLater) {
  serve("a", "hang");
  std::vector<std::thread> threads;
  const auto begin = std::chrono::steady_clock::now();
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&] { EXPECT_EQ(client->get(kList), std::nullopt); });
  }
  client->stop();
  for (auto& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(client->get(kList), std::nullopt);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, seconds(20));
}

TEST_F(HTTPClientTest, WhatIsAskedForWhileSuspendedWaitsAndHasItsWholeTimeThen) {
  serve("a", "late=0.1");
  client->suspend();
  HTTPLimits limits;
  limits.time = seconds(5);
  auto answer = std::async(std::launch::async, [&] { return client->get(kList, limits); });
  EXPECT_TRUE(otherClient->get(kList));
  EXPECT_TRUE(otherClient->get(kList));
  EXPECT_EQ(answer.wait_for(seconds(0)), std::future_status::timeout);
  client->resume();
  const auto got = answer.get();
  ASSERT_TRUE(got);
  EXPECT_EQ(got->body, "a");
  EXPECT_TRUE(client->get(kList));
}

TEST_F(HTTPClientTest, StoppingEndsWhatWaitsToBegin) {
  serve("a");
  client->suspend();
  auto answer = std::async(std::launch::async, [&] { return client->get(kList); });
  client->stop();
  EXPECT_EQ(answer.get(), std::nullopt);
}

TEST_F(HTTPClientTest, ARedirectLeadsToNoOtherHost) {
  TemporaryFolder folder;
  const auto asked = folder / "asked";
  ChildProcess other({QD_CATALOGUE_SERVER, "--log", asked});
  const auto origin = other.readLine().value_or("");
  const auto port = origin.substr(origin.rfind(':') + 1);
  const std::string path = std::string(kList).substr(std::string(kList).find("/tweaks/"));
  for (const auto& target :
       {origin + path, "http://localhost:" + port + path, "//127.0.0.1:" + port + path}) {
    serve("a", "away=" + target, HTTPClient::Unmapped::kLookedUp);
    EXPECT_EQ(client->get(kList), std::nullopt) << target;
  }
  EXPECT_EQ(bytesOf(asked), "");
  ASSERT_TRUE(client->get(origin + path)) << "the other host can be reached";
  EXPECT_NE(bytesOf(asked), "");
}

TEST_F(HTTPClientTest, ARedirectWithinTheHostIsFollowedHoweverItIsWritten) {
  const std::string path = "/tweaks/tweaks.php?id=me.orlanvey.quietdial";
  for (const auto& target :
       {"http://TWEAKS.Tallowbyte.example" + path, "http://tweaks.tallowbyte.example:8080" + path,
        "//tweaks.tallowbyte.example" + path, path}) {
    serve("a", "away=" + target);
    const auto answer = client->get(kList);
    ASSERT_TRUE(answer) << target;
    EXPECT_THAT(answer->body, testing::StartsWith("<!DOCTYPE html>")) << target;
  }
}

TEST_F(HTTPClientTest, OnlyAddressesOfHTTPAreAsked) {
  serve("a");
  for (const char* url : {"", "tweaks.tallowbyte.example", "file:///etc/hostname", "http://",
                          "ftp://tweaks.tallowbyte.example/", "http://127.0.0.1/",
                          "http://user@tweaks.tallowbyte.example/", "http://a b/"}) {
    EXPECT_EQ(client->get(url), std::nullopt) << url;
  }
}

}  // namespace
