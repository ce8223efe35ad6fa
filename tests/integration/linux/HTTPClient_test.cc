#include "linux/HTTPClient.h"

#include <future>
#include <optional>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/HTTPFetchService.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr const char* kList =
    "http://tweaks.tallowbyte.example/tweaks/tweaks.php?id=me.orlanvey.quietdial&list=1";

// The catalogue server with one tweak, and a client that reaches it and nothing else.
class HTTPClientTest : public testing::Test {
 protected:
  void serve(const std::string& tweak, const std::string& fault = "") {
    const auto catalogue = folder_ / "catalogue.json";
    writeBytes(catalogue, R"([{"id": ")" + tweak + R"("}])");
    server_.emplace(std::vector<std::string>{QD_CATALOGUE_SERVER, "--catalogue", catalogue,
                                             "--list-fault", fault});
    const auto line = server_->readLine().value_or("");
    const auto port = line.substr(line.rfind(':') + 1);
    HostMap hosts;
    ASSERT_TRUE(hosts.add("tweaks.tallowbyte.example=127.0.0.1:" + port)) << line;
    client = std::make_shared<HTTPClient>(hosts, HTTPClient::Unmapped::kUnreachable);
    otherClient = std::make_shared<HTTPClient>(hosts, HTTPClient::Unmapped::kUnreachable);
  }

  std::shared_ptr<HTTPClient> client;
  std::shared_ptr<HTTPClient> otherClient;

 private:
  TemporaryFolder folder_;
  std::optional<ChildProcess> server_;
};

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
  constexpr std::size_t kMost = std::size_t{1} << 20;
  serve(std::string(kMost, 'x'));
  EXPECT_EQ(HTTPFetchService(client).stringWithContentsOfURL(kList)->size(), kMost);
  serve(std::string(kMost + 1, 'x'));
  EXPECT_EQ(HTTPFetchService(client).stringWithContentsOfURL(kList), std::nullopt);
}

TEST_F(HTTPClientTest, AnAnswerThatTakesLongerThanItMayIsNone) {
  serve("a", "late=0.4");
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

TEST_F(HTTPClientTest, OnlyAddressesOfHTTPAreAsked) {
  serve("a");
  for (const char* url : {"", "tweaks.tallowbyte.example", "file:///etc/hostname", "http://",
                          "ftp://tweaks.tallowbyte.example/", "http://127.0.0.1/",
                          "http://user@tweaks.tallowbyte.example/", "http://a b/"}) {
    EXPECT_EQ(client->get(url), std::nullopt) << url;
  }
}

}  // namespace
