#include "extras/QDPromotionController.h"

#include <string>
#include <string_view>

#include "core/preferenceStore.h"
#include "platform/foundation/percentEncoding.h"
#include "platform/makers/TBPSSpinnerTableCell.h"
#include "platform/makers/TBPSWebViewTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "root/tweakCatalogue.h"

constexpr ClassOf<QDPromotionController> QDPromotionController::classObject{
    "QDPromotionController"};

namespace {

constexpr std::string_view kWebRow = "TweaksPromotionCell";
constexpr double kPatience = 30;  // seconds
constexpr int kSpinnerHeight = 100;

std::string pageURL() {
  std::string url = cataloguePageURL();
  const auto unseen = unseenTweaks.tweaks();
  if (!unseen || unseen->empty()) {
    return url;
  }
  std::string parameter = "&unseen=";
  for (std::size_t index = 0; index < unseen->size(); ++index) {
    if (index > 0) {
      parameter += kTweakSeparator;
    }
    parameter += (*unseen)[index];
  }
  return url += stringByAddingPercentEncodingWithURLHostAllowedCharacters(parameter);
}

// The catalogue's list as it now stands; a catalogue that was never fetched leaves what is stored.
void markEverythingAsSeen() {
  if (const auto available = availableTweaks.tweaks()) {
    storePreference(kSeenTweaksKey, PropertyListArray(available->begin(), available->end()));
  }
}

}  // namespace

void QDPromotionController::webViewDidFinishLoad(UIWebView& /*webView*/) {
  const auto spinner = loadingSpecifier_;
  if (!spinner) {
    return;
  }
  replaceContiguousSpecifiersWithSpecifiersAnimated({spinner}, {makeWebRow()}, true);
  loadingSpecifier_ = nullptr;
  markEverythingAsSeen();
}

std::shared_ptr<PSSpecifier> QDPromotionController::makeWebRow() {
  auto row = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "", shared_from_this(), "", "", "", PSTableCell::cellTypeFromString("PSDefaultCell"), "");
  row->setPropertyForKey(&TBPSWebViewTableCell::classObject, "cellClass");
  row->setPropertyForKey(PropertyListValue(std::string(kWebRow)), "id");
  row->setPropertyForKey(PropertyListValue(pageURL()), "url");
  return row;
}

const PSSpecifiers& QDPromotionController::specifiers() {
  if (hasSpecifiers()) {
    return keptSpecifiers();
  }
  sizeCalculationView_ = allocInit<UIWebView>();
  sizeCalculationView_->setDelegate(cast<QDPromotionController>(shared_from_this()));
  sizeCalculationView_->setHidden(true);
  sizeCalculationView_->scrollView()->setScrollEnabled(true);
  sizeCalculationView_->loadRequest({pageURL(), kPatience});
  view()->addSubview(sizeCalculationView_);

  loadingSpecifier_ = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "", shared_from_this(), "", "", "", PSTableCell::cellTypeFromString("PSDefaultCell"), "");
  loadingSpecifier_->setPropertyForKey(&TBPSSpinnerTableCell::classObject, "cellClass");
  loadingSpecifier_->setPropertyForKey(PropertyListValue(kSpinnerHeight), "height");
  setSpecifiers({loadingSpecifier_});
  return keptSpecifiers();
}

CGFloat QDPromotionController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                                NSIndexPath indexPath) {
  const auto row = specifierAtIndex(indexForIndexPath(indexPath).value_or(-1));
  if (!row || row->textForKey("id") != kWebRow) {
    return PSListController::tableViewHeightForRowAtIndexPath(table, indexPath);
  }
  sizeCalculationView_->setFrame(CGRectMake(0, 0, table.wrapperView()->frame().size.width, 1));
  return sizeCalculationView_->scrollView()->contentSize().height;
}
