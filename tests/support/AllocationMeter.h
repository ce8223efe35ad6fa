#pragma once

#include <cstddef>

/// Counts what the program takes through operator new. A test program that wants it links
/// AllocationMeter.cc, which replaces the global operators.
namespace allocationmeter {

/// Starts a new measurement: what is taken now counts as nothing.
void reset();

/// The most bytes taken at once since the last reset.
std::size_t peak();

/// While it lives, on every thread, there is no memory for more than so many bytes at once.
class Limit {
 public:
  explicit Limit(std::size_t bytes);
  Limit(const Limit&) = delete;
  Limit& operator=(const Limit&) = delete;
  Limit(Limit&&) = delete;
  Limit& operator=(Limit&&) = delete;
  ~Limit();
};

/// All bytes taken since the last reset, those that were given back since included.
std::size_t total();

}  // namespace allocationmeter
