#pragma once

#include <optional>

#include "platform/foundation/Subclass.h"
#include "platform/messageui/MFMailComposeViewController.h"
#include "platform/preferences/PSListController.h"

/// The pane from which the user writes to the maker. Main thread.
class QDSupportListController : public Subclass<QDSupportListController, PSListController>,
                                public MFMailComposeViewControllerDelegate {
 public:
  static const ClassOf<QDSupportListController> classObject;

  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
  const PSSpecifiers& specifiers() override;

  /// Action of a row: a mail with the settings and the kind of device attached, or, where no mail
  /// account is set up, an alert that says so.
  void sendSupportEmail();

  /// Takes the composer away, whatever came of the mail.
  void mailComposeControllerDidFinishWithResultError(
      MFMailComposeViewController& composer, MFMailComposeResult result,
      std::optional<MFMailComposeErrorCode> error) override;
};
