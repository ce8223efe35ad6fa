#include "settings/items/WebViewItem.h"

#include <QPointer>
#include <QQmlEngine>
#include <algorithm>
#include <array>
#include <cmath>

#include "linux/MailtoAddress.h"
#include "linux/redirect.h"
#include "platform/services.h"
#include "platform/uikit/UIWebView.h"
#include "settings/services/WebPages.h"

namespace {

constexpr std::array kOpenedSchemes{QLatin1String("http"), QLatin1String("https")};

WebServer serverOf(const QUrl& url) {
  return {url.scheme().toStdString(), url.host().toStdString()};
}

}  // namespace

WebViewItem::WebViewItem(QQuickItem* parent) : ViewItem(parent) {
  patience_.setSingleShot(true);
  connect(&patience_, &QTimer::timeout, this, &WebViewItem::pageFailed);
}

UIWebView* WebViewItem::webView() const {
  return viewAs<UIWebView>();
}

WebPages* WebViewItem::pages() const {
  const auto* engine = qmlEngine(this);
  return engine ? engine->property("webPages").value<WebPages*>() : nullptr;
}

bool WebViewItem::isLoading() const {
  return view() && webView()->isLoading();
}

bool WebViewItem::isBusy() const {
  // The engine rounds to whole pixels.
  return isLoading() || (hasLoaded_ && usesEngine_ && std::abs(laidOutWidth_ - layoutWidth_) >= 1);
}

QAccessible::Role WebViewItem::accessibleRole() const {
  return usesEngine_ && !measuring_ ? QAccessible::WebDocument : QAccessible::NoRole;
}

void WebViewItem::takeOverLook() {
  if (webView()->loadNumber() != loadNumber_) {
    loadNumber_ = webView()->loadNumber();
    start();
  }
}

void WebViewItem::takeOverVisibility(bool hidden) {
  measuring_ = hidden;
  setVisible(true);
  setOpacity(hidden ? 0 : 1);
  setEnabled(!hidden);
  if (width() == 0) {
    // Its page is laid out across the superview, whichever way the page around it runs.
    setX(0);
  }
}

void WebViewItem::start() {
  hasLoaded_ = false;
  setPageHeight(0);
  const auto& request = *webView()->request();
  url_ = QUrl(QString::fromStdString(request.url), QUrl::StrictMode);
  auto* owner = pages();
  usesEngine_ = owner && owner->canShow(url_, qmlEngine(this)->importPathList());
  patience_.start(static_cast<int>(std::ceil(request.timeoutInterval * 1000)));
  // The web's own rule for addresses gives an apostrophe another form (URL standard, "special-query
  // percent-encode set"); what else could change is encoded already.
  askedByEngine_ = request.url.find('\'') == std::string::npos;
  if (!usesEngine_ || !askedByEngine_) {
    fetch();
  }
}

void WebViewItem::fetch() {
  auto* owner = pages();
  if (!owner || !view()) {
    return;
  }
  const auto& request = *webView()->request();
  owner->fetch(request.url, request.timeoutInterval,
               [self = QPointer<WebViewItem>(this),
                number = loadNumber_](const std::optional<QByteArray>& page) {
                 if (self && self->loadNumber_ == number) {
                   self->fetched(page);
                 }
               });
}

void WebViewItem::fetched(const std::optional<QByteArray>& page) {
  if (!page) {
    pageFailed();
  } else if (usesEngine_) {
    fetchedPage_ = QString::fromUtf8(*page);
    emit pageFetched();
  } else {
    // There is a page to be opened elsewhere.
    pageLoaded(noteHeight_);
  }
}

void WebViewItem::pageLoaded(qreal height) {
  patience_.stop();
  hasLoaded_ = true;
  setPageHeight(height);
  if (view()) {
    const auto keptAlive = view()->shared_from_this();
    webView()->finishLoad(loadNumber_, {width(), height});
  }
}

void WebViewItem::pageFailed() {
  patience_.stop();
  if (!view() || !webView()->isLoading()) {
    return;
  }
  webView()->failLoad(loadNumber_);
  // In the page's place there is at least a note.
  if (!measuring_) {
    usesEngine_ = false;
    emit lookChanged();
  }
}

void WebViewItem::engineFailed() {
  if (usesEngine_) {
    usesEngine_ = false;
    emit lookChanged();
    if (isLoading()) {
      fetch();
    }
  }
}

void WebViewItem::heightChanged(qreal height) {
  if (view() && !webView()->isLoading()) {
    setPageHeight(height);
    webView()->setContentSize(loadNumber_, {width(), height});
  }
}

void WebViewItem::setPageHeight(qreal height) {
  const bool cut = height > UIWebView::kGreatestContentHeight;
  if (cut != cut_) {
    cut_ = cut;
    emit cutChanged();
  }
}

void WebViewItem::setNoteHeight(qreal height) {
  noteHeight_ = height;
  if (!usesEngine_) {
    heightChanged(height);
  }
}

bool WebViewItem::mayRedirect(const QUrl& from, const QUrl& to) const {
  return ::mayRedirect(serverOf(from), serverOf(to));
}

void WebViewItem::openOutside(const QUrl& url) {
  const auto address = url.toEncoded().toStdString();
  if (const auto mail = MailtoAddress::parse(address)) {
    services().addresses->open(mail->text());
  } else if (std::ranges::find(kOpenedSchemes, url.scheme()) != kOpenedSchemes.end()) {
    services().addresses->open(address);
  }
}
