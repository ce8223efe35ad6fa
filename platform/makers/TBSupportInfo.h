#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// What a support mail tells: the subject from the package, the attachment from the package's
/// settings and the kind of device. Nothing else of the user goes in. Main thread.
class PLATFORM_API TBSupportInfo : public Subclass<TBSupportInfo, NSObject> {
 public:
  static const ClassOf<TBSupportInfo> classObject;

  /// `path` is the bundle folder of the package; its name and version come from the Info.plist in
  /// it, and with `TBSupportPreferenceKeys` a list of the keys of its settings. A package without
  /// one is known by its identifier alone.
  bool initWithPackageFilePath(const std::string& path);

  /// "NAME VERSION (IDENTIFIER)".
  std::string mailSubjectForPackageIdentifier(std::string_view identifier) const;

  /// A property list with the dictionaries `Package`, `Device` and `Settings`; the last only where
  /// the file at `path` can be read, and with the package's own keys alone: others may keep theirs
  /// in that file, too. XML, or binary where XML cannot carry the settings. Settings
  /// that are too large for a file beside the rest are left out.
  PropertyListData supportAttachmentDataForPreferencePath(const std::string& path) const;

 private:
  std::string identifier_;
  std::string name_;
  std::string version_;
  std::set<std::string> preferenceKeys_;
};
