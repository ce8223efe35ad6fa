#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "linux/HTTPClient.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

inline constexpr const char* kList =
    "http://tweaks.tallowbyte.example/tweaks/tweaks.php?id=me.orlanvey.quietdial&list=1";

/// The catalogue server with one tweak, and a client that reaches it and, unless told so, nothing
/// else.
class HTTPClientTest : public testing::Test {
 protected:
  void serve(const std::string& tweak, const std::string& fault = "",
             HTTPClient::Unmapped unmapped = HTTPClient::Unmapped::kUnreachable) {
    const auto catalogue = folder_ / "catalogue.json";
    writeBytes(catalogue, R"([{"id": ")" + tweak + R"("}])");
    server_.emplace(std::vector<std::string>{QD_CATALOGUE_SERVER, "--catalogue", catalogue,
                                             "--list-fault", fault});
    const auto line = server_->readLine().value_or("");
    const auto port = line.substr(line.rfind(':') + 1);
    HostMap hosts;
    ASSERT_TRUE(hosts.add("tweaks.tallowbyte.example=127.0.0.1:" + port)) << line;
    client = std::make_shared<HTTPClient>(hosts, unmapped);
    otherClient = std::make_shared<HTTPClient>(hosts, HTTPClient::Unmapped::kUnreachable);
  }

  std::shared_ptr<HTTPClient> client;
  std::shared_ptr<HTTPClient> otherClient;

 private:
  TemporaryFolder folder_;
  std::optional<ChildProcess> server_;
};
