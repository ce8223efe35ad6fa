#include "root/QDPreferencesListController.h"

#include <array>
#include <string>

#include "core/applySettings.h"
#include "core/preferenceStore.h"
#include "core/rowHeight.h"
#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/foundation/method.h"
#include "platform/makers/TBPSColoredTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/services.h"
#include "platform/social/SLComposeViewController.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIImageView.h"
#include "root/tweakCatalogue.h"

namespace {

using Pane = QDPreferencesListController;

constexpr auto kMethods = methods<Pane>(
    method<&Pane::applyChangedSettings>("applyChangedSettings"),
    method<&Pane::showLove>("showLove"), method<&Pane::installUpdate>("installUpdate"),
    method<&Pane::readPreferenceValue>("readPreferenceValue:"),
    method<&Pane::setPreferenceValueSpecifier>("setPreferenceValue:specifier:"));

// The rows whose values the sub-panes change while they are open.
constexpr std::array<std::string_view, 4> kSummaryRows{"Hide Caller ID Prefix", "Dial Tab Style",
                                                       "Systemwide Call Style", "Button Style"};

// Leads to the page about the catalogue's tweaks.
constexpr std::string_view kPromotionRow = "QDPromotionCell";

constexpr std::string_view kUpdateBadge = "New update available!";

}  // namespace

constexpr ClassOf<QDPreferencesListController> QDPreferencesListController::classObject{
    "QDPreferencesListController", kMethods};

std::weak_ptr<QDPreferencesListController>* preferencesListController = nullptr;
std::weak_ptr<UINavigationItem>* navigationItem = nullptr;

namespace {

// Never destroyed: code outside the bundle may look while the process ends.
template <class Object>
void publish(std::weak_ptr<Object>*& global, const std::shared_ptr<Object>& object) {
  if (!global) {
    global = new std::weak_ptr<Object>;  // NOLINT(cppcoreguidelines-owning-memory)
  }
  *global = object;
}

}  // namespace

bool QDPreferencesListController::init() {
  if (!PSListController::init()) {
    return false;
  }
  CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), preferencesDidChange,
                                  kPreferencesChangedNotification,
                                  CFNotificationSuspensionBehavior::kCoalesce);
  _updateAvailable = false;
  return true;
}

CGFloat QDPreferencesListController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                                      NSIndexPath indexPath) {
  return heightForRow(*this, table, indexPath);
}

void QDPreferencesListController::applyChangedSettings() {
  applySettings();
}

void QDPreferencesListController::viewDidLoad() {
  PSListController::viewDidLoad();
  const std::string folder = bundle()->bundlePath();

  auto logo = UIImage::imageWithContentsOfFile(folder + "/tallowbyteLogoNavBar.png");
  if (logo) {
    logo = logo->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate);
  }
  auto titleView = alloc<UIImageView>();
  titleView->initWithImage(logo);
  UIViewController::navigationItem()->setTitleView(titleView);

  publish(preferencesListController, cast<QDPreferencesListController>(shared_from_this()));
  publish(::navigationItem, UIViewController::navigationItem());

  auto heart = alloc<UIBarButtonItem>();
  heart->initWithImageStyleTargetAction(UIImage::imageNamed(folder + "/heart.png"),
                                        UIBarButtonItemStyle::kPlain, shared_from_this(),
                                        "showLove");
  heart->setAccessibilityLabel("Share");
  UIViewController::navigationItem()->setRightBarButtonItem(heart);
  heart->setEnabled(true);
}

std::shared_ptr<const Tweaks> QDPreferencesListController::getUnseenTweaks() {
  const auto available = availableTweaks.tweaks();
  if (!available) {
    return nullptr;
  }
  auto unseen =
      std::make_shared<const Tweaks>(tweaksNotSeen(*available, readPreference(kSeenTweaksKey)));
  unseenTweaks.setTweaks(unseen);
  return unseen;
}

// In the background. Several may overlap; each replaces the lists as a whole, and the last one
// wins.
void QDPreferencesListController::fetchCatalogue() {
  const auto text = services().fetches->stringWithContentsOfURL(catalogueListURL());
  if (!text) {
    return;
  }
  availableTweaks.setTweaks(std::make_shared<const Tweaks>(tweaksFromList(*text)));
  const auto row = specifierForID(kPromotionRow);
  const auto count = getUnseenTweaks()->size();
  if (!row) {
    return;
  }
  row->setPropertyForKey(PropertyListValue(count > 0 ? std::to_string(count) : std::string()),
                         "badgeString");
  const auto self = cast<QDPreferencesListController>(shared_from_this());
  MainQueue::shared().async([self, row] { self->reloadSpecifierAnimated(row, false); });
}

void QDPreferencesListController::showLove() {
  const auto sheet =
      SLComposeViewController::composeViewControllerForServiceType(SLServiceTypeTwitter);
  sheet->setInitialText("I'm loving #QuietDial from @Tallowbyte!");
  sheet->removeAllImages();
  presentViewControllerAnimatedCompletion(sheet, true, {});
}

void QDPreferencesListController::viewWillAppear(bool animated) {
  PSListController::viewWillAppear(animated);
  for (const auto identifier : kSummaryRows) {
    reloadSpecifierIDAnimated(identifier, false);
  }
  const auto self = cast<QDPreferencesListController>(shared_from_this());
  GlobalQueue::shared().async([self] { self->fetchCatalogue(); });
}

const PSSpecifiers& QDPreferencesListController::specifiers() {
  if (hasSpecifiers()) {
    return keptSpecifiers();
  }
  setSpecifiers(loadSpecifiersFromPlistNameTarget("quietDialPreferences", shared_from_this()));
  const auto badge = specifier() ? specifier()->textForKey("badgeString") : std::nullopt;
  if (badge == kUpdateBadge) {
    _updateAvailable = true;
    PSSpecifiers rows = keptSpecifiers();
    rows.insert(rows.begin() + (rows.empty() ? 0 : 1), makeUpdateRow());
    setSpecifiers(std::move(rows));
  }
  return keptSpecifiers();
}

std::shared_ptr<PSSpecifier> QDPreferencesListController::makeUpdateRow() {
  auto row = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "Install the new update", shared_from_this(), "", "", "",
      PSTableCell::cellTypeFromString("PSLinkCell"), "");
  row->setPropertyForKey(PropertyListValue("red"), "backgroundColor");
  row->setPropertyForKey(PropertyListValue("white"), "textColor");
  if (auto icon = UIImage::imageNamed(bundle()->bundlePath() + "/gear-white.png")) {
    row->setPropertyForKey(std::shared_ptr<NSObject>(std::move(icon)), "iconImage");
  }
  row->setPropertyForKey(&TBPSColoredTableCell::classObject, "cellClass");
  row->setAction("installUpdate");
  return row;
}

std::shared_ptr<UITableViewCell> QDPreferencesListController::tableViewCellForRowAtIndexPath(
    UITableView& table, NSIndexPath indexPath) {
  auto cell = PSListController::tableViewCellForRowAtIndexPath(table, indexPath);
  if (indexPath == NSIndexPath{0, 0} && _updateAvailable) {
    cell->setSeparatorInset({});
    cell->setPreservesSuperviewLayoutMargins(false);
    cell->setLayoutMargins({});
  }
  return cell;
}

void QDPreferencesListController::installUpdate() {
  UIApplication::sharedApplication().openURL("cydia://package/me.orlanvey.quietdial");
}

std::optional<PropertyListValue> QDPreferencesListController::readPreferenceValue(
    const PSSpecifier& specifier) {
  const auto key = specifier.textForKey("key");
  const auto stored = key ? readPreference(*key) : std::nullopt;
  return stored ? stored : specifier.plistForKey("default");
}

void QDPreferencesListController::setPreferenceValueSpecifier(const PropertyListValue& value,
                                                              const PSSpecifier& specifier) {
  if (const auto key = specifier.textForKey("key")) {
    writePreference(*key, value);
  }
}
