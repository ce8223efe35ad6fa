#include "settings/bundles/BundleOptions.h"

#include <QDir>
#include <QFileInfo>

#include "settings/start/arguments.h"

namespace {

std::string absolute(const std::string& path) {
  return QFileInfo(QString::fromStdString(path)).absoluteFilePath().toStdString();
}

std::string checkBundle(std::string& path) {
  path = path.empty() ? path : QDir::cleanPath(QString::fromStdString(path)).toStdString();
  const QFileInfo bundle(QString::fromStdString(path));
  return bundle.isDir() && bundle.suffix() == QStringLiteral("bundle")
             ? ""
             : path + " is no folder whose name ends in \".bundle\"";
}

}  // namespace

void BundleOptions::addTo(CLI::App& app) {
  app.add_option("--bundle", folder, "Use this bundle folder instead of the installed ones")
      ->type_name("DIR")
      ->take_last()
      ->transform(CLI::Validator(checkBundle, "", "bundle"));
  app.add_option_function<std::string>(
         "--entry-badge", [this](const std::string& text) { badge = text; },
         "The badge of the bundle's row on the first page")
      ->type_name("TEXT")
      ->take_last();
}

std::shared_ptr<const DevicePaths> BundleOptions::pathsBelow(const std::string& root) const {
  return std::make_shared<const DevicePaths>(absolute(root), DevicePaths::installedLibrary(),
                                             folder.empty() ? std::string() : absolute(folder));
}
