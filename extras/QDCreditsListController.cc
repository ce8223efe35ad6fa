#include "extras/QDCreditsListController.h"

#include <array>
#include <string>
#include <utility>

#include "core/rowHeight.h"
#include "platform/foundation/method.h"
#include "platform/makers/addresses.h"
#include "platform/uikit/UIApplication.h"

namespace {

using Pane = QDCreditsListController;

constexpr auto kMethods = methods<Pane>(method<&Pane::followOnTwitter>("followOnTwitter"),
                                        method<&Pane::donate>("donate"),
                                        method<&Pane::visitTallowbyte>("visitTallowbyte"));

constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kPictures{{
    {"logo", "tallowbyte-logo.png"},
    {"head1", "avatar-orlan.png"},
    {"head2", "avatar-tavish.png"},
}};

}  // namespace

constexpr ClassOf<QDCreditsListController> QDCreditsListController::classObject{
    "QDCreditsListController", kMethods};

void QDCreditsListController::followOnTwitter() {
  const auto& application = UIApplication::sharedApplication();
  const std::string profile = "twitter://user?screen_name=Tallowbyte";
  if (application.canOpenURL(profile)) {
    application.openURL(profile);
    return;
  }
  application.openURL("https://" + std::string(addresses::kTwitterHost) +
                      "/intent/user?screen_name=Tallowbyte");
}

void QDCreditsListController::donate() {
  UIApplication::sharedApplication().openURL(
      "https://" + std::string(addresses::kPayPalHost) +
      "/cgi-bin/webscr?cmd=_s-xclick&hosted_button_id=" + std::string(addresses::kDonationButton));
}

void QDCreditsListController::visitTallowbyte() {
  UIApplication::sharedApplication().openURL("http://" + std::string(addresses::kWebsiteHost));
}

CGFloat QDCreditsListController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                                  NSIndexPath indexPath) {
  return heightForRow(*this, table, indexPath);
}

const PSSpecifiers& QDCreditsListController::specifiers() {
  if (hasSpecifiers()) {
    return keptSpecifiers();
  }
  setSpecifiers(
      loadSpecifiersFromPlistNameTarget("quietDialCreditsPreferences", shared_from_this()));
  if (const auto header = specifierForID("QDTallowbyte")) {
    for (const auto& [key, file] : kPictures) {
      header->setPropertyForKey(PropertyListValue(bundle()->bundlePath() + "/" + std::string(file)),
                                key);
    }
  }
  return keptSpecifiers();
}

std::shared_ptr<UITableViewCell> QDCreditsListController::tableViewCellForRowAtIndexPath(
    UITableView& table, NSIndexPath indexPath) {
  auto cell = PSListController::tableViewCellForRowAtIndexPath(table, indexPath);
  if (indexPath.row == 0) {
    cell->setSeparatorInset({});
    cell->setPreservesSuperviewLayoutMargins(false);
    cell->setLayoutMargins({});
  }
  return cell;
}
