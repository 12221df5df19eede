#include "bench/Upkeep.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "bench/Bounds.h"
#include "bench/Folder.h"
#include "bench/Plants.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/plans/Plan.h"

namespace cordboard::bench {

namespace {

constexpr int extensions = 50000;
constexpr int ofLine = 1000;

using Words = std::vector<std::string>;

struct Work {
  const char* title;
  Words words;
  double seconds;    // at most, of the processor
  double megabytes;  // at most
};

struct Cost {
  double seconds;
  double megabytes;
};

// Runs the program, whose output nobody reads.
Cost CostOf(const std::string& program, const Words& words) {
  std::vector<char*> arguments = {const_cast<char*>(program.c_str())};
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const int output : {STDOUT_FILENO, STDERR_FILENO})
    posix_spawn_file_actions_addopen(&actions, output, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int error = posix_spawn(&child, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  rusage usage{};
  if (error != 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status))
    throw std::runtime_error(program + " cannot be run");
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return {seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / 1024};
}

void Apply(workbench::Exchange& exchange, const std::string& plan) {
  workbench::Session session(exchange);
  std::istringstream in(plan);
  if (!workbench::ApplyPlan(session, {{"plan", in}}, {}).kept) throw std::runtime_error("a plan is refused");
}

void Make(const std::string& file) {
  const auto exchange = workbench::Exchange::Create(file, "R8", PlantWith("77", 32, extensions));
  std::string plan;
  for (int first = 10000; first < 10000 + extensions; first += ofLine)
    plan += "KSEXI:DIR=" + std::to_string(first) + "&&" + std::to_string(first + ofLine - 1) +
            ",ITYPE=9,EQU=next,TRAF=00,SERV=000000000,CDIV=000000000,ROC=010000;\n";
  Apply(*exchange, "NANSI:NUMTYP=EX,NUMSE=10000&&99999;\n");
  Apply(*exchange, plan);
}

}  // namespace

void MeasureUpkeep(const std::string& program) {
  const Folder folder;
  const std::string file = folder.File("one");
  const std::string other = folder.File("other");
  Make(file);
  std::filesystem::copy_file(file, other);
  Apply(*workbench::Exchange::OpenForWriting(other), "edit KSEXI DIR=10500:TRAF=11;\ndelete KSEXI DIR=20000;\n");
  const std::vector<Work> all = {{"export", {"export", file}, 10, 220},
                                 {"compare", {"compare", file, other}, 3, 220},
                                 {"compare --lines", {"compare", file, other, "--lines"}, 2, 220},
                                 {"compare --plan", {"compare", file, other, "--plan"}, 6, 220},
                                 {"check", {"check", file}, 5, 220},
                                 {"undo of 50,000 records", {"undo", file}, 4, 80}};
  std::printf("\n%-38s %9s %19s\n", "Upkeep, 50,000 extensions", "s", "MB");
  for (const Work& work : all) {
    const auto [seconds, megabytes] = CostOf(program, work.words);
    std::printf("  %-36s %9.2f%s %9.1f%s\n", work.title, seconds, Held(work.title, seconds, work.seconds).c_str(),
                megabytes, Held(std::string(work.title) + ", MB", megabytes, work.megabytes).c_str());
  }
}

}  // namespace cordboard::bench
