#pragma once

#include <memory>
#include <string>

#include "platform/social/SLComposeViewController.h"
#include "platform/uikit/UIAlertView.h"
#include "settings/sheets/Sheets.h"
#include "tests/unit/window/SheetListener.h"
#include "tests/unit/window/WindowTest.h"

/// A test over what stands above the pages.
class SheetsFixture : public WindowTest {
 protected:
  SheetsFixture() {
    auto all = ::services();
    all.sheets = shown;
    installServices(all);
    inner->pushViewControllerAnimated(listener, false);
  }

  std::shared_ptr<MFMailComposeViewController> presentMail() {
    auto composer = allocInit<MFMailComposeViewController>();
    composer->setMailComposeDelegate(listener);
    composer->setToRecipients({"support@tallowbyte.example"});
    composer->setSubject("QuietDial");
    composer->setMessageBodyIsHTML("Hello", false);
    listener->presentViewControllerAnimatedCompletion(composer, true, {});
    return composer;
  }
  std::shared_ptr<SLComposeViewController> presentCompose(
      std::string_view service = SLServiceTypeTwitter) {
    auto composer = SLComposeViewController::composeViewControllerForServiceType(service);
    composer->setInitialText("I like it");
    listener->presentViewControllerAnimatedCompletion(composer, true, {});
    return composer;
  }
  static std::shared_ptr<UIAlertView> showAlert(std::string title) {
    auto alert = alloc<UIAlertView>();
    alert->initWithTitleMessageCancelButtonTitle(std::move(title), "Message", "OK");
    alert->show();
    return alert;
  }

  std::shared_ptr<Sheets> shown = std::make_shared<Sheets>();
  std::shared_ptr<SheetListener> listener = allocInit<SheetListener>();
};
