#include "settings/Tour.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QList>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "platform/preferences/PSListController.h"
#include "settings/SettingsWindow.h"
#include "settings/tourSheets.h"

namespace {

// Pages lead to pages; a tour ends even where they lead in circles.
constexpr int kDeepest = 8;
constexpr int kMostPictures = 200;
constexpr int kTallest = 4000;

QString classNameOf(const UIViewController& page) {
  const auto name = page.classDescription().name;
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

Tour::Tour(SettingsWindow& window, RecordingMail& mail, QString folder)
    : window_(window), mail_(mail), folder_(std::move(folder)) {}

bool Tour::run() {
  if (!QDir().mkpath(folder_)) {
    error_ = QStringLiteral("The folder %1 cannot be made.").arg(folder_);
    return false;
  }
  return visit(0) && writeIndex();
}

bool Tour::visit(int depth) {
  if (!takePicture() || !takePicturesOfSheets()) {
    return false;
  }
  const auto page = cast<PSListController>(window_.navigation().topPage());
  if (!page || depth == kDeepest) {
    return true;
  }
  const auto rows = page->specifiers();
  for (std::size_t index = 0; index < rows.size(); ++index) {
    const QString detail = QString::fromStdString(rows[index]->detail());
    const auto place = page->indexPathForIndex(static_cast<int>(index));
    if (detail.isEmpty() || !place || visited_.contains(detail) ||
        pictures_.size() >= kMostPictures) {
      continue;
    }
    visited_.append(detail);
    page->tableViewDidSelectRowAtIndexPath(*page->table(), *place);
    if (window_.navigation().topPage() == page) {
      continue;
    }
    const bool done = visit(depth + 1);
    window_.navigation().stack().popViewControllerAnimated(false);
    if (!done) {
      return false;
    }
  }
  return true;
}

bool Tour::takePicture() {
  const auto page = window_.navigation().topPage();
  const int height = std::clamp(window_.wholePageHeight(), window_.size().height(), kTallest);
  const QSize usual = window_.size();
  window_.resize({usual.width(), height});
  const QImage image = window_.picture();
  window_.resize(usual);
  return save(image, classNameOf(*page), QString::fromStdString(page->title()));
}

bool Tour::takePicturesOfSheets() {
  const auto page = window_.navigation().topPage();
  for (const auto& sheet : kTourSheets) {
    if (page->classDescription().name != sheet.pane) {
      continue;
    }
    mail_.setCanSend(sheet.hasMail);
    page->performAction(sheet.action, nullptr);
    if (sheet.readsAttachment && window_.sheets().mail()) {
      window_.sheets().mail()->setReading(0);
    }
    const QImage image = window_.picture();
    window_.sheets().cancelTop();
    mail_.setCanSend(true);
    if (!save(image, QLatin1String(sheet.name), QLatin1String(sheet.title))) {
      return false;
    }
  }
  return true;
}

bool Tour::save(const QImage& image, const QString& name, const QString& title) {
  const QString file =
      QStringLiteral("%1-%2.png").arg(pictures_.size() + 1, 2, 10, QChar(u'0')).arg(name);
  if (image.isNull()) {
    error_ = QStringLiteral("The renderer gives no picture here.");
    return false;
  }
  if (!image.save(QDir(folder_).filePath(file))) {
    error_ = QStringLiteral("%1 cannot be written.").arg(QDir(folder_).filePath(file));
    return false;
  }
  pictures_.append({file, title});
  return true;
}

bool Tour::writeIndex() {
  QString html =
      QStringLiteral(
          "<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n<title>Settings</title>\n"
          "<style>body{font-family:Inter,sans-serif;background:#ddd;margin:2em}"
          "figure{display:inline-block;vertical-align:top;margin:1em}"
          "img{width:%1px;box-shadow:0 2px 12px #0005}figcaption{margin-bottom:.5em}</style>\n"
          "<h1>Settings</h1>\n")
          .arg(window_.size().width());
  for (const auto& picture : pictures_) {
    html += QStringLiteral(
                "<figure><figcaption>%1</figcaption><a href=\"%2\">"
                "<img src=\"%2\" alt=\"%1\"></a></figure>\n")
                .arg(picture.title.toHtmlEscaped(), picture.file);
  }
  QFile index(QDir(folder_).filePath(QStringLiteral("index.html")));
  const QByteArray bytes = html.toUtf8();
  if (!index.open(QIODevice::WriteOnly) || index.write(bytes) != bytes.size() || !index.flush()) {
    error_ = QStringLiteral("%1 cannot be written.").arg(index.fileName());
    return false;
  }
  return true;
}
