#include "tools/drive/DriveCommand.h"

#include <charconv>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <set>
#include <string>

#include <CLI/CLI.hpp>

#include "headless/ManualDisplayRefresh.h"
#include "headless/RecordingAddresses.h"
#include "headless/RecordingFetches.h"
#include "headless/RecordingFiles.h"
#include "headless/RecordingLog.h"
#include "headless/RecordingMail.h"
#include "headless/RecordingNotifications.h"
#include "headless/RecordingProcesses.h"
#include "headless/RecordingWebViews.h"
#include "headless/StandInDevice.h"
#include "headless/TableTextMeasurer.h"
#include "linux/BundleModule.h"
#include "linux/DBusNotifications.h"
#include "linux/DesktopAddressOpener.h"
#include "linux/DeviceFileService.h"
#include "linux/DevicePaths.h"
#include "linux/HTTPClient.h"
#include "linux/HTTPFetchService.h"
#include "linux/HostMap.h"
#include "linux/NetworkWork.h"
#include "linux/PictureHeaderService.h"
#include "linux/PosixProcessService.h"
#include "linux/StandardErrorLog.h"
#include "linux/SystemMail.h"
#include "linux/UnsavedSettings.h"
#include "linux/WatchedFiles.h"
#include "platform/classes.h"
#include "platform/foundation/CFNotificationCenter.h"
#include "tools/drive/DriveSession.h"
#include "tools/drive/LineReader.h"

namespace {

constexpr std::size_t kLongestLine = std::size_t{1} << 20;
constexpr const char* kBundlePath = "/Library/PreferenceBundles/quietDialPreferences.bundle";

struct Arguments {
  std::string root;
  double width = 320;
  std::optional<std::string> entryBadge;
  std::vector<std::string> mappedHosts;
  std::string effects = "record";
  std::string mail = "yes";
  std::vector<std::string> schemes;
};

std::string checkMappedHost(const std::string& text) {
  return HostMap().add(text) ? "" : "has to be NAME=ADDRESS:PORT";
}

void describe(CLI::App& app, Arguments& arguments) {
  app.add_option("--root", arguments.root,
                 "Device root: /User/… is DIR/User/… (default: a new empty folder, "
                 "removed at the end)")
      ->type_name("DIR");
  app.add_option("--width", arguments.width, "Width of the table's content, in points")
      ->type_name("POINTS")
      ->capture_default_str()
      ->check(CLI::Range(1.0, 100000.0));
  app.add_option("--entry-badge", arguments.entryBadge,
                 "badgeString of the row that opens a pane (default: no such property)")
      ->type_name("TEXT");
  app.add_option(
         "--map-host", arguments.mappedHosts,
         "Connect to ADDRESS:PORT wherever NAME would be looked up; a host that is not mapped is "
         "unreachable. May be given again")
      ->type_name("NAME=ADDRESS:PORT")
      ->check(checkMappedHost)
      ->allow_extra_args(false);
  app.add_option("--effects", arguments.effects,
                 "record: what the panes ask of the machine is noted and not done; real: it is "
                 "done as well")
      ->type_name("record|real")
      ->capture_default_str()
      ->check(CLI::IsMember({"record", "real"}));
  app.add_option("--mail", arguments.mail, "Whether the device has a mail account")
      ->type_name("yes|no")
      ->capture_default_str()
      ->check(CLI::IsMember({"yes", "no"}));
  app.add_option("--can-open", arguments.schemes, "A scheme that has a handler. May be given again")
      ->type_name("SCHEME")
      ->allow_extra_args(false);
  app.footer(
      "Reads one JSON request a line and writes one JSON reply a line; docs/drive.md lists the "
      "requests.\n"
      "Example: printf '%s\\n' '{\"do\":\"push\",\"pane\":\"QDCountryPrefixController\"}' "
      "'{\"do\":\"settings\"}' | quietdial drive");
}

// A new empty folder, gone when this object goes.
class TemporaryRoot {
 public:
  TemporaryRoot() {
    std::string name = (std::filesystem::temp_directory_path() / "quietdial-XXXXXX").string();
    if (mkdtemp(name.data())) {
      path_ = name;
    }
  }
  ~TemporaryRoot() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryRoot(const TemporaryRoot&) = delete;
  TemporaryRoot& operator=(const TemporaryRoot&) = delete;
  TemporaryRoot(TemporaryRoot&&) = delete;
  TemporaryRoot& operator=(TemporaryRoot&&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// What really happens with --effects real; all null otherwise.
struct Effects {
  std::shared_ptr<DBusNotifications> notifications;
  std::shared_ptr<ProcessService> processes;
  std::shared_ptr<AddressOpener> addresses;
  std::shared_ptr<MailService> mail;
};

Effects realEffects(const std::string& root) {
  return {
      .notifications = std::make_shared<DBusNotifications>([](const std::string& name) {
        CFNotificationCenterDeliver(CFNotificationCenterGetDarwinNotifyCenter(), name);
      }),
      .processes = std::make_shared<PosixProcessService>(),
      .addresses = std::make_shared<DesktopAddressOpener>(),
      .mail = std::make_shared<SystemMail>(root + "/Drafts"),
  };
}

UnsavedEvent eventFor(const std::vector<UnsavedSettings::Setting>& settings) {
  UnsavedEvent event;
  for (const auto& setting : settings) {
    event.keys.push_back(setting.key);
    event.reason = setting.reason.message();
  }
  return event;
}

// Pages are not drawn here: how high one is, its server may say.
std::optional<double> heightOfPage(HTTPClient& web, const NSURLRequest& request) {
  constexpr double kUsualHeight = 480;
  HTTPLimits limits;
  limits.time = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::duration<double>(request.timeoutInterval));
  limits.bytes = std::size_t{16} << 20;
  const auto answer = web.get(request.url, limits);
  if (!answer || !answer->isSuccess()) {
    return std::nullopt;
  }
  const auto text = answer->header("content-height");
  double height = 0;
  const bool isNumber =
      text && std::from_chars(text->data(), text->data() + text->size(), height).ec == std::errc{};
  return isNumber && height >= 0 ? height : kUsualHeight;
}

int serve(const Arguments& arguments, const std::string& root, std::istream& in, std::ostream& out,
          std::ostream& err) {
  const auto paths = std::make_shared<const DevicePaths>(root, DevicePaths::installedLibrary());
  const auto recorder = std::make_shared<Recorder>();
  const auto clock = std::make_shared<ManualClock>();
  const auto sheets = std::make_shared<RecordingSheets>(recorder);
  const auto displayRefresh = std::make_shared<ManualDisplayRefresh>();
  const auto unsaved = std::make_shared<UnsavedSettings>();
  unsaved->setChangedHook(
      [&list = *unsaved, recorder] { recorder->record(eventFor(list.settings())); });
  const auto effects = arguments.effects == "real" ? realEffects(root) : Effects{};
  HostMap hosts;
  for (const auto& host : arguments.mappedHosts) {
    hosts.add(host);
  }
  const auto web = std::make_shared<HTTPClient>(hosts, HTTPClient::Unmapped::kUnreachable);
  installServices({
      .clock = clock,
      .files = std::make_shared<RecordingFiles>(
          std::make_shared<WatchedFiles>(std::make_shared<DeviceFileService>(paths), unsaved),
          recorder),
      .notifications = std::make_shared<RecordingNotifications>(recorder, effects.notifications),
      .processes = std::make_shared<RecordingProcesses>(recorder, effects.processes),
      .addresses = std::make_shared<RecordingAddresses>(
          recorder, std::set<std::string>(arguments.schemes.begin(), arguments.schemes.end()),
          effects.addresses),
      .text = std::make_shared<TableTextMeasurer>(),
      .pictures = std::make_shared<PictureHeaderService>(paths),
      .sheets = sheets,
      .mail = std::make_shared<RecordingMail>(arguments.mail == "yes", effects.mail),
      .device = std::make_shared<StandInDevice>(),
      .fetches =
          std::make_shared<RecordingFetches>(std::make_shared<HTTPFetchService>(web), recorder),
      .webViews = std::make_shared<RecordingWebViews>(
          [web](const NSURLRequest& request) { return heightOfPage(*web, request); }, recorder),
      .displayRefresh = displayRefresh,
      .log = std::make_shared<RecordingLog>(recorder, std::make_shared<StandardErrorLog>()),
  });
  registerClasses(platformClasses());
  const std::string modulePath = std::string(kBundlePath) + "/quietDialPreferences";
  const BundleModule module(*paths, modulePath);
  if (!module.bundle()) {
    err << "quietdial drive: " << module.error() << '\n';
    return 1;
  }

  DriveSession::Options options{arguments.width, arguments.entryBadge, {}};
  if (effects.notifications) {
    options.exchangeNotifications = [bus = effects.notifications] { bus->process(); };
  }
  const NetworkWork network(web);
  DriveSession session(std::move(options), module, clock, recorder, sheets, displayRefresh);
  LineReader lines(in, kLongestLine);
  std::string line;
  while (!session.hasEnded()) {
    const auto result = lines.next(line);
    if (result == LineResult::kEnd) {
      break;
    }
    const Json reply = result == LineResult::kLine
                           ? session.answer(line)
                           : Json{{"ok", false}, {"error", "The line is longer than 1 MiB."}};
    // Texts that are no UTF-8 are shown with replacement characters rather than not at all.
    out << reply.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
  }
  return 0;
}

}  // namespace

int runDriveCommand(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                    std::ostream& err) {
  CLI::App app("Runs the settings panes without a window, under a script.", "quietdial drive");
  Arguments arguments;
  describe(app, arguments);
  try {
    // The parser takes the words from the back.
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    out << app.help();
    return 0;
  } catch (const CLI::ParseError& error) {
    err << "quietdial drive: " << error.what() << '\n';
    return 2;
  }
  if (!arguments.root.empty()) {
    return serve(arguments, std::filesystem::absolute(arguments.root).lexically_normal().string(),
                 in, out, err);
  }
  const TemporaryRoot temporary;
  if (temporary.path().empty()) {
    err << "quietdial drive: no folder can be made for temporary files.\n";
    return 1;
  }
  return serve(arguments, temporary.path().string(), in, out, err);
}
