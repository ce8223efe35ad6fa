#pragma once

/// Something on this machine that tells when memory runs short. One thread at a time.
class LowMemorySource {
 public:
  /// What to wait for; the values as poll(2) has them.
  struct Wanted {
    int descriptor = -1;
    short events = 0;
    int timeout = -1;  ///< In milliseconds; -1 for ever.
  };
  enum class News {
    kNone,
    kLowMemory,
    kGone,  ///< The source has nothing to tell any more and is to be dropped.
  };

  LowMemorySource() = default;
  LowMemorySource(const LowMemorySource&) = delete;
  LowMemorySource& operator=(const LowMemorySource&) = delete;
  LowMemorySource(LowMemorySource&&) = delete;
  LowMemorySource& operator=(LowMemorySource&&) = delete;
  virtual ~LowMemorySource() = default;

  virtual Wanted wanted() const = 0;
  /// To be called when the wait is over, with what poll(2) has found (0 for nothing). Never waits.
  virtual News process(short found) = 0;
};
