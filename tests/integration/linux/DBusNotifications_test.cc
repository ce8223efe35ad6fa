#include "linux/DBusNotifications.h"

#include <poll.h>
#include <stdexcept>
#include <stdlib.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/SystemClock.h"
#include "tests/support/PollHost.h"
#include "tests/support/PrivateBus.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

constexpr auto kCall = NotificationCall::kCFNotificationCenter;
constexpr auto kPatience = 20s;

// One connection to the bus, as another process would have it, and what was delivered to it.
struct Member {
  std::vector<std::string> names;
  DBusNotifications notifications{[this](const std::string& name) { names.push_back(name); }};

  bool runUntil(const std::function<bool()>& done) {
    return PollHost(notifications).runUntil(done, kPatience);
  }
  bool join() {
    return runUntil(
        [this] { return notifications.state() == DBusNotifications::State::kListening; });
  }
  bool receive(std::size_t count) {
    return runUntil([this, count] { return names.size() >= count; });
  }
};

}  // namespace

TEST(DBusNotifications, APostReachesOtherProcessesWithItsExactName) {
  PrivateBus bus;
  BusMonitor monitor;
  Member member;
  member.notifications.broadcast(kCall, "me.orlanvey.quietDial/PreferencesChanged");
  member.notifications.broadcast(NotificationCall::kNotifyPost,
                                 "me.orlanvey.quietdial/prefsChanged");
  ASSERT_TRUE(member.join());
  EXPECT_EQ(monitor.nextName(), "me.orlanvey.quietDial/PreferencesChanged");
  EXPECT_EQ(monitor.nextName(), "me.orlanvey.quietdial/prefsChanged");
}

TEST(DBusNotifications, AnyProgramCanPost) {
  PrivateBus bus;
  Member member;
  ASSERT_TRUE(member.join());
  ChildProcess emit({"gdbus", "emit", "--session", "--object-path",
                     "/me/orlanvey/quietdial/Notifications", "--signal",
                     "me.orlanvey.quietdial.Notifications.Posted", "a.b/c"});
  ASSERT_TRUE(member.receive(1));
  EXPECT_THAT(member.names, ElementsAre("a.b/c"));
}

TEST(DBusNotifications, APosterHearsNoEchoOfItsOwnAndOthersHearEachPostOnceInOrder) {
  PrivateBus bus;
  Member poster;
  Member listener;
  ASSERT_TRUE(poster.join());
  ASSERT_TRUE(listener.join());
  std::vector<std::string> expected;
  for (int number = 0; number < 2000; ++number) {
    expected.push_back(number % 3 == 0 ? "same" : "n" + std::to_string(number));
    poster.notifications.broadcast(kCall, expected.back());
  }
  ASSERT_TRUE(
      poster.runUntil([&] { return (poster.notifications.wanted().events & POLLOUT) == 0; }));
  ASSERT_TRUE(listener.receive(expected.size()));
  EXPECT_EQ(listener.names, expected);

  // What the listener answers comes after every echo that the bus could have sent back.
  listener.notifications.broadcast(kCall, "answer");
  ASSERT_TRUE(poster.receive(1));
  EXPECT_THAT(poster.names, ElementsAre("answer"));
}

TEST(DBusNotifications, WhatArrivesWhileWaitingForSomethingElseIsNotForgotten) {
  PrivateBus bus;
  Member poster;
  ASSERT_TRUE(poster.join());
  std::vector<std::string> heard;
  std::unique_ptr<DBusNotifications> answering;
  answering = std::make_unique<DBusNotifications>([&](const std::string& name) {
    heard.push_back(name);
    answering->broadcast(kCall, "answer to " + name);
  });
  PollHost host(*answering);
  ASSERT_TRUE(host.runUntil(
      [&] { return answering->state() == DBusNotifications::State::kListening; }, kPatience));
  for (const auto* name : {"a", "b", "c"}) {
    poster.notifications.broadcast(kCall, name);
  }
  ASSERT_TRUE(host.runUntil([&] { return heard.size() == 3; }, kPatience));
  ASSERT_TRUE(poster.receive(3));
  EXPECT_THAT(poster.names, ElementsAre("answer to a", "answer to b", "answer to c"));
}

TEST(DBusNotifications, SignalsOfAnotherShapeAreIgnored) {
  PrivateBus bus;
  Member member;
  ASSERT_TRUE(member.join());
  for (const auto* argument : {"5", "('a', 1)"}) {
    ChildProcess({"gdbus", "emit", "--session", "--object-path",
                  "/me/orlanvey/quietdial/Notifications", "--signal",
                  "me.orlanvey.quietdial.Notifications.Posted", argument})
        .readLine();
  }
  Member other;
  ASSERT_TRUE(other.join());
  other.notifications.broadcast(kCall, "last");
  ASSERT_TRUE(other.runUntil([&] { return other.notifications.wanted().timeout != 0; }));
  ASSERT_TRUE(
      member.runUntil([&] { return !member.names.empty() && member.names.back() == "last"; }));
  for (const auto& name : member.names) {
    EXPECT_EQ(name, "last");
  }
}

TEST(DBusNotifications, WhatADeliveryThrowsEndsThatDeliveryAndNothingElse) {
  PrivateBus bus;
  Member poster;
  ASSERT_TRUE(poster.join());
  std::vector<std::string> heard;
  DBusNotifications listener([&](const std::string& name) {
    heard.push_back(name);
    if (name == "bad") {
      throw std::runtime_error("no room left");
    }
    if (name == "worse") {
      throw 5;
    }
  });
  PollHost host(listener);
  ASSERT_TRUE(host.runUntil(
      [&] { return listener.state() == DBusNotifications::State::kListening; }, kPatience));
  for (const auto* name : {"bad", "worse", "good"}) {
    poster.notifications.broadcast(kCall, name);
  }
  testing::internal::CaptureStderr();
  ASSERT_NO_THROW(ASSERT_TRUE(host.runUntil([&] { return heard.size() == 3; }, kPatience)));
  EXPECT_THAT(heard, ElementsAre("bad", "worse", "good"));
  EXPECT_EQ(listener.state(), DBusNotifications::State::kListening);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "quietdial: a notification was not delivered: no room left\n"
            "quietdial: a notification was not delivered\n");
}

TEST(DBusNotifications, WithoutABusNotificationsStayInsideWhichIsSaidOnce) {
  setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus", 1);
  testing::internal::CaptureStderr();
  {
    Member member;
    for (int post = 0; post < 5; ++post) {
      member.notifications.broadcast(kCall, "a");
      EXPECT_EQ(member.notifications.state(), DBusNotifications::State::kWithoutBus);
      EXPECT_EQ(member.notifications.wanted().descriptor, -1);
      EXPECT_GT(member.notifications.wanted().timeout, 0);
      member.notifications.process();
    }
    EXPECT_THAT(member.names, IsEmpty());
  }
  const auto said = testing::internal::GetCapturedStderr();
  EXPECT_NE(said.find("no session bus"), std::string::npos);
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

TEST(DBusNotifications, ABusThatDiesAndComesBackIsJoinedAgain) {
  PrivateBus bus;
  Member poster;
  Member listener;
  ASSERT_TRUE(poster.join());
  ASSERT_TRUE(listener.join());
  for (int life = 0; life < 3; ++life) {
    bus.stop();
    const auto withoutBus = [](const Member& member) {
      return member.notifications.state() == DBusNotifications::State::kWithoutBus;
    };
    ASSERT_TRUE(listener.runUntil([&] { return withoutBus(listener); }));
    poster.notifications.broadcast(kCall, "lost");
    bus.start();
    ASSERT_TRUE(listener.join());
    ASSERT_TRUE(poster.join());
    poster.notifications.broadcast(kCall, "kept");
    ASSERT_TRUE(listener.receive(1));
    EXPECT_THAT(listener.names, ElementsAre("kept"));
    listener.names.clear();
  }
}

TEST(DBusNotifications, APostAtTheVeryEndIsStillSent) {
  PrivateBus bus;
  Member listener;
  ASSERT_TRUE(listener.join());
  Member().notifications.broadcast(kCall, "farewell");
  ASSERT_TRUE(listener.receive(1));
  EXPECT_THAT(listener.names, ElementsAre("farewell"));
}
