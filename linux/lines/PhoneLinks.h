#pragma once

#include <optional>
#include <string>

/// Who opens telephone links, and how the dialler becomes the one: by the user's own mimeapps.list
/// (freedesktop.org, Association between MIME types and applications), of which everything else
/// stays as it is. Who it was is kept in $XDG_CONFIG_HOME/quietdial/phone-links and is given the
/// links back. Waits for the disk and for xdg-mime; one thread at a time.
class PhoneLinks {
 public:
  /// The dialler's desktop entry.
  static constexpr const char* kOwnEntry = "me.orlanvey.QuietDial.Dialler.desktop";

  /// `program` is the dialler's own path: where no desktop entry of it is installed, one is made
  /// for the user when it takes the links; a path with other signs than letters, digits and `/._-+`
  /// cannot stand there. Empty for none.
  explicit PhoneLinks(std::string program = {});

  /// The identifier of the entry that the desktop opens the links with; empty for none.
  std::string handler() const;
  bool areOurs() const { return handler() == kOwnEntry; }

  /// Whom the user would have the links opened with if the dialler did not; empty where nobody is
  /// known.
  std::string handlerBesidesOurs() const;

  /// As people call the entry.
  static std::string nameOf(const std::string& entry);

  /// Makes the dialler the one. False where that could not be written, or is not in force after it.
  bool take() const;

  /// Gives the links back to whom they were taken from; where another program has taken them
  /// meanwhile they stay there.
  bool giveBack() const;

 private:
  struct Memory {
    std::optional<std::string> list;  // what the user's own file said
    std::string handler;              // who it was in the end
    bool hasMadeEntry = false;        // the dialler's own, which goes with it
  };

  std::string memoryFile() const;
  std::string entryFile() const;
  std::optional<std::string> readList() const;
  bool writeList(const std::string& text) const;
  std::optional<Memory> remembered() const;
  bool remember(const Memory& memory) const;
  bool installEntry() const;

  std::string program_;
  std::string config_;  // the folder; empty where there is none
  std::string data_;
};
