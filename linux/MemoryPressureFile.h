#pragma once

#include <memory>
#include <string>

#include "linux/FileDescriptor.h"
#include "linux/LowMemorySource.h"

/// The kernel's own measure (Documentation/accounting/psi.rst): tells when, of two seconds, some
/// program has waited for memory for more than 0.3.
class MemoryPressureFile final : public LowMemorySource {
 public:
  static constexpr const char* kPath = "/proc/pressure/memory";
  /// A window of a multiple of two seconds is what any user may ask for.
  static constexpr const char* kTrigger = "some 300000 2000000";

  /// Null where the kernel has no such file, or this user may not ask.
  static std::unique_ptr<LowMemorySource> open(const std::string& path = kPath);

  /// A descriptor on which the kernel reports the trigger as urgent data.
  explicit MemoryPressureFile(FileDescriptor file);

  Wanted wanted() const override;
  News process(short found) override;

 private:
  FileDescriptor file_;
};
