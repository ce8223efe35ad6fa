#include "linux/SystemMail.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <pwd.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/messageui/MailMessage.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// A machine whose programs for mail are scripts of the test. One that has a sendmail of its own in
// the usual places cannot be without.
class Machine : public testing::Test {
 protected:
  Machine() {
    ::setenv("MACHINE", folder_.path().c_str(), 1);
    ::setenv("PATH", ((folder_ / "bin").string() + ":/usr/bin:/bin").c_str(), 1);
    ::setenv("XDG_CACHE_HOME", (folder_ / "cache").c_str(), 1);
    ::unsetenv("EMAIL");
    program("xdg-mime", "case $3 in *mailto) cat \"$MACHINE/handler\";; esac\n");
    message_.recipients = {"a@b.example"};
    message_.subject = "Süb & ject";
    message_.body = "\n\nLine";
    message_.attachments.push_back(
        {{std::byte{'h'}, std::byte{0}}, "application/x-plist", "Information.plist"});
  }

  void program(const std::string& name, const std::string& script) {
    writeBytes((folder_ / "bin") / name, "#!/bin/sh\n" + script);
    chmod(((folder_ / "bin") / name).c_str(), 0755);
  }

  void addSendmail(const std::string& then = "") {
    program("sendmail",
            "printf '%s\\n' \"$@\" >\"$MACHINE/arguments\"\n"
            "cat >\"$MACHINE/mail\"\n" +
                then);
  }

  void addMailProgram(const std::string& then = "") {
    writeBytes(folder_ / "handler", "mail.desktop\n");
    program("xdg-email", "printf '%s\\n' \"$@\" >\"$MACHINE/handed\"\n" + then);
  }

  static bool hasOwnSendmail() {
    return std::filesystem::exists("/usr/sbin/sendmail") ||
           std::filesystem::exists("/usr/lib/sendmail");
  }

  std::string drafts() const { return (folder_ / "drafts").string(); }

  static mode_t modeOf(const std::filesystem::path& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
  }

  // Whoever runs the tests becomes one whom the system does not know.
  void becomeUnknown() {
    constexpr uid_t kNobodyKnown = 4'000'123;
    ASSERT_EQ(getpwuid(kNobodyKnown), nullptr);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) {
      ASSERT_EQ(chown(entry.path().c_str(), kNobodyKnown, kNobodyKnown), 0);
    }
    ASSERT_EQ(chown(folder_.path().c_str(), kNobodyKnown, kNobodyKnown), 0);
    ASSERT_EQ(setresuid(kNobodyKnown, kNobodyKnown, kNobodyKnown), 0);
  }

  TemporaryFolder folder_;
  MailMessage message_;
};

}  // namespace

TEST_F(Machine, WithNothingForMailNoneCanBeSent) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  program("xdg-email", "exit 0\n");
  writeBytes(folder_ / "handler", "\n");
  SystemMail mail(drafts());
  EXPECT_FALSE(mail.canSend()) << "xdg-email alone is no mail program";
  EXPECT_FALSE(mail.send(message_));
}

TEST_F(Machine, ASendmailCommandIsEnough) {
  addSendmail();
  EXPECT_TRUE(SystemMail(drafts()).canSend());
}

TEST_F(Machine, AFolderOrAFileThatCannotBeRunIsNoSendmailCommand) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  std::filesystem::create_directories(folder_ / "bin/sendmail");
  EXPECT_FALSE(SystemMail(drafts()).canSend());
  std::filesystem::remove(folder_ / "bin/sendmail");
  writeBytes(folder_ / "bin/sendmail", "#!/bin/sh\n");
  chmod((folder_ / "bin/sendmail").c_str(), 0644);
  EXPECT_FALSE(SystemMail(drafts()).canSend());
}

TEST_F(Machine, TheSendmailCommandTakesTheMessageWithLinesAsTheyAreHere) {
  addSendmail();
  addMailProgram();
  EXPECT_TRUE(SystemMail(drafts()).send(message_));
  EXPECT_EQ(bytesOf(folder_ / "arguments"), "-oi\n-t\n");
  const auto mail = bytesOf(folder_ / "mail");
  EXPECT_THAT(mail, HasSubstr("To: a@b.example\n"));
  EXPECT_THAT(mail, Not(HasSubstr("\r")));
  EXPECT_THAT(mail, Not(HasSubstr("From:"))) << "the sendmail command knows whom it sends for";
  EXPECT_FALSE(std::filesystem::exists(folder_ / "handed")) << "it comes before the mail program";
}

TEST_F(Machine, TheSenderIsTheUsersAddressWhereItIsKnown) {
  addSendmail();
  ::setenv("EMAIL", "me@home.example", 1);
  SystemMail(drafts()).send(message_);
  EXPECT_TRUE(bytesOf(folder_ / "mail").starts_with("From: me@home.example\n"));
  ::setenv("EMAIL", "me@home.example\nBcc: x@y.example", 1);
  SystemMail(drafts()).send(message_);
  EXPECT_TRUE(bytesOf(folder_ / "mail").starts_with("To: "));
}

TEST_F(Machine, ASendmailCommandThatRefusesTheMailHasNotSentIt) {
  addSendmail("exit 75\n");
  EXPECT_FALSE(SystemMail(drafts()).send(message_));
  message_.recipients = {"no address"};
  addSendmail();
  std::filesystem::remove(folder_ / "mail");
  EXPECT_FALSE(SystemMail(drafts()).send(message_));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "mail"));
}

TEST_F(Machine, ASendmailCommandThatReadsNothingIsNoHang) {
  program("sendmail", "exit 0\n");
  message_.attachments[0].data.resize(4'000'000);
  EXPECT_TRUE(SystemMail(drafts()).send(message_));
}

TEST_F(Machine, WithoutASendmailCommandTheMailProgramTakesTheMail) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  addMailProgram("cp \"$3\" \"$MACHINE/attached\"\n");
  SystemMail mail(drafts());
  EXPECT_TRUE(mail.canSend());
  EXPECT_TRUE(mail.send(message_));
  const auto file = (folder_ / "cache/quietdial/mail/Information.plist").string();
  EXPECT_EQ(bytesOf(folder_ / "handed"),
            "--utf8\n--attach\n" + file +
                "\nmailto:a@b.example?subject=S%C3%BCb%20%26%20ject&body=%0D%0A%0D%0ALine\n");
  EXPECT_EQ(bytesOf(folder_ / "attached"), std::string("h\0", 2));
}

TEST_F(Machine, AttachmentsAreTheUsersAlone) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  umask(0);
  addMailProgram();
  ASSERT_TRUE(SystemMail(drafts()).send(message_));
  for (const auto* folder : {"cache", "cache/quietdial", "cache/quietdial/mail"}) {
    EXPECT_EQ(modeOf(folder_ / folder), 0700) << folder;
  }
  const auto file = folder_ / "cache/quietdial/mail/Information.plist";
  EXPECT_EQ(modeOf(file), 0600);
  chmod(file.c_str(), 0640);
  ASSERT_TRUE(SystemMail(drafts()).send(message_));
  EXPECT_EQ(modeOf(file), 0640) << "as the user made it";
}

TEST_F(Machine, AttachmentsFollowNoLink) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  addMailProgram();
  const auto outside = folder_ / "outside";
  std::filesystem::create_directories(outside);
  for (const auto* link : {"cache/quietdial", "cache/quietdial/mail"}) {
    std::filesystem::remove_all(folder_ / "cache");
    std::filesystem::create_directories((folder_ / link).parent_path());
    std::filesystem::create_directory_symlink(outside, folder_ / link);
    EXPECT_FALSE(SystemMail(drafts()).send(message_)) << link;
  }
  std::filesystem::remove_all(folder_ / "cache");
  std::filesystem::create_directories(folder_ / "cache/quietdial/mail");
  std::filesystem::create_symlink(outside / "file",
                                  folder_ / "cache/quietdial/mail/Information.plist");
  EXPECT_FALSE(SystemMail(drafts()).send(message_));
  EXPECT_TRUE(std::filesystem::is_empty(outside));
}

TEST_F(Machine, WithoutAHomeFolderTheMailProgramGetsNoMail) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  if (geteuid() != 0) {
    GTEST_SKIP() << "everyone who may run this has an account";
  }
  addMailProgram();
  ::unsetenv("XDG_CACHE_HOME");
  ::unsetenv("HOME");
  becomeUnknown();
  EXPECT_FALSE(SystemMail(drafts()).send(message_));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "handed"));
}

TEST_F(Machine, AMailProgramThatCannotBeStartedHasNotTakenTheMail) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  addMailProgram("exit 3\n");
  EXPECT_FALSE(SystemMail(drafts()).send(message_));
  message_.attachments[0].fileName = "../..";
  addMailProgram();
  EXPECT_FALSE(SystemMail(drafts()).send(message_));
}

TEST_F(Machine, AnAttachmentLeavesItsFolderUnderNoName) {
  if (hasOwnSendmail()) {
    GTEST_SKIP() << "this machine has a sendmail command";
  }
  addMailProgram();
  message_.attachments[0].fileName = "/../../../outside";
  EXPECT_TRUE(SystemMail(drafts()).send(message_));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "cache/quietdial/mail/outside"));
}

TEST_F(Machine, ADraftIsAMessageFileOfTheUsersOwn) {
  SystemMail mail(drafts());
  const auto first = mail.saveDraft(message_);
  const auto second = mail.saveDraft(message_);
  ASSERT_TRUE(first);
  ASSERT_TRUE(second);
  EXPECT_NE(*first, *second);
  EXPECT_TRUE(first->starts_with(drafts() + "/Mail "));
  EXPECT_THAT(*first, EndsWith(".eml"));
  EXPECT_THAT(bytesOf(*first), HasSubstr("X-Unsent: 1\r\n"));
}

TEST_F(Machine, ADraftsNameTellsTheLocalTime) {
  const auto timeInName = [&](const char* zone) {
    ::setenv("TZ", zone, 1);
    tzset();
    std::tm parts{};
    const auto path = SystemMail(drafts()).saveDraft(message_).value_or("");
    const auto name = std::filesystem::path(path).filename().string();
    EXPECT_NE(strptime(name.c_str(), "Mail %Y-%m-%d %H.%M.%S", &parts), nullptr) << path;
    return timegm(&parts);
  };
  const auto east = timeInName("EAST-12");
  const auto west = timeInName("WEST+11");
  const auto hours = std::chrono::round<std::chrono::hours>(std::chrono::seconds(east - west));
  EXPECT_EQ(hours.count(), 23);
}

TEST_F(Machine, DraftsAndTheirFolderAreTheUsersAlone) {
  umask(0);
  const auto path = SystemMail((folder_ / "root/drafts").string()).saveDraft(message_);
  ASSERT_TRUE(path);
  EXPECT_EQ(modeOf(*path), 0600);
  EXPECT_EQ(modeOf(folder_ / "root/drafts"), 0700);
  EXPECT_EQ(modeOf(folder_ / "root"), 0700);
}

TEST_F(Machine, ADraftFollowsNoLink) {
  const auto outside = folder_ / "outside";
  std::filesystem::create_directories(outside);
  chmod(outside.c_str(), 0755);
  std::filesystem::create_directory_symlink(outside, folder_ / "drafts");
  EXPECT_EQ(SystemMail(drafts()).saveDraft(message_), std::nullopt);
  EXPECT_EQ(modeOf(outside), 0755);
  std::filesystem::remove(folder_ / "drafts");
  std::filesystem::create_directories(folder_ / "drafts");
  // Whatever the name of the next minutes' draft will be, a link has it.
  for (int second = 0; second < 600; ++second) {
    const std::time_t when = std::time(nullptr) + second;
    std::tm parts{};
    localtime_r(&when, &parts);
    std::array<char, 64> name{};
    std::strftime(name.data(), name.size(), "Mail %Y-%m-%d %H.%M.%S.eml", &parts);
    std::filesystem::create_symlink(outside / "file", folder_ / "drafts" / name.data());
  }
  const auto path = SystemMail(drafts()).saveDraft(message_);
  ASSERT_TRUE(path);
  EXPECT_THAT(*path, EndsWith(" (2).eml"));
  EXPECT_TRUE(std::filesystem::is_empty(outside));
}

TEST_F(Machine, AFolderOfSomeoneElseTakesNoDraft) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "only root may give files away";
  }
  std::filesystem::create_directories(folder_ / "drafts");
  ASSERT_EQ(chown(drafts().c_str(), 1234, 1234), 0);
  EXPECT_EQ(SystemMail(drafts()).saveDraft(message_), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_empty(folder_ / "drafts"));
}

TEST_F(Machine, ADraftThatCannotBeWrittenIsNone) {
  writeBytes(folder_ / "drafts", "a file where the folder should be");
  EXPECT_EQ(SystemMail(drafts()).saveDraft(message_), std::nullopt);
  EXPECT_EQ(SystemMail("drafts").saveDraft(message_), std::nullopt) << "wherever one happens to be";
  message_.recipients.clear();
  EXPECT_EQ(SystemMail((folder_ / "other").string()).saveDraft(message_), std::nullopt);
}
