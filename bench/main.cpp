// The benchmark's program. bench/README.md tells what it measures.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/Bounds.h"
#include "bench/Commands.h"
#include "bench/Comparison.h"
#include "bench/Folder.h"
#include "bench/Instructions.h"
#include "bench/Plans.h"
#include "bench/Start.h"
#include "bench/Upkeep.h"
#include "bench/Workload.h"

namespace cordboard::bench {

namespace {

constexpr int sizes[] = {10, 100, 1000};
constexpr int rounds = 7;

// The most memory that this program has had, in megabytes.
double PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == "VmHWM:" && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

// The workload on an exchange in a file, in a process of its own.
void Memory(const std::string& program, int series) {
  const Folder folder;
  const std::string command =
      "'" + program + "' memory " + std::to_string(series) + " '" + folder.File("exchange") + "'";
  std::fflush(stdout);
  if (std::system(command.c_str()) != 0) throw std::runtime_error("the workload failed in a process of its own");
}

void Work(int series, const std::string& file) {
  Workload workload(series, file);
  for (const Workload::Step& step : Workload::steps) workload.Do(step);
}

void WorkForMemory(int series, const std::string& file) {
  Work(series, file);
  const double most = 16 + 0.06 * series;
  std::printf("  %5d series %8.1f MB%s\n", series, PeakMemory(), Held("memory", PeakMemory(), most).c_str());
}

void CompareAll(const std::string& program) {
  std::printf("\nThe library with the workbench against its statements replayed straight into SQLite\n");
  for (const int series : sizes) Compare(series, rounds);
  MeasureInstructions(program);
}

// The program of which this is the benchmark stands beside it.
std::string Cordboard(const std::string& program) { return std::filesystem::path(program).parent_path() / "cordboard"; }

void All(const std::string& program) {
  // First, since a process is said to have had the memory of the one that started it.
  MeasureUpkeep(Cordboard(program));
  CompareAll(program);
  std::printf("\nLarge plans on a large exchange\n");
  MeasurePlans();
  MeasureStart(Cordboard(program));
  std::printf("\nEach action of each command, where there is little and much\n");
  MeasureCommands();
  std::printf("\nMost memory of the workload on an exchange in a file\n");
  for (const int series : sizes) Memory(program, series);
}

void Run(int count, char** words) {
  const std::string program = std::filesystem::canonical("/proc/self/exe");
  const std::string what = count > 1 ? words[1] : "all";
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  if (what == "all") return All(program);
  if (what == "lines") return CompareAll(program);
  if (what == "plans") return MeasurePlans();
  if (what == "commands") return MeasureCommands();
  if (what == "start") return MeasureStart(Cordboard(program));
  if (what == "upkeep") return MeasureUpkeep(Cordboard(program));
  // In processes of their own.
  if (what == "memory" && count == 4) return WorkForMemory(std::stoi(words[2]), words[3]);
  if (what == "workload" && count == 4) return Work(std::stoi(words[2]), words[3]);
  throw std::runtime_error("usage: cordboard-bench [all | lines | plans | start | upkeep | commands]");
}

}  // namespace

}  // namespace cordboard::bench

int main(int count, char** words) {
  try {
    cordboard::bench::Run(count, words);
    return cordboard::bench::ReportComplaints() ? 1 : 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "cordboard-bench: %s\n", error.what());
    return 1;
  }
}
