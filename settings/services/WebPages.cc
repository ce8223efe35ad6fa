#include "settings/services/WebPages.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <chrono>
#include <unistd.h>
#include <utility>

#include "linux/userNamespaces.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/makers/addresses.h"

namespace {

constexpr const char* kDisableSandbox = "QTWEBENGINE_DISABLE_SANDBOX";
constexpr std::size_t kLongestPage = std::size_t{16} << 20;
constexpr const char* kEngineFlags = "QTWEBENGINE_CHROMIUM_FLAGS";

bool isWebAddress(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() &&
         (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

bool isInstalled(const QStringList& modulePaths) {
  for (const auto& path : modulePaths) {
    if (QFile::exists(QDir(path).filePath(QStringLiteral("QtWebEngine/qmldir")))) {
      return true;
    }
  }
  return false;
}

// The one host that the engine reaches.
QString engineHost() {
  const auto& address = addresses::kCatalogue;
  return QUrl(QString::fromUtf8(address.data(), address.size())).host();
}

// The engine's sandbox is made of namespaces, and does not run as root.
bool sandboxWorks() {
  return geteuid() != 0 && canMakeUserNamespaces();
}

// Without a sandbox only pages of this machine are shown.
bool isOnThisMachine(const HostMap& hosts) {
  const auto* address = hosts.find(engineHost().toStdString());
  return address && address->isLoopback();
}

}  // namespace

WebPages::WebPages(HostMap hosts, std::shared_ptr<HTTPClient> web, bool mayUseEngine)
    : hosts_(std::move(hosts)), web_(std::move(web)), mayUseEngine_(mayUseEngine) {}

void WebPages::prepareEngine(const HostMap& hosts) {
  const QString host = engineHost();
  const auto* address = hosts.find(host.toStdString());
  // The sandbox ends the whole program where it cannot run.
  if (isOnThisMachine(hosts) && !sandboxWorks()) {
    qputenv(kDisableSandbox, "1");
  } else {
    qunsetenv(kDisableSandbox);
  }
  // No other host is even looked up, whether it is given by name or by number, and no proxy is
  // asked instead.
  const QString rules = address ? QStringLiteral("MAP %1 %2, MAP * ~NOTFOUND")
                                      .arg(host, QString::fromStdString(address->text()))
                                : QStringLiteral("MAP * ~NOTFOUND, EXCLUDE %1").arg(host);
  const QString flags = QStringLiteral(
                            "--host-resolver-rules=\"%1\" --no-proxy-server --disable-quic "
                            "--disable-background-networking")
                            .arg(rules);
  qputenv(kEngineFlags, qgetenv(kEngineFlags) + ' ' + flags.toUtf8());
}

bool WebPages::canShow(const QUrl& url, const QStringList& modulePaths) {
  if (!mayUseEngine_ || !isWebAddress(url) || url.host() != engineHost()) {
    return false;
  }
  if (!worksHere_) {
    // What the engine tells of its start is of no use to the user.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
    worksHere_ = isInstalled(modulePaths) && (isOnThisMachine(hosts_) || sandboxWorks());
  }
  return *worksHere_;
}

void WebPages::fetch(const std::string& url, double seconds,
                     std::function<void(const std::optional<QByteArray>&)> answered) {
  HTTPLimits limits;
  limits.time =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
  limits.bytes = kLongestPage;
  GlobalQueue::shared().async([web = web_, url, limits, answered = std::move(answered)] {
    const auto answer = web->get(url, limits);
    std::optional<QByteArray> body;
    if (answer && answer->isSuccess()) {
      body = QByteArray::fromStdString(answer->body);
    }
    MainQueue::shared().async([answered, body = std::move(body)] { answered(body); });
  });
}
