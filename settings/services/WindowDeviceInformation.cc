#include "settings/services/WindowDeviceInformation.h"

#include <QGuiApplication>
#include <QScreen>

#include "tools/version.h"

PropertyListDictionary WindowDeviceInformation::deviceInformation() {
  auto information = system_.deviceInformation();
  if (const auto* screen = QGuiApplication::primaryScreen()) {
    information.insert_or_assign(
        "Screen", PropertyListDictionary{{"Width", screen->size().width()},
                                         {"Height", screen->size().height()},
                                         {"PixelsPerPoint", screen->devicePixelRatio()}});
  }
  information.insert_or_assign("Programs",
                               PropertyListDictionary{{"Settings", kVersion}, {"Qt", qVersion()}});
  return information;
}
