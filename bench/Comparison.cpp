#include "bench/Comparison.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/Bounds.h"
#include "bench/Measure.h"
#include "bench/Transcript.h"
#include "bench/Workload.h"

namespace cordboard::bench {

namespace {

// Of fewer series most is what is done once for all of them: that has no bound.
constexpr int leastHeld = 100;

// The statements of one workload, cut where a step begins. What makes the exchange stands before the first step.
struct Recorded {
  std::vector<Statement> statements;
  std::vector<std::size_t> begins;

  std::span<const Statement> Before() const { return std::span(statements).first(begins.front()); }
  std::span<const Statement> Of(std::size_t step) const {
    return std::span(statements).subspan(begins[step], begins[step + 1] - begins[step]);
  }
};

Recorded Record(int series) {
  Recorder recorder;
  Workload workload(series, [&recorder](auto workbench) { return recorder.InFrontOf(std::move(workbench)); });
  Recorded recorded;
  for (const Workload::Step& step : Workload::steps) {
    recorded.begins.push_back(recorder.statements().size());
    workload.Do(step);
  }
  recorded.begins.push_back(recorder.statements().size());
  recorded.statements = recorder.statements();
  return recorded;
}

struct Times {
  std::vector<double> library;
  std::vector<double> replay;
  std::vector<double> rules;  // of the replay, the statements of the rules
};

// A step without statements of the rules has nothing to compare with them.
void Line(const char* name, const Times& times, int actions, std::optional<double> bound) {
  // The least, since whatever else happens on the machine makes a round longer.
  const double library = std::ranges::min(times.library);
  const double replay = std::ranges::min(times.replay);
  const double rules = std::ranges::min(times.rules);
  std::printf("  %-34s %10.2f %10.2f %10.2f %8.2f", name, library * 1e3, replay * 1e3, rules * 1e3, library / replay);
  rules > 0 ? std::printf(" %9.2f", library / rules) : std::printf(" %9s", "");
  const std::string held = bound ? Held(name, library / replay, *bound) : "";
  std::printf(" %14.1f%s\n", library * 1e6 / actions, held.c_str());
}

}  // namespace

void Compare(int series, int rounds) {
  const Recorded recorded = Record(series);
  std::vector<Times> times(Workload::steps.size());
  for (int round = 0; round < rounds; ++round) {
    Workload workload(series);
    Replay replay;
    replay.Run(recorded.Before());
    for (std::size_t step = 0; step < times.size(); ++step) {
      Times& of = times[step];
      of.library.push_back(Seconds([&] { workload.Do(Workload::steps[step]); }));
      of.replay.push_back(Seconds([&] { of.rules.push_back(replay.Run(recorded.Of(step))); }));
    }
  }

  std::printf("\n%d series, %zu statements   %17s %10s %10s %8s %9s %14s\n", series,
              recorded.statements.size() - recorded.begins.front(), "library ms", "replay ms", "rules ms", "of all",
              "of rules", "us per action");
  for (std::size_t step = 0; step < times.size(); ++step) {
    const Workload::Step& of = Workload::steps[step];
    Line(of.name, times[step], Workload::ActionsOf(of, series),
         series < leastHeld ? std::nullopt : std::optional(of.bound));
  }
}

}  // namespace cordboard::bench
