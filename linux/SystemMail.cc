#include "linux/SystemMail.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

#include "linux/AtomicFile.h"
#include "linux/DesktopAddressOpener.h"
#include "linux/MailMessageWriter.h"
#include "linux/desktopProgram.h"
#include "platform/messageui/MailMessage.h"

namespace {

constexpr auto kLongestSending = std::chrono::seconds(60);
constexpr auto kLongestLaunch = std::chrono::seconds(5);
constexpr std::size_t kMailFileBound = std::size_t{64} << 20;

bool isProgram(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

std::optional<std::string> programInPath(std::string_view name) {
  const char* variable = std::getenv("PATH");
  std::string_view folders = variable ? variable : "";
  while (!folders.empty()) {
    const auto length = std::min(folders.find(':'), folders.size());
    const auto folder = folders.substr(0, length);
    folders.remove_prefix(std::min(length + 1, folders.size()));
    std::string path = std::string(folder) + "/" + std::string(name);
    if (folder.starts_with('/') && isProgram(path)) {
      return path;
    }
  }
  return std::nullopt;
}

std::optional<std::string> sendmailCommand() {
  if (auto command = programInPath("sendmail")) {
    return command;
  }
  // Where it lies for programs of users whose path leaves the system's folders out.
  for (const char* usual : {"/usr/sbin/sendmail", "/usr/lib/sendmail"}) {
    if (isProgram(usual)) {
      return usual;
    }
  }
  return std::nullopt;
}

bool hasMailProgram() {
  return programInPath("xdg-email") && DesktopAddressOpener().canOpen("mailto:");
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

std::string percentEncoded(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::string_view kUnreserved =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
  std::string result;
  for (const char letter : text) {
    if (kUnreserved.find(letter) != std::string_view::npos) {
      result += letter;
      continue;
    }
    const auto byte = static_cast<unsigned char>(letter);
    result += {'%', kDigits[byte >> 4U], kDigits[byte & 15U]};
  }
  return result;
}

// An address of the mail (RFC 6068), whose lines end in CR LF.
std::string addressOf(const MailMessage& message) {
  std::string to;
  for (const auto& recipient : message.recipients) {
    const auto at = recipient.rfind('@');
    to += (to.empty() ? "" : ",") + percentEncoded(recipient.substr(0, at)) + recipient.substr(at);
  }
  std::string body;
  for (const char letter : message.body) {
    if (letter == '\n') {
      body += "%0D%0A";
    } else if (letter != '\r') {
      body += percentEncoded({&letter, 1});
    }
  }
  return "mailto:" + to + "?subject=" + percentEncoded(message.subject) + "&body=" + body;
}

std::filesystem::path attachmentFolder() {
  const char* cache = std::getenv("XDG_CACHE_HOME");
  if (cache && *cache == '/') {
    return std::filesystem::path(cache) / "quietdial" / "mail";
  }
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home && *home == '/' ? home : "/tmp") / ".cache" / "quietdial" /
         "mail";
}

bool writeFile(const std::filesystem::path& path, std::string_view bytes) {
  const auto anything = [](std::string_view) { return true; };
  return AtomicFile(path.string(), kMailFileBound, anything).replace(bytes);
}

bool makePrivateFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    return false;
  }
  std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
  return !error;
}

// The attachments as files under their names. The mail program reads them some time after this
// program has handed them over, so they stay until the next mail takes their place.
std::optional<std::vector<std::string>> writeAttachments(const MailMessage& message) {
  const auto folder = attachmentFolder();
  if (!makePrivateFolder(folder)) {
    return std::nullopt;
  }
  std::vector<std::string> paths;
  for (const auto& attachment : message.attachments) {
    const auto name = std::filesystem::path(attachment.fileName).filename();
    if (name.empty() || name == "." || name == "..") {
      return std::nullopt;
    }
    const auto* bytes = reinterpret_cast<const char*>(attachment.data.data());
    if (!writeFile(folder / name, {bytes, attachment.data.size()})) {
      return std::nullopt;
    }
    paths.push_back((folder / name).string());
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
  arguments.push_back(addressOf(message));
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
  const std::filesystem::path folder(draftsFolder_);
  if (!text || !makePrivateFolder(folder)) {
    return std::nullopt;
  }
  const std::string name = nameForNow();
  auto path = folder / (name + ".eml");
  std::error_code error;
  for (int number = 2; std::filesystem::exists(path, error); ++number) {
    path = folder / (name + " (" + std::to_string(number) + ").eml");
  }
  return writeFile(path, *text) ? std::optional(path.string()) : std::nullopt;
}
