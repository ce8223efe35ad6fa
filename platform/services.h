#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/api.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/PropertyList.h"

class UIAlertView;
class UIViewController;
class UIWebView;
struct MailMessage;
struct UIFont;

/// What only a machine can give. A program installs one set of services before it makes the first
/// object; the panes and the frameworks reach the machine through nothing else. Unless a service
/// says otherwise it is called on the main thread only.

/// Seconds since an arbitrary moment, never going back. Any thread.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual double now() const = 0;
};

/// Files, named by device paths ("/User/…", "/Library/…"). Any thread.
class FileService {
 public:
  virtual ~FileService() = default;

  /// The file's bytes; nothing when it cannot be read or is larger than the service's bound.
  virtual std::optional<PropertyListData> dataWithContentsOfFile(const std::string& path) const = 0;

  /// The dictionary in a property-list file. Anything else (no file, an unreadable or oversized
  /// one, a root of another kind) gives nothing.
  virtual std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(
      const std::string& path) const = 0;

  /// Replaces the file in one step: a reader sees the old or the new file, whole. False when the
  /// write failed; the old file is then untouched.
  virtual bool writeToFileAtomically(const PropertyListDictionary& dictionary,
                                     const std::string& path) = 0;

  /// The bytes of a property-list file with that dictionary; nothing where no file can hold it.
  virtual std::optional<PropertyListData> dataWithPropertyList(
      const PropertyListDictionary& dictionary) const = 0;
};

/// The two calls by which a Darwin notification is posted. They reach the same observers.
enum class NotificationCall { kCFNotificationCenter, kNotifyPost };

/// Tells other processes of a notification. Observers in this process are not its concern: the
/// notification centre queues those itself.
class NotificationBroadcaster {
 public:
  virtual ~NotificationBroadcaster() = default;
  virtual void broadcast(NotificationCall call, const std::string& name) = 0;
};

/// Starting programs and waiting for them, with the meaning of the calls of the same names.
class ProcessService {
 public:
  virtual ~ProcessService() = default;

  /// 0 and the process identifier, or an error number and `pid` untouched. A null environment is an
  /// empty one.
  virtual int posixSpawn(int& pid, const std::string& path,
                         const std::vector<std::string>& arguments,
                         const std::vector<std::string>* environment) = 0;

  /// Waits for the end of that process; `options` are the device's. The process identifier, or -1.
  virtual int waitpid(int pid, int& status, int options) = 0;
};

/// Opening addresses by whatever the machine has for them.
class AddressOpener {
 public:
  virtual ~AddressOpener() = default;
  virtual bool canOpen(const std::string& url) = 0;
  /// An address that nothing handles is not reported.
  virtual void open(const std::string& url) = 0;
};

/// Extents of text, in points.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  /// The smallest box around the text, broken into lines no wider than `width`.
  virtual CGSize sizeOfText(std::string_view text, const UIFont& font, CGFloat width) = 0;
};

/// Pictures: only their size is the frameworks' concern, the host draws them from the file.
class PictureService {
 public:
  virtual ~PictureService() = default;
  /// The picture's size in pixels; nothing when the file is missing or no picture.
  virtual std::optional<CGSize> pixelSize(const std::string& path) = 0;
};

/// The log in which a machine keeps what its programs say.
class SystemLog {
 public:
  virtual ~SystemLog() = default;
  virtual void write(const std::string& line) = 0;
};

/// Showing what stands above a page.
class SheetPresenter {
 public:
  virtual ~SheetPresenter() = default;
  virtual void present(UIViewController& presenter,
                       const std::shared_ptr<UIViewController>& sheet) = 0;
  virtual void dismiss(UIViewController& sheet) = 0;
  virtual void show(const std::shared_ptr<UIAlertView>& alert) = 0;
};

/// What this machine has for mail.
class MailService {
 public:
  virtual ~MailService() = default;
  /// Whether there is anything that mail could be handed to.
  virtual bool canSend() = 0;
  /// Hands the mail over. False when it was refused or nothing took it in time; it may take as long
  /// as a minute. Any thread, one call at a time.
  virtual bool send(const MailMessage& message) = 0;
  /// Keeps the mail as a file that mail programs open. Where it lies on this machine; nothing when
  /// it could not be written. Any thread, one call at a time.
  virtual std::optional<std::string> saveDraft(const MailMessage& message) = 0;
};

/// What may be told of this machine to those who support it: what kind it is and which programs it
/// runs. Nothing that tells whose it is: no names of users, hosts or files, no numbers of devices.
class DeviceInformationService {
 public:
  virtual ~DeviceInformationService() = default;
  virtual PropertyListDictionary deviceInformation() = 0;
};

/// Fetching texts over HTTP. Any thread; a call returns when the answer is there or will not come.
class FetchService {
 public:
  virtual ~FetchService() = default;
  /// The body of the answer. Nothing when none came within the service's bounds of time, size and
  /// redirects, when it was cut off, had a status other than 2xx, or is not UTF-8.
  virtual std::optional<std::string> stringWithContentsOfURL(const std::string& url) = 0;
};

/// Loading pages into web views and, where there is a screen, showing them.
class WebViewService {
 public:
  virtual ~WebViewService() = default;
  /// The view has a new request. The service tells the view how that load ends, on the main queue
  /// and not before this call has returned; the view may be gone by then.
  virtual void load(UIWebView& view) = 0;
};

/// The refreshes of the screen.
class DisplayRefresh {
 public:
  virtual ~DisplayRefresh() = default;
  /// While wanted, and while the screen shows the program, the service calls
  /// CADisplayLink::screenDidRefresh on the main thread once for each refresh of the screen. While
  /// not wanted it does nothing at all.
  virtual void setWanted(bool wanted) = 0;
};

struct Services {
  std::shared_ptr<Clock> clock;
  std::shared_ptr<FileService> files;
  std::shared_ptr<NotificationBroadcaster> notifications;
  std::shared_ptr<ProcessService> processes;
  std::shared_ptr<AddressOpener> addresses;
  std::shared_ptr<TextMeasurer> text;
  std::shared_ptr<PictureService> pictures;
  std::shared_ptr<SheetPresenter> sheets;
  std::shared_ptr<MailService> mail;
  std::shared_ptr<DeviceInformationService> device;
  std::shared_ptr<FetchService> fetches;
  std::shared_ptr<WebViewService> webViews;
  std::shared_ptr<DisplayRefresh> displayRefresh;
  std::shared_ptr<SystemLog> log;
};

/// Main thread, before the first use of anything else. With panes every member is set; without,
/// those that are used.
PLATFORM_API void installServices(Services services);

/// The installed services. Any thread.
PLATFORM_API const Services& services();
