#include "extras/QDSupportListController.h"

#include <string>

#include "core/preferenceStore.h"
#include "core/rowHeight.h"
#include "platform/foundation/method.h"
#include "platform/makers/TBSupportInfo.h"
#include "platform/makers/addresses.h"
#include "platform/uikit/UIAlertView.h"
#include "platform/uikit/UINavigationController.h"

namespace {

constexpr auto kMethods = methods<QDSupportListController>(
    method<&QDSupportListController::sendSupportEmail>("sendSupportEmail"));

constexpr std::string_view kPackageIdentifier = "me.orlanvey.quietdial";
constexpr const char* kBody =
    "\n\n---------------------------------------\nWe attached some information about your Quiet "
    "Dial Preferences and your device here. This will help us solve your problem more quickly.";

}  // namespace

constexpr ClassOf<QDSupportListController> QDSupportListController::classObject{
    "QDSupportListController", kMethods};

CGFloat QDSupportListController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                                  NSIndexPath indexPath) {
  return heightForRow(*this, table, indexPath);
}

const PSSpecifiers& QDSupportListController::specifiers() {
  if (!hasSpecifiers()) {
    setSpecifiers(
        loadSpecifiersFromPlistNameTarget("quietDialSupportPreferences", shared_from_this()));
  }
  return keptSpecifiers();
}

void QDSupportListController::sendSupportEmail() {
  if (!MFMailComposeViewController::canSendMail()) {
    const auto alert = alloc<UIAlertView>();
    alert->initWithTitleMessageCancelButtonTitle(
        "No mail accounts are set up.", "Please go to the Mail settings to add a new account.",
        "OK");
    alert->show();
    return;
  }
  const auto info = alloc<TBSupportInfo>();
  info->initWithPackageFilePath(bundle()->bundlePath());

  const auto composer = allocInit<MFMailComposeViewController>();
  composer->setMailComposeDelegate(cast<QDSupportListController>(shared_from_this()));
  composer->setToRecipients({std::string(addresses::kSupportMail)});
  composer->setSubject(info->mailSubjectForPackageIdentifier(kPackageIdentifier));
  composer->setMessageBodyIsHTML(kBody, false);
  composer->addAttachmentDataMimeTypeFileName(
      info->supportAttachmentDataForPreferencePath(std::string(kSettingsPath)),
      "application/x-plist", "Information.plist");

  // The sheet covers the whole application, not only the list of panes.
  const auto inner = navigationController();
  if (const auto outer = inner ? inner->navigationController() : nullptr) {
    outer->presentViewControllerAnimatedCompletion(composer, true, {});
  }
}

void QDSupportListController::mailComposeControllerDidFinishWithResultError(
    MFMailComposeViewController& /*composer*/, MFMailComposeResult /*result*/,
    std::optional<MFMailComposeErrorCode> /*error*/) {
  dismissViewControllerAnimatedCompletion(true, {});
}
