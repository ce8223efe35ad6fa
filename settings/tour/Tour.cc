#include "settings/tour/Tour.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "headless/RecordingMail.h"
#include "platform/preferences/PSListController.h"
#include "settings/bundles/BundleFailureController.h"
#include "settings/bundles/HeldBackController.h"
#include "settings/window/SettingsWindow.h"

namespace {

// Pages lead to pages; a tour ends even where they lead in circles.
constexpr int kDeepest = 8;
constexpr int kMostSubjects = 50;
constexpr int kTallest = 4000;

constexpr std::array kWidths{320, 375, 414};
constexpr std::array kShownSchemes{Appearance::Scheme::kLight, Appearance::Scheme::kDark};
constexpr std::array kShownTextSizes{UIContentSizeCategory::kLarge,
                                     UIContentSizeCategory::kAccessibilityMedium};

// Actions of rows that do nothing but show a sheet or an alert.
constexpr std::array<std::string_view, 1> kSheetActions{"sendSupportEmail"};

QString classNameOf(const UIViewController& page) {
  const auto name = page.classDescription().name;
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

QString Tour::Look::name() const {
  return QStringLiteral("%1-%2-%3")
      .arg(QString::number(width),
           scheme == Appearance::Scheme::kDark ? QStringLiteral("dark") : QStringLiteral("light"),
           textSize == UIContentSizeCategory::kLarge ? QStringLiteral("text")
                                                     : QStringLiteral("largetext"));
}

Tour::Tour(WindowMaker makeWindow, Sheets& sheets, RecordingMail& mail, int height, QString folder)
    : makeWindow_(std::move(makeWindow)),
      sheets_(sheets),
      mail_(mail),
      height_(height),
      folder_(std::move(folder)) {}

bool Tour::run() {
  if (!QDir().mkpath(folder_)) {
    error_ = QStringLiteral("The folder %1 cannot be made.").arg(folder_);
    return false;
  }
  for (const auto size : kShownTextSizes) {
    textSize_ = size;
    UIApplication::sharedApplication().setPreferredContentSizeCategory(size);
    visited_.clear();
    next_ = 0;
    window_.reset();
    window_ = makeWindow_();
    if (!visit(0) || !visitStandIns()) {
      return false;
    }
  }
  return writeIndex();
}

bool Tour::visit(int depth) {
  if (!takePicturesOfPage()) {
    return false;
  }
  auto* page = window_->navigation().topPage().get();
  const auto& button = page->navigationItem()->rightBarButtonItem();
  if (button && button->isEnabled()) {
    button->press();
    if (!takePicturesOfSheet(classNameOf(*page) + QStringLiteral("-bar"))) {
      return false;
    }
  }
  const auto list = cast<PSListController>(window_->navigation().topPage());
  const int rows = list ? static_cast<int>(list->specifiers().size()) : 0;
  for (int index = 0; index < rows && depth < kDeepest; ++index) {
    if (!visitRow(index, depth)) {
      return false;
    }
  }
  return true;
}

bool Tour::visitRow(int index, int depth) {
  const auto page = cast<PSListController>(window_->navigation().topPage());
  const auto row = page->specifierAtIndex(index);
  const auto place = page->indexPathForIndex(index);
  if (!row || !place) {
    return true;
  }
  if (std::ranges::find(kSheetActions, row->action()) != kSheetActions.end()) {
    return visitSheets(*row);
  }
  const QString detail = QString::fromStdString(row->detail());
  if (detail.isEmpty() || visited_.contains(detail) || next_ >= kMostSubjects) {
    return true;
  }
  visited_.append(detail);
  page->tableViewDidSelectRowAtIndexPath(*page->table(), *place);
  if (window_->navigation().topPage() == page) {
    return true;
  }
  const bool done = visit(depth + 1);
  window_->navigation().stack().popViewControllerAnimated(false);
  return done;
}

bool Tour::visitSheets(PSSpecifier& row) {
  row.performAction();
  if (auto* mail = sheets_.mail()) {
    mail->setReading(0);
    if (!takePictures(QStringLiteral("attachment"), QStringLiteral("Attachment"))) {
      return false;
    }
    mail->setReading(-1);
  }
  if (!takePicturesOfSheet(QString::fromStdString(row.action()))) {
    return false;
  }
  // The same without a mail account.
  mail_.setCanSend(false);
  row.performAction();
  mail_.setCanSend(true);
  return takePicturesOfSheet(QStringLiteral("alert"));
}

bool Tour::visitStandIns() {
  auto& stack = window_->navigation().stack();
  const auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "Example", nullptr, "", "", "", PSCellType::kLink, "");
  const std::array<std::shared_ptr<UIViewController>, 2> pages{
      BundleFailureController::forBundle("/Library/PreferenceBundles/Example.bundle",
                                         "The module cannot be opened: it is not there.", row),
      HeldBackController::forPane("ExampleController", row, {}),
  };
  for (const auto& page : pages) {
    stack.pushViewControllerAnimated(page, false);
    const bool done = takePicturesOfPage();
    stack.popViewControllerAnimated(false);
    if (!done) {
      return false;
    }
  }
  return true;
}

bool Tour::takePicturesOfPage() {
  const auto page = window_->navigation().topPage();
  return takePictures(classNameOf(*page), QString::fromStdString(page->title()));
}

bool Tour::takePicturesOfSheet(const QString& name) {
  bool done = true;
  while (done && sheets_.isShowing()) {
    done = takePictures(name, QStringLiteral("Sheet"));
    sheets_.cancel();
  }
  return done;
}

Tour::Subject& Tour::subjectNamed(const QString& name, const QString& title) {
  const int number = next_++;
  if (number == subjects_.size()) {
    const QString file = QStringLiteral("%1-%2").arg(number + 1, 2, 10, QChar(u'0')).arg(name);
    subjects_.append({file, title.isEmpty() ? name : title, {}});
  }
  return subjects_[number];
}

bool Tour::takePictures(const QString& name, const QString& title) {
  auto& subject = subjectNamed(name, title);
  for (const int width : kWidths) {
    for (const auto scheme : kShownSchemes) {
      if (!takePicture({width, scheme, textSize_}, subject)) {
        return false;
      }
    }
  }
  return true;
}

bool Tour::takePicture(const Look& look, Subject& subject) {
  Appearance::shared().setScheme(look.scheme);
  window_->resize({look.width, height_});
  // A sheet covers what is in sight, not the whole page.
  if (!sheets_.isShowing()) {
    window_->resize({look.width, std::clamp(window_->wholePageHeight(), height_, kTallest)});
  }
  const QImage image = window_->picture();
  if (image.isNull()) {
    error_ = QStringLiteral("The renderer gives no picture here.");
    return false;
  }
  const QString file = QStringLiteral("%1-%2.png").arg(subject.name, look.name());
  if (!image.save(QDir(folder_).filePath(file))) {
    error_ = QStringLiteral("%1 cannot be written.").arg(QDir(folder_).filePath(file));
    return false;
  }
  subject.files.append(file);
  return true;
}

bool Tour::writeIndex() {
  QString html = QStringLiteral(
      "<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n<title>Settings</title>\n"
      "<style>body{font-family:Inter,sans-serif;background:#ddd;margin:2em}"
      "section{white-space:nowrap;overflow-x:auto}"
      "figure{display:inline-block;vertical-align:top;margin:1em .5em}"
      "img{height:360px;box-shadow:0 2px 12px #0005}figcaption{font-size:12px}</style>\n"
      "<h1>Settings</h1>\n");
  for (const auto& subject : subjects_) {
    html += QStringLiteral("<section><h2>%1</h2>\n").arg(subject.title.toHtmlEscaped());
    for (const auto& file : subject.files) {
      const QString look = file.mid(subject.name.size() + 1).chopped(4);
      html += QStringLiteral(
                  "<figure><figcaption>%1</figcaption><a href=\"%2\">"
                  "<img loading=\"lazy\" src=\"%2\" alt=\"%3, %1\"></a></figure>\n")
                  .arg(look, file, subject.title.toHtmlEscaped());
    }
    html += QStringLiteral("</section>\n");
  }
  QFile index(QDir(folder_).filePath(QStringLiteral("index.html")));
  const QByteArray bytes = html.toUtf8();
  if (!index.open(QIODevice::WriteOnly) || index.write(bytes) != bytes.size() || !index.flush()) {
    error_ = QStringLiteral("%1 cannot be written.").arg(index.fileName());
    return false;
  }
  return true;
}
