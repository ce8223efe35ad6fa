#pragma once

#include "platform/services.h"

/// Opens addresses with the desktop's handlers, by the xdg-mime and xdg-open programs. Addresses
/// are arguments of these, never part of a shell command. Without the programs nothing can be
/// opened.
class DesktopAddressOpener final : public AddressOpener {
 public:
  /// Whether the desktop names a handler for the address's scheme. Takes as long as xdg-mime does,
  /// a few seconds at most.
  bool canOpen(const std::string& url) override;

  /// Starts the handler and returns; it outlives this program.
  void open(const std::string& url) override;
};
