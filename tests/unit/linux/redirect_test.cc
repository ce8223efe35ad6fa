#include "linux/redirect.h"

#include <gtest/gtest.h>

TEST(Redirect, StaysOnItsHost) {
  EXPECT_TRUE(mayRedirect({"http", "a.example"}, {"http", "a.example"}));
  EXPECT_FALSE(mayRedirect({"http", "a.example"}, {"http", "b.example"}));
  EXPECT_FALSE(mayRedirect({"http", "a.example"}, {"http", "127.0.0.1"}));
  EXPECT_FALSE(mayRedirect({"http", "a.example"}, {"http", "a.example."}));
  EXPECT_FALSE(mayRedirect({"https", "a.example"}, {"https", "b.example"}));
}

TEST(Redirect, NeverLeavesHTTPS) {
  EXPECT_TRUE(mayRedirect({"http", "a.example"}, {"https", "a.example"}));
  EXPECT_TRUE(mayRedirect({"https", "a.example"}, {"https", "a.example"}));
  EXPECT_FALSE(mayRedirect({"https", "a.example"}, {"http", "a.example"}));
}

TEST(Redirect, LeadsToNothingButWebServers) {
  for (const auto* scheme : {"file", "ftp", "data", "chrome", ""}) {
    EXPECT_FALSE(mayRedirect({"http", "a.example"}, {scheme, "a.example"})) << scheme;
    EXPECT_FALSE(mayRedirect({scheme, "a.example"}, {"http", "a.example"})) << scheme;
  }
}
