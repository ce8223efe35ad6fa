#pragma once

#include <optional>
#include <string>

#include <sys/types.h>

/// Where the paths that panes use lie on this machine: "/User/…" and "/Library/…" below one folder,
/// the device root, and what is not in its Library in the installed one. Host paths are absolute.
/// Immutable; any thread.
class DevicePaths {
 public:
  /// `root` need not exist; `library` is the folder that holds PreferenceBundles and the like.
  /// `bundle`, where it is not empty, is a bundle's folder: it alone stands for the device's bundle
  /// of that name.
  DevicePaths(const std::string& root, const std::string& library, const std::string& bundle = {});

  /// $XDG_DATA_HOME/quietdial, or .local/share/quietdial in the home folder.
  static std::string defaultRoot();

  /// The Library folder that goes with the running program: ../lib/quietdial/Library from its own,
  /// in a build tree as when installed.
  static std::string installedLibrary();

  const std::string& root() const { return root_; }

  /// Where to read: a file of the device root stands before the installed one of the same path.
  /// Nothing for a path that is not of the device, or that climbs with "..".
  std::optional<std::string> forReading(const std::string& devicePath) const;

  /// Where a user's program takes the module of a bundle from: the bundle that was given to the
  /// constructor, the installed one of that name, or else the device root's. Nothing for root, of
  /// whom that would be the device root's, and for what is no file of a bundle's own folder.
  std::optional<std::string> forModule(const std::string& devicePath, uid_t user) const;

  /// Where to write: below the device root always, so that what is installed stays as it is.
  std::optional<std::string> forWriting(const std::string& devicePath) const;

 private:
  std::optional<std::string> inGivenBundle(const std::string& devicePath) const;
  std::string installed(const std::string& devicePath) const;

  std::string root_;
  std::string library_;
  std::string bundle_;      // a real folder; empty for none
  std::string bundlePath_;  // the device's folder that it stands for
};
