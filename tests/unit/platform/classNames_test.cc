#include <gtest/gtest.h>

#include "platform/foundation/NSData.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/NSNull.h"
#include "platform/foundation/NSNumber.h"
#include "platform/foundation/NSProxy.h"
#include "platform/makers/TBPSColoredTableCell.h"
#include "platform/makers/TBPSCreditsHeaderTableCell.h"
#include "platform/makers/TBPSEmptyHeaderView.h"
#include "platform/makers/TBPSSpinnerTableCell.h"
#include "platform/makers/TBPSSubtitleTableCell.h"
#include "platform/makers/TBPSWebViewTableCell.h"
#include "platform/makers/TBSupportInfo.h"
#include "platform/messageui/MFMailComposeViewController.h"
#include "platform/preferences/MissingPaneController.h"
#include "platform/preferences/PSEditableTableCell.h"
#include "platform/preferences/PSListController.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/quartzcore/CADisplayLink.h"
#include "platform/social/SLComposeViewController.h"
#include "platform/uikit/UIActivityIndicatorView.h"
#include "platform/uikit/UIAlertView.h"
#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UINavigationItem.h"
#include "platform/uikit/UIScrollView.h"
#include "platform/uikit/UISegmentedControl.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "platform/uikit/UITapGestureRecognizer.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/UIViewController.h"
#include "platform/uikit/UIWebView.h"
#include "platform/uikit/UIWindow.h"

// Descriptions of views and scripts tell a class by its name.
#define EXPECT_NAMED_AS_WRITTEN(Class) EXPECT_EQ(Class::classObject.name, #Class)

TEST(ClassNames, EachClassOfTheFrameworksBearsItsOwn) {
  EXPECT_NAMED_AS_WRITTEN(NSObject);
  EXPECT_NAMED_AS_WRITTEN(NSData);
  EXPECT_NAMED_AS_WRITTEN(NSNotification);
  EXPECT_NAMED_AS_WRITTEN(NSNull);
  EXPECT_NAMED_AS_WRITTEN(NSNumber);
  EXPECT_NAMED_AS_WRITTEN(NSProxy);
  EXPECT_NAMED_AS_WRITTEN(TBPSColoredTableCell);
  EXPECT_NAMED_AS_WRITTEN(TBPSCreditsHeaderTableCell);
  EXPECT_NAMED_AS_WRITTEN(TBPSEmptyHeaderView);
  EXPECT_NAMED_AS_WRITTEN(TBPSSpinnerTableCell);
  EXPECT_NAMED_AS_WRITTEN(TBPSSubtitleTableCell);
  EXPECT_NAMED_AS_WRITTEN(TBPSWebViewTableCell);
  EXPECT_NAMED_AS_WRITTEN(TBSupportInfo);
  EXPECT_NAMED_AS_WRITTEN(MFMailComposeViewController);
  EXPECT_NAMED_AS_WRITTEN(MissingPaneController);
  EXPECT_NAMED_AS_WRITTEN(PSEditableTableCell);
  EXPECT_NAMED_AS_WRITTEN(PSListController);
  EXPECT_NAMED_AS_WRITTEN(PSSpecifier);
  EXPECT_NAMED_AS_WRITTEN(PSTableCell);
  EXPECT_NAMED_AS_WRITTEN(PSTextFieldSpecifier);
  EXPECT_NAMED_AS_WRITTEN(CADisplayLink);
  EXPECT_NAMED_AS_WRITTEN(SLComposeViewController);
  EXPECT_NAMED_AS_WRITTEN(UIActivityIndicatorView);
  EXPECT_NAMED_AS_WRITTEN(UIAlertView);
  EXPECT_NAMED_AS_WRITTEN(UIBarButtonItem);
  EXPECT_NAMED_AS_WRITTEN(UIButton);
  EXPECT_NAMED_AS_WRITTEN(UIControl);
  EXPECT_NAMED_AS_WRITTEN(UIImage);
  EXPECT_NAMED_AS_WRITTEN(UIImageView);
  EXPECT_NAMED_AS_WRITTEN(UILabel);
  EXPECT_NAMED_AS_WRITTEN(UINavigationController);
  EXPECT_NAMED_AS_WRITTEN(UINavigationItem);
  EXPECT_NAMED_AS_WRITTEN(UIScrollView);
  EXPECT_NAMED_AS_WRITTEN(UISegmentedControl);
  EXPECT_NAMED_AS_WRITTEN(UITableView);
  EXPECT_NAMED_AS_WRITTEN(UITableViewCell);
  EXPECT_NAMED_AS_WRITTEN(UITableViewHeaderFooterView);
  EXPECT_NAMED_AS_WRITTEN(UITapGestureRecognizer);
  EXPECT_NAMED_AS_WRITTEN(UITextField);
  EXPECT_NAMED_AS_WRITTEN(UIView);
  EXPECT_NAMED_AS_WRITTEN(UIViewController);
  EXPECT_NAMED_AS_WRITTEN(UIWebView);
  EXPECT_NAMED_AS_WRITTEN(UIWindow);
}
