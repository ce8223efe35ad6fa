#include "settings/WebPages.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <chrono>
#include <unistd.h>
#include <utility>

#include "linux/userNamespaces.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"

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

}  // namespace

WebPages::WebPages(HostMap hosts, std::shared_ptr<HTTPClient> web, bool mayUseEngine)
    : hosts_(std::move(hosts)), web_(std::move(web)), mayUseEngine_(mayUseEngine) {}

bool WebPages::canShow(const QUrl& url, const QStringList& modulePaths) {
  if (!mayUseEngine_ || !isWebAddress(url)) {
    return false;
  }
  if (!engineHost_.isEmpty()) {
    return url.host() == engineHost_;
  }
  if (!isInstalled(modulePaths) || !prepareSandbox(url.host())) {
    return false;
  }
  engineHost_ = url.host();
  prepareNetwork(engineHost_);
  return true;
}

// The engine's sandbox does not run as root, and ends the whole program where it cannot run.
// Without it only pages of this machine are shown.
bool WebPages::prepareSandbox(const QString& host) const {
  if (geteuid() != 0) {
    qunsetenv(kDisableSandbox);
    return canMakeUserNamespaces();
  }
  const auto* address = hosts_.find(host.toStdString());
  if (!address || !address->isLoopback()) {
    return false;
  }
  qputenv(kDisableSandbox, "1");
  return true;
}

// The engine takes these when it starts. No other host is even looked up, whether it is given by
// name or by number, and no proxy is asked instead.
void WebPages::prepareNetwork(const QString& host) const {
  const auto* address = hosts_.find(host.toStdString());
  const QString rules = address ? QStringLiteral("MAP %1 %2, MAP * ~NOTFOUND")
                                      .arg(host, QString::fromStdString(address->text()))
                                : QStringLiteral("MAP * ~NOTFOUND, EXCLUDE %1").arg(host);
  const QString flags = QStringLiteral(
                            "--host-resolver-rules=\"%1\" --no-proxy-server --disable-quic "
                            "--disable-background-networking")
                            .arg(rules);
  // What the engine tells of its start is of no use to the user.
  QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
  qputenv(kEngineFlags, qgetenv(kEngineFlags) + ' ' + flags.toUtf8());
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
