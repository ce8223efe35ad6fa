#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "root/tweakCatalogue.h"

// The tweaks of a catalogue that were not seen, of which half were, beside what one would write at
// first (a search through the list for each tweak) and beside sorting the list first:
//   build/bench/catalogue_bench

namespace {

struct Lists {
  Tweaks available;
  PropertyListArray seen;
};

Lists lists(std::int64_t count) {
  Lists result;
  for (std::int64_t number = 0; number < count; ++number) {
    result.available.push_back("me.orlanvey.tweak" + std::to_string(number));
    if (number % 2 == 0) {
      result.seen.emplace_back(result.available.back());
    }
  }
  std::shuffle(result.seen.begin(), result.seen.end(), std::mt19937(1));
  return result;
}

void unseen(benchmark::State& state) {
  const auto [available, seen] = lists(state.range(0));
  const PropertyListValue value(seen);
  for (auto _ : state) {
    benchmark::DoNotOptimize(tweaksNotSeen(available, value));
  }
  state.SetComplexityN(state.range(0));
}

void searchForEach(benchmark::State& state) {
  const auto [available, seen] = lists(state.range(0));
  for (auto _ : state) {
    Tweaks left;
    for (const auto& tweak : available) {
      const bool known = std::ranges::any_of(seen, [&](const PropertyListValue& element) {
        const auto* text = element.get<std::string>();
        return text && *text == tweak;
      });
      if (!known) {
        left.push_back(tweak);
      }
    }
    benchmark::DoNotOptimize(left);
  }
  state.SetComplexityN(state.range(0));
}

void sortFirst(benchmark::State& state) {
  const auto [available, seen] = lists(state.range(0));
  for (auto _ : state) {
    std::vector<std::string_view> known;
    for (const auto& element : seen) {
      known.emplace_back(*element.get<std::string>());
    }
    std::ranges::sort(known);
    Tweaks left;
    std::ranges::copy_if(available, std::back_inserter(left), [&](const std::string& tweak) {
      return !std::ranges::binary_search(known, tweak);
    });
    benchmark::DoNotOptimize(left);
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(unseen)
    ->RangeMultiplier(10)
    ->Range(1000, 100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(sortFirst)
    ->RangeMultiplier(10)
    ->Range(1000, 100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(searchForEach)
    ->RangeMultiplier(10)
    ->Range(1000, 100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace

BENCHMARK_MAIN();
