#include "settings/services/WebPages.h"

#include <unistd.h>

#include "linux/userNamespaces.h"
#include "platform/makers/addresses.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kFlags = "QTWEBENGINE_CHROMIUM_FLAGS";
constexpr const char* kNoSandbox = "QTWEBENGINE_DISABLE_SANDBOX";

QUrl catalogue() {
  return QUrl(QString::fromStdString(std::string(addresses::kCatalogue)));
}

HostMap mappedTo(const std::string& address) {
  HostMap hosts;
  EXPECT_TRUE(hosts.add(catalogue().host().toStdString() + "=" + address));
  return hosts;
}

class WebPagesTest : public WindowTest {
 protected:
  WebPagesTest() {
    writeBytes(folder / "QtWebEngine/qmldir", "");
    qputenv(kFlags, "--own-flag");
    qunsetenv(kNoSandbox);
  }
  ~WebPagesTest() override {
    qunsetenv(kFlags);
    qunsetenv(kNoSandbox);
  }

  static std::unique_ptr<WebPages> pages(const HostMap& hosts, bool mayUseEngine = true) {
    return std::make_unique<WebPages>(
        hosts, std::make_shared<HTTPClient>(hosts, HTTPClient::Unmapped::kUnreachable),
        mayUseEngine);
  }
  bool canShow(const QString& address) {
    return pages(local)->canShow(QUrl(address, QUrl::StrictMode), modulePaths);
  }
  // Where the engine would find its module.
  TemporaryFolder folder;
  QStringList modulePaths{QStringLiteral("/nowhere"), QString::fromStdString(folder.path())};
  HostMap local = mappedTo("127.0.0.1:1234");
};

TEST_F(WebPagesTest, PagesOfTheCataloguesHostAreShown) {
  EXPECT_TRUE(pages(local)->canShow(catalogue(), modulePaths));
  EXPECT_TRUE(canShow("http://tweaks.tallowbyte.example/"));
  EXPECT_TRUE(canShow("https://tweaks.tallowbyte.example/tweaks/?id=a%7Cb"));
  EXPECT_TRUE(canShow("http://TWEAKS.tallowbyte.example/"));
  EXPECT_TRUE(canShow("http://tweaks.tallowbyte.example:8080/"));
}

TEST_F(WebPagesTest, PagesOfAnyOtherHostAreNot) {
  for (const char* address :
       {"http://other.example/", "http://tallowbyte.example/", "http://www.tallowbyte.example/",
        "http://tweaks.tallowbyte.example.other.example/", "http://127.0.0.1:1234/",
        "http://tweaks.tallowbyte.example@other.example/", "http://x-tweaks.tallowbyte.example/"}) {
    EXPECT_FALSE(canShow(QString::fromLatin1(address))) << address;
  }
}

TEST_F(WebPagesTest, WhatIsNoAddressOfTheWebIsNotShown) {
  for (const char* address :
       {"", "ftp://tweaks.tallowbyte.example/", "file:///etc/passwd",
        "file://tweaks.tallowbyte.example/etc/passwd", "javascript:alert(1)", "data:text/html,<p>x",
        "about:blank", "//tweaks.tallowbyte.example/", "tweaks.tallowbyte.example",
        "http:///tweaks", "http://tweaks.tallowbyte.example/ a"}) {
    EXPECT_FALSE(canShow(QString::fromLatin1(address))) << address;
  }
}

TEST_F(WebPagesTest, NoPageIsShownWhereTheEngineMayNotBeUsed) {
  EXPECT_FALSE(pages(local, false)->canShow(catalogue(), modulePaths));
}

TEST_F(WebPagesTest, NoPageIsShownWhereTheEngineIsNotInstalled) {
  EXPECT_FALSE(pages(local)->canShow(catalogue(), {}));
  EXPECT_FALSE(pages(local)->canShow(catalogue(), {QStringLiteral("/nowhere")}));
}

TEST_F(WebPagesTest, WithoutASandboxOnlyPagesOfThisMachineAreShown) {
  const bool hasSandbox = geteuid() != 0 && canMakeUserNamespaces();
  EXPECT_EQ(pages({})->canShow(catalogue(), modulePaths), hasSandbox);
  EXPECT_EQ(pages(mappedTo("192.0.2.1:80"))->canShow(catalogue(), modulePaths), hasSandbox);
  EXPECT_EQ(pages(mappedTo("localhost.example:80"))->canShow(catalogue(), modulePaths), hasSandbox);
  EXPECT_TRUE(pages(mappedTo("[::1]:80"))->canShow(catalogue(), modulePaths));
}

TEST_F(WebPagesTest, TheEngineLooksUpNoHostButTheCatalogues) {
  WebPages::prepareEngine({});
  EXPECT_THAT(qgetenv(kFlags).toStdString(),
              HasSubstr("--host-resolver-rules=\"MAP * ~NOTFOUND, EXCLUDE "
                        "tweaks.tallowbyte.example\""));
  EXPECT_FALSE(qEnvironmentVariableIsSet(kNoSandbox));
}

TEST_F(WebPagesTest, AMappedHostIsConnectedToWhereItIsMappedTo) {
  WebPages::prepareEngine(local);
  const std::string flags = qgetenv(kFlags).toStdString();
  EXPECT_THAT(flags, HasSubstr("--host-resolver-rules=\"MAP tweaks.tallowbyte.example "
                               "127.0.0.1:1234, MAP * ~NOTFOUND\""));
  EXPECT_THAT(flags, HasSubstr(" --no-proxy-server "));
}

TEST_F(WebPagesTest, FlagsOfTheUsersOwnStayInFront) {
  WebPages::prepareEngine(local);
  EXPECT_THAT(qgetenv(kFlags).toStdString(), StartsWith("--own-flag --"));
}

TEST_F(WebPagesTest, TheSandboxIsLeftOutOnlyWhereThereIsNoneAndThePageIsThisMachines) {
  const bool hasSandbox = geteuid() != 0 && canMakeUserNamespaces();
  WebPages::prepareEngine(local);
  EXPECT_EQ(qEnvironmentVariableIsSet(kNoSandbox), !hasSandbox);
  qputenv(kNoSandbox, "1");
  WebPages::prepareEngine(mappedTo("192.0.2.1:80"));
  EXPECT_FALSE(qEnvironmentVariableIsSet(kNoSandbox));
}

TEST_F(WebPagesTest, APageThatDoesNotComeIsAnsweredOnTheMainQueue) {
  const auto all = pages({});
  std::optional<std::optional<QByteArray>> answer;
  all->fetch("http://other.example/", 5, [&](const auto& page) { answer = page; });
  EXPECT_EQ(answer, std::nullopt);
  EXPECT_TRUE(runWhatComes());
  ASSERT_TRUE(answer);
  EXPECT_EQ(*answer, std::nullopt);
}

}  // namespace
