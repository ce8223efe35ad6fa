#pragma once

#include <memory>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The makers and where they are found. Main thread.
class QDCreditsListController : public Subclass<QDCreditsListController, PSListController> {
 public:
  static const ClassOf<QDCreditsListController> classObject;

  /// Actions of rows. Where an address leads is not looked at.
  /// The maker's profile in the Twitter application, else on the web.
  void followOnTwitter();
  void donate();
  void visitTallowbyte();

  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
  /// The row "QDTallowbyte" is given the paths of its three pictures.
  const PSSpecifiers& specifiers() override;
  /// The separator of each section's first row runs the full width.
  std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                  NSIndexPath indexPath) override;
};
