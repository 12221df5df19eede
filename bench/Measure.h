// Measuring time and memory.
#pragma once

#include <ctime>

namespace cordboard::bench {

// How often something is measured whose least time counts.
inline constexpr int repeats = 3;

// The seconds that the work takes of the processor: other programs on the machine do not count.
template <typename Work>
double Seconds(Work work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  };
  const double begin = now();
  work();
  return now() - begin;
}

}  // namespace cordboard::bench
