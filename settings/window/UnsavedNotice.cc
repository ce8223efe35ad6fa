#include "settings/window/UnsavedNotice.h"

#include <QStringList>
#include <utility>

#include "core/settingsTable.h"
#include "platform/uikit/UIFont.h"

namespace {

QString nameOf(const std::string& key) {
  const auto* known = settings::find(key);
  const std::string_view name = known ? known->title : std::string_view(key);
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

UnsavedNotice::UnsavedNotice(std::shared_ptr<UnsavedSettings> unsaved)
    : unsaved_(std::move(unsaved)) {
  unsaved_->setChangedHook([this] { emit changed(); });
}

UnsavedNotice::~UnsavedNotice() {
  unsaved_->setChangedHook({});
}

QString UnsavedNotice::sentence() const {
  const auto unsaved = unsaved_->settings();
  return unsaved.empty() ? QString()
                         : tr("Your change could not be saved: %1")
                               .arg(QString::fromLocal8Bit(unsaved.back().reason.message()));
}

QString UnsavedNotice::settings() const {
  QStringList names;
  for (const auto& setting : unsaved_->settings()) {
    names.append(nameOf(setting.key));
  }
  names.removeDuplicates();
  return names.join(tr(", "));
}

double UnsavedNotice::textSize() {
  return UIFont::preferredFontForTextStyle(UIFontTextStyle::kFootnote).pointSize;
}
