#include "linux/HostMap.h"

#include <gtest/gtest.h>

namespace {

TEST(HostMap, ANameIsFoundWhateverItsCase) {
  HostMap hosts;
  EXPECT_TRUE(hosts.empty());
  ASSERT_TRUE(hosts.add("Tweaks.Example=127.0.0.1:8080"));
  ASSERT_TRUE(hosts.find("tweaks.EXAMPLE"));
  EXPECT_EQ(hosts.find("tweaks.example")->text(), "127.0.0.1:8080");
  EXPECT_EQ(hosts.find("example"), nullptr);
  EXPECT_EQ(hosts.find(""), nullptr);
}

TEST(HostMap, ALaterAddressTakesAnEarlierOnesPlace) {
  HostMap hosts;
  hosts.add("a=127.0.0.1:1");
  hosts.add("a=127.0.0.1:2");
  EXPECT_EQ(hosts.find("a")->port, 2);
}

TEST(HostMap, WhatIsNotNameAddressAndPortIsNotTaken) {
  HostMap hosts;
  for (const char* text :
       {"",         "a",         "a=",        "a=b",     "a=b:",    "a=:1",    "=b:1",
        "a=b:0",    "a=b:65536", "a=b:-1",    "a=b:1x",  "a=b: 1",  "a b=c:1", "a=b c:1",
        "a=::1:80", "a=[::1]",   "a=\"b\":1", "a,b=c:1", "a=b,c:1", "a:1=b"}) {
    EXPECT_FALSE(hosts.add(text)) << text;
  }
  EXPECT_TRUE(hosts.empty());
}

TEST(HostMap, OnlyNumbersOfThisMachineAreLoopback) {
  HostMap hosts;
  for (const auto& [text, loopback] : {std::pair{"a=127.0.0.1:80", true},
                                       {"a=127.255.3.4:80", true},
                                       {"a=[::1]:80", true},
                                       {"a=128.0.0.1:80", false},
                                       {"a=10.0.0.1:80", false},
                                       {"a=localhost:80", false},
                                       {"a=127.0.0.1.example:80", false},
                                       {"a=[::2]:80", false}}) {
    ASSERT_TRUE(hosts.add(text)) << text;
    EXPECT_EQ(hosts.find("a")->isLoopback(), loopback) << text;
  }
}

}  // namespace
