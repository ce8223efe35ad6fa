#include "linux/SystemMail.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/stat.h>

#include "linux/AtomicFile.h"
#include "linux/DesktopAddressOpener.h"
#include "linux/MailMessageWriter.h"
#include "linux/MailtoAddress.h"
#include "linux/desktopProgram.h"
#include "linux/findProgram.h"
#include "linux/homeFolder.h"
#include "linux/privateFolder.h"
#include "platform/messageui/MailMessage.h"

namespace {

constexpr auto kLongestSending = std::chrono::seconds(60);
constexpr auto kLongestLaunch = std::chrono::seconds(5);
constexpr std::size_t kMailFileBound = std::size_t{64} << 20;

// Many users' paths leave the system's folders out.
std::optional<std::string> sendmailCommand() {
  return findProgram("sendmail", "/usr/sbin:/usr/lib");
}

bool hasMailProgram() {
  return findProgram("xdg-email") && DesktopAddressOpener().canOpen("mailto:");
}

std::string ownAddress() {
  const char* address = std::getenv("EMAIL");
  return address && MailMessageWriter::isAddress(address) ? address : "";
}

std::chrono::sys_seconds now() {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

bool sendBy(const std::string& command, const MailMessage& message) {
  auto text = MailMessageWriter::write(message, {ownAddress(), now(), false});
  if (!text) {
    return false;
  }
  // Programs of this machine end lines as it does.
  std::erase(*text, '\r');
  return feedDesktopProgram({command, "-oi", "-t"}, *text, kLongestSending);
}

// Where programs keep what can be lost.
std::optional<std::string> cacheFolder() {
  if (const char* cache = std::getenv("XDG_CACHE_HOME"); cache && *cache == '/') {
    return cache;
  }
  const auto home = homeFolder();
  return home ? std::optional(*home + "/.cache") : std::nullopt;
}

// A descriptor is needed for each file, since it is given away.
bool writeFile(const FileDescriptor& folder, const std::string& name, std::string_view bytes) {
  const auto anything = [](std::string_view) { return true; };
  return !AtomicFile(FileDescriptor(fcntl(folder.get(), F_DUPFD_CLOEXEC, 0)), name, kMailFileBound,
                     anything)
              .replace(bytes);
}

// The attachments as files under their names. The mail program reads them some time after this
// program has handed them over, so they stay until the next mail takes their place.
std::optional<std::vector<std::string>> writeAttachments(const MailMessage& message) {
  const auto cache = cacheFolder();
  const auto folder = cache ? openPrivateFolder(*cache, {"quietdial", "mail"}) : FileDescriptor();
  if (!folder) {
    return std::nullopt;
  }
  std::vector<std::string> paths;
  for (const auto& attachment : message.attachments) {
    const std::string name = std::filesystem::path(attachment.fileName).filename();
    if (name.empty() || name == "." || name == "..") {
      return std::nullopt;
    }
    const auto* bytes = reinterpret_cast<const char*>(attachment.data.data());
    if (!writeFile(folder, name, {bytes, attachment.data.size()})) {
      return std::nullopt;
    }
    paths.push_back(*cache + "/quietdial/mail/" + name);
  }
  return paths;
}

bool handToMailProgram(const MailMessage& message) {
  const auto files = writeAttachments(message);
  if (message.recipients.empty() || !files ||
      !std::ranges::all_of(message.recipients, MailMessageWriter::isAddress)) {
    return false;
  }
  std::vector<std::string> arguments{"xdg-email", "--utf8"};
  for (const auto& file : *files) {
    arguments.insert(arguments.end(), {"--attach", file});
  }
  arguments.push_back(MailtoAddress{message.recipients, message.subject, message.body}.text());
  // Some desktops run the mail program itself here, which ends when the user is done with it.
  return launchDesktopProgram(arguments, kLongestLaunch);
}

std::string nameForNow() {
  const std::time_t seconds = now().time_since_epoch().count();
  std::tm parts{};
  localtime_r(&seconds, &parts);
  std::array<char, 64> text{};
  std::strftime(text.data(), text.size(), "Mail %Y-%m-%d %H.%M.%S", &parts);
  return text.data();
}

}  // namespace

SystemMail::SystemMail(std::string draftsFolder) : draftsFolder_(std::move(draftsFolder)) {}

bool SystemMail::canSend() {
  return sendmailCommand() || hasMailProgram();
}

bool SystemMail::send(const MailMessage& message) {
  if (const auto command = sendmailCommand()) {
    return sendBy(*command, message);
  }
  return hasMailProgram() && handToMailProgram(message);
}

std::optional<std::string> SystemMail::saveDraft(const MailMessage& message) {
  const auto text = MailMessageWriter::write(message, {ownAddress(), now(), true});
  const std::filesystem::path path(draftsFolder_);
  const auto folder = openPrivateFolder(path.parent_path(), {path.filename()});
  if (!text || !folder) {
    return std::nullopt;
  }
  const std::string base = nameForNow();
  std::string name = base + ".eml";
  struct stat status {};
  for (int number = 2; fstatat(folder.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
       ++number) {
    name = base + " (" + std::to_string(number) + ").eml";
  }
  return writeFile(folder, name, *text) ? std::optional((path / name).string()) : std::nullopt;
}
