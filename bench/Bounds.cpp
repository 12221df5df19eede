#include "bench/Bounds.h"

#include <cstdio>
#include <vector>

namespace cordboard::bench {

namespace {

std::vector<std::string> passed;

}  // namespace

std::string Held(const std::string& row, double value, double bound) {
  char text[64];
  std::snprintf(text, sizeof text, value <= bound ? " <= %-6.2f" : " >  %.2f !", bound);
  if (value > bound) {
    char told[64];
    std::snprintf(told, sizeof told, ": %.2f, and not more than %.2f is meant", value, bound);
    passed.push_back(row + told);
  }
  return text;
}

bool ReportPassedBounds() {
  for (const std::string& each : passed) std::fprintf(stderr, "too much: %s\n", each.c_str());
  return !passed.empty();
}

}  // namespace cordboard::bench
