#pragma once

#include <optional>
#include <string>
#include <vector>

/// A program as the desktop knows it, from its desktop entry (freedesktop.org, version 1.5).
struct DesktopEntry {
  std::string id;    ///< "org.example.dialer.desktop".
  std::string name;  ///< As people call it, untranslated.
  std::string exec;
  bool isActivatable = false;  ///< By D-Bus, under its identifier.
  std::vector<std::string> mimeTypes;
  std::vector<std::string> categories;

  bool opens(std::string_view mimeType) const;
  bool isBrowser() const;

  /// Its command for one address; empty where `Exec` is no command.
  std::vector<std::string> commandFor(const std::string& address) const;

  /// The first one of that identifier in $XDG_DATA_HOME and $XDG_DATA_DIRS; nothing where there is
  /// none, or where that one says that it is hidden.
  static std::optional<DesktopEntry> find(const std::string& id);
};
