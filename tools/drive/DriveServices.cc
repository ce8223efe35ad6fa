#include "tools/drive/DriveServices.h"

#include <charconv>
#include <chrono>
#include <set>

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
#include "linux/DesktopAddressOpener.h"
#include "linux/DeviceFileService.h"
#include "linux/HTTPFetchService.h"
#include "linux/HostMap.h"
#include "linux/PictureHeaderService.h"
#include "linux/PosixProcessService.h"
#include "linux/StandardErrorLog.h"
#include "linux/SystemMail.h"
#include "linux/UnsavedSettings.h"
#include "linux/WatchedFiles.h"

namespace {

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

HostMap hostMap(const std::vector<std::string>& mapped) {
  HostMap hosts;
  for (const auto& host : mapped) {
    hosts.add(host);
  }
  return hosts;
}

}  // namespace

DriveServices::DriveServices(const DriveOptions& options, const std::string& root)
    : paths(std::make_shared<const DevicePaths>(root, DevicePaths::installedLibrary(),
                                                options.bundle)),
      web(std::make_shared<HTTPClient>(hostMap(options.mappedHosts),
                                       HTTPClient::Unmapped::kUnreachable)),
      options_(options) {
  if (options.effects == "real") {
    bus = DBusNotifications::forPanes();
    effects_ = {.processes = std::make_shared<PosixProcessService>(),
                .addresses = std::make_shared<DesktopAddressOpener>(),
                .mail = std::make_shared<SystemMail>(root + "/Drafts")};
  }
}

std::shared_ptr<FileService> DriveServices::makeFiles() const {
  const auto unsaved = std::make_shared<UnsavedSettings>();
  unsaved->setChangedHook(
      [&list = *unsaved, recorder = recorder] { recorder->record(eventFor(list.settings())); });
  return std::make_shared<RecordingFiles>(
      std::make_shared<WatchedFiles>(std::make_shared<DeviceFileService>(paths), unsaved),
      recorder);
}

Services DriveServices::make() const {
  return {
      .clock = clock,
      .files = makeFiles(),
      .notifications = std::make_shared<RecordingNotifications>(recorder, bus),
      .processes = std::make_shared<RecordingProcesses>(recorder, effects_.processes),
      .addresses = std::make_shared<RecordingAddresses>(
          recorder, std::set<std::string>(options_.schemes.begin(), options_.schemes.end()),
          effects_.addresses),
      .text = std::make_shared<TableTextMeasurer>(),
      .pictures = std::make_shared<PictureHeaderService>(paths),
      .sheets = sheets,
      .mail = std::make_shared<RecordingMail>(options_.mail == "yes", effects_.mail),
      .device = std::make_shared<StandInDevice>(),
      .fetches =
          std::make_shared<RecordingFetches>(std::make_shared<HTTPFetchService>(web), recorder),
      .webViews = std::make_shared<RecordingWebViews>(
          [web = web](const NSURLRequest& request) { return heightOfPage(*web, request); },
          recorder),
      .displayRefresh = displayRefresh,
      .log = std::make_shared<RecordingLog>(recorder, std::make_shared<StandardErrorLog>()),
  };
}
