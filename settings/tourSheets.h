#pragma once

#include <array>
#include <string_view>

/// What a tour shows above a page, and how it gets there.
struct TourSheet {
  std::string_view pane;    // class name of the page
  std::string_view action;  // selector that brings the sheet up
  const char* name;         // of the picture
  const char* title;
  bool hasMail = true;
  bool readsAttachment = false;
};

inline constexpr std::array kTourSheets{
    TourSheet{"QDPreferencesListController", "showLove", "share", "Share"},
    TourSheet{"QDSupportListController", "sendSupportEmail", "mail", "Support mail"},
    TourSheet{"QDSupportListController", "sendSupportEmail", "attachment",
              "What goes with the mail", true, true},
    TourSheet{"QDSupportListController", "sendSupportEmail", "alert", "No mail account", false},
};
