#include "bench/Comparison.h"

#include <cstdio>
#include <vector>

#include "bench/Measure.h"
#include "bench/Transcript.h"
#include "bench/Workload.h"

namespace cordboard::bench {

namespace {

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
  const Recorder recorder;
  Workload workload(series);
  Recorded recorded;
  for (std::size_t step = 0; step < steps.size(); ++step) {
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
};

void Line(const char* name, const Times& times, int actions) {
  const double library = Median(times.library);
  const double replay = Median(times.replay);
  std::printf("  %-34s %10.2f %10.2f %8.2f", name, library * 1e3, replay * 1e3, library / replay);
  if (actions > 0) std::printf(" %14.1f", library * 1e6 / actions);
  std::printf("\n");
}

}  // namespace

void Compare(int series, int rounds) {
  const Recorded recorded = Record(series);
  std::vector<Times> times(steps.size());
  Times all;
  for (int round = 0; round < rounds; ++round) {
    Workload workload(series);
    Replay replay;
    replay.Run(recorded.Before());
    double library = 0;
    double raw = 0;
    for (std::size_t step = 0; step < steps.size(); ++step) {
      times[step].library.push_back(Seconds([&] { workload.Do(step); }));
      times[step].replay.push_back(Seconds([&] { replay.Run(recorded.Of(step)); }));
      library += times[step].library.back();
      raw += times[step].replay.back();
    }
    all.library.push_back(library);
    all.replay.push_back(raw);
  }

  std::printf("\n%d series, %zu statements   %17s %10s %8s %14s\n", series,
              recorded.statements.size() - recorded.begins.front(), "library ms", "replay ms", "ratio",
              "us per action");
  for (std::size_t step = 0; step < steps.size(); ++step)
    Line(steps[step].name, times[step], steps[step].actions == 0 ? series : steps[step].actions);
  Line("all", all, 0);
}

}  // namespace cordboard::bench
