#pragma once

/// A place in a table: a row within a section, both from 0.
struct NSIndexPath {
  int section = 0;
  int row = 0;
  bool operator==(const NSIndexPath&) const = default;
};
