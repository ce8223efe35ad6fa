#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "linux/HTTPClient.h"
#include "linux/HostMap.h"
#include "platform/services.h"

/// Decides whether and how web pages are shown. The toolkit's web engine runs in processes of its
/// own and is loaded when the first page is shown; it reaches the host of the maker's catalogue and
/// nothing else. Main thread.
class WebPages : public QObject, public WebViewService {
  Q_OBJECT

 public:
  /// Sets what the engine takes from the environment when it starts. Before any thread is started:
  /// others may read the environment at any time.
  static void prepareEngine(const HostMap& hosts);

  /// `hosts` are connected to where they are mapped to. Without `mayUseEngine` no page is shown.
  WebPages(HostMap hosts, std::shared_ptr<HTTPClient> web, bool mayUseEngine);

  /// The item that shows the view loads its page.
  void load(UIWebView& /*view*/) override {}

  /// Whether the engine may show that page, and can: it is of the catalogue's host, the engine is
  /// installed (in one of the folders in which QML modules are looked for), and its sandbox works
  /// or the page is one of this machine.
  bool canShow(const QUrl& url, const QStringList& modulePaths);

  /// Fetches a page without the engine, in the background; `answered` is called on the main queue,
  /// with nothing when the page does not come.
  void fetch(const std::string& url, double seconds,
             std::function<void(const std::optional<QByteArray>&)> answered);

 private:
  const HostMap hosts_;
  const std::shared_ptr<HTTPClient> web_;
  const bool mayUseEngine_;
  std::optional<bool> worksHere_;
};

Q_DECLARE_METATYPE(WebPages*)
