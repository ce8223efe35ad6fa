#pragma once

/// Says how many refreshes of a screen have passed each time that it is asked, at whatever rate
/// that is. Refreshes lie on a grid, so that being asked late now and then costs none.
class RefreshPacer {
 public:
  /// Longest time without a question, in seconds, after which all that has passed is still made up
  /// for. After a longer one the program was not running, and the grid starts anew.
  static constexpr double kLongestGap = 1;

  /// The grid starts at `now`, with refreshes `interval` seconds apart.
  void start(double now, double interval);

  double interval() const { return interval_; }

  /// Refreshes since the last question.
  int take(double now);

  /// When the next one is due.
  double nextDue() const;

 private:
  double origin_ = 0;
  double interval_ = 0;
  double taken_ = 0;
};
