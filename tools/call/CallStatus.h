#pragma once

/// The exit status of `quietdial call`; 2 stands for arguments that are not understood, and for
/// nobody to ask.
enum CallStatus {
  kDone = 0,
  kRefused = 3,
  kWithoutLine = 4,
  kLineFailed = 5,
  kNotKnown = 6,
};
