#include "tools/drive/DriveCommand.h"

#include <filesystem>
#include <optional>

#include <CLI/CLI.hpp>

#include "linux/BundleEntry.h"
#include "linux/BundleModule.h"
#include "linux/HostMap.h"
#include "linux/NetworkWork.h"
#include "platform/classes.h"
#include "tools/drive/DriveServices.h"
#include "tools/drive/DriveSession.h"
#include "tools/drive/LineReader.h"
#include "tools/drive/TemporaryRoot.h"

namespace {

constexpr std::size_t kLongestLine = std::size_t{1} << 20;
constexpr const char* kModulePath =
    "/Library/PreferenceBundles/quietDialPreferences.bundle/quietDialPreferences";

std::string checkMappedHost(const std::string& text) {
  return HostMap().add(text) ? "" : "has to be NAME=ADDRESS:PORT";
}

// The device path of the module with the panes; nothing, and the reason to the user, where there is
// none.
std::optional<std::string> modulePathFor(const DriveOptions& options, Streams streams) {
  if (options.bundle.empty()) {
    return kModulePath;
  }
  const auto folder = std::filesystem::absolute(options.bundle) / "";
  const auto entries = readBundleEntries(
      {folder.parent_path().filename().string()}, *services().files,
      [&](const std::string& line) { streams.err << "quietdial drive: " << line << '\n'; });
  if (entries.empty()) {
    streams.err << "quietdial drive: " << options.bundle
                << " is no bundle: it has no Entry.plist that can be used.\n";
    return std::nullopt;
  }
  return entries.front().modulePath;
}

void answerLines(DriveSession& session, Streams streams) {
  LineReader lines(streams.in, kLongestLine);
  std::string line;
  while (!session.hasEnded()) {
    const auto result = lines.next(line);
    if (result == LineResult::kEnd) {
      break;
    }
    const Json reply = result == LineResult::kLine
                           ? session.answer(line)
                           : Json{{"ok", false}, {"error", "The line is longer than 1 MiB."}};
    streams.out << printed(reply) << std::endl;
  }
}

}  // namespace

std::vector<Example> DriveCommand::examples() const {
  return {{R"(echo '{"do":"push","pane":"QDCountryPrefixController"}' | quietdial drive)",
           "opens the page of prefixes"}};
}

void DriveCommand::describe(CLI::App& app) {
  app.add_option("--root", options_.root,
                 "Device root: /User/… is DIR/User/… (default: a new empty folder, "
                 "removed at the end)")
      ->type_name("DIR");
  app.add_option("--bundle", options_.bundle,
                 "Use the panes of this bundle folder instead of the installed ones")
      ->type_name("DIR");
  app.add_option("--width", options_.width, "Width of the table's content, in points")
      ->type_name("POINTS")
      ->capture_default_str()
      ->check(CLI::Range(1.0, 100000.0));
  app.add_option("--entry-badge", options_.entryBadge,
                 "badgeString of the row that opens a pane (default: no such property)")
      ->type_name("TEXT");
  app.add_option(
         "--map-host", options_.mappedHosts,
         "Connect to ADDRESS:PORT wherever NAME would be looked up; a host that is not mapped is "
         "unreachable. May be given again")
      ->type_name("NAME=ADDRESS:PORT")
      ->check(checkMappedHost)
      ->allow_extra_args(false);
  app.add_option("--effects", options_.effects,
                 "record: what the panes ask of the machine is noted and not done; real: it is "
                 "done as well")
      ->type_name("record|real")
      ->capture_default_str()
      ->check(CLI::IsMember({"record", "real"}));
  app.add_option("--mail", options_.mail, "Whether the device has a mail account")
      ->type_name("yes|no")
      ->capture_default_str()
      ->check(CLI::IsMember({"yes", "no"}));
  app.add_option("--can-open", options_.schemes, "A scheme that has a handler. May be given again")
      ->type_name("SCHEME")
      ->allow_extra_args(false);
  app.footer(
      "Reads one JSON request a line and writes one JSON reply a line; docs/drive.md lists the "
      "requests.");
}

int DriveCommand::run(Streams streams) {
  if (!options_.root.empty()) {
    return serve(options_.root, streams);
  }
  const TemporaryRoot temporary;
  if (temporary.path().empty()) {
    streams.err << "quietdial drive: no folder can be made for temporary files.\n";
    return 1;
  }
  return serve(temporary.path().string(), streams);
}

int DriveCommand::serve(const std::string& root, Streams streams) const {
  const DriveServices services(options_, root);
  installServices(services.make());
  registerClasses(platformClasses());
  const auto modulePath = modulePathFor(options_, streams);
  if (!modulePath) {
    return 1;
  }
  const BundleModule module(*services.paths, *modulePath);
  if (!module.bundle()) {
    streams.err << "quietdial drive: " << module.error() << '\n';
    return 1;
  }
  DriveSession::Options options{options_.width, options_.entryBadge, {}};
  if (services.bus) {
    options.exchangeNotifications = [bus = services.bus] { bus->process(); };
  }
  const NetworkWork network(services.web);
  DriveSession session(std::move(options), module, services.clock, services.recorder,
                       services.sheets, services.displayRefresh);
  answerLines(session, streams);
  return 0;
}
