#include "bench/Bounds.h"

#include <cstdio>
#include <vector>

namespace cordboard::bench {

namespace {

std::vector<std::string> complaints;

}  // namespace

std::string Held(const std::string& row, double value, double bound) {
  char text[64];
  std::snprintf(text, sizeof text, value <= bound ? " <= %-6.2f" : " >  %.2f !", bound);
  if (value > bound) {
    char told[64];
    std::snprintf(told, sizeof told, ": %.2f, and not more than %.2f is meant", value, bound);
    Complain("too much: " + row + told);
  }
  return text;
}

void Complain(const std::string& complaint) { complaints.push_back(complaint); }

bool ReportComplaints() {
  for (const std::string& each : complaints) std::fprintf(stderr, "%s\n", each.c_str());
  return !complaints.empty();
}

}  // namespace cordboard::bench
