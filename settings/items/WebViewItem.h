#pragma once

#include <QByteArray>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <optional>

#include "settings/mirror/ViewItem.h"

class UIWebView;
class WebPages;

/// Shows a UIWebView: its page in the web engine, or, where that cannot be used or the page does
/// not come, a note with a way to open the page elsewhere. A hidden view is laid out like one that
/// is shown, only not to be seen: the engine measures no page that is invisible.
class WebViewItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  /// Empty for no page.
  Q_PROPERTY(QUrl url READ url NOTIFY lookChanged)
  /// Whether the engine is to ask for the page itself. It would send some addresses in another form
  /// than they have; their pages are fetched for it.
  Q_PROPERTY(bool isAskedByEngine READ isAskedByEngine NOTIFY lookChanged)
  /// The page that was fetched for the engine; empty until it is there.
  Q_PROPERTY(QString fetchedPage MEMBER fetchedPage_ NOTIFY pageFetched)
  /// The width that the page is to have, and the one that the engine has given it.
  Q_PROPERTY(qreal layoutWidth MEMBER layoutWidth_)
  Q_PROPERTY(qreal laidOutWidth MEMBER laidOutWidth_)
  Q_PROPERTY(bool loading READ isLoading NOTIFY lookChanged)
  /// Whether the page is only measured and not to be seen.
  Q_PROPERTY(bool measuring READ isMeasuring NOTIFY lookChanged)
  /// Whether the page is shown by the engine, as long as that works.
  Q_PROPERTY(bool usesEngine READ usesEngine NOTIFY lookChanged)
  /// Whether the page is longer than is shown of it.
  Q_PROPERTY(bool cut READ isCut NOTIFY cutChanged)

 public:
  explicit WebViewItem(QQuickItem* parent = nullptr);

  QUrl url() const { return url_; }
  bool isAskedByEngine() const { return askedByEngine_; }
  bool isLoading() const;
  /// Whether the page is not yet as it will be shown.
  bool isBusy() const;
  bool isMeasuring() const { return measuring_; }
  bool usesEngine() const { return usesEngine_; }
  bool isCut() const { return cut_; }
  /// Whether the last load has ended well.
  bool hasLoaded() const { return hasLoaded_; }

  /// Whether the engine may go on with a page that answers with a redirect.
  Q_INVOKABLE bool mayRedirect(const QUrl& from, const QUrl& to) const;
  /// The engine has loaded the page; its height is known.
  Q_INVOKABLE void pageLoaded(qreal height);
  /// The engine cannot give the page.
  Q_INVOKABLE void pageFailed();
  /// The loaded page, or the note in its place, has another height.
  Q_INVOKABLE void heightChanged(qreal height);
  /// The engine cannot be used after all: the note is shown instead.
  Q_INVOKABLE void engineFailed();
  /// Height of the note, when it stands in the page's place.
  Q_INVOKABLE void setNoteHeight(qreal height);
  /// Opens a web address in the user's browser, and that of a mail, as far as it says whom the mail
  /// goes to and what is in it, in the mail program; others are not opened.
  Q_INVOKABLE void openOutside(const QUrl& url);

  QAccessible::Role accessibleRole() const override;
  QString accessibleName() const override { return tr("Web page"); }

 signals:
  void pageFetched();
  void cutChanged();

 protected:
  void takeOverLook() override;
  void takeOverVisibility(bool hidden) override;

 private:
  UIWebView* webView() const;
  WebPages* pages() const;
  void start();
  void fetch();
  void fetched(const std::optional<QByteArray>& page);
  void setPageHeight(qreal height);

  QUrl url_;
  QString fetchedPage_;
  QTimer patience_;
  qreal layoutWidth_ = 0;
  qreal laidOutWidth_ = 0;
  qreal noteHeight_ = 0;
  int loadNumber_ = 0;
  bool measuring_ = false;
  bool usesEngine_ = false;
  bool hasLoaded_ = false;
  bool askedByEngine_ = true;
  bool cut_ = false;
};
