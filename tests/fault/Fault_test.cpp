// Every action of every command, with every one of its calls of the host going wrong.
//
// Commands, parameters and values are had from the registry, the forms and the tables, so that a command that is added
// is driven without a change here. Scenarios come from a random source with a fixed seed: each is run once as it is; a
// road through the worker that was not taken before is run again once for each of its calls, with that call refused and
// with that call failing. Always has to hold:
//
//   nothing but a failure of the call leaves the library, and no transaction stays open after it;
//   a worker has one transaction open at most;
//   where it has one, nothing of the action is left behind by an action that answers False or fails;
//   an answer False has a message.
//
// What the rule of a command asks for against this stands at the end of its transcript.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <set>

#include "entry/Registry.h"
#include "fault/Course.h"
#include "support/CommandTranscripts.h"

namespace cordboard {
namespace {

constexpr std::uint32_t seed = 1;
constexpr int scenariosPerRelease = 12;
constexpr std::size_t roadsPerWorker = 12;

struct Counts {
  std::size_t commands = 0;
  std::size_t workers = 0;  // for an action, a list or a check
  std::size_t runs = 0;     // without a fault
  std::size_t roads = 0;
  std::size_t faults = 0;
};

// Prints what was tried, after all tests.
class Summary : public testing::Environment {
 public:
  Counts counts;

  void TearDown() override {
    std::printf("faults: %zu commands, %zu workers, %zu runs, %zu roads, %zu calls gone wrong\n", counts.commands,
                counts.workers, counts.runs, counts.roads, counts.faults);
  }
};
Summary* const summary = static_cast<Summary*>(testing::AddGlobalTestEnvironment(new Summary));

World& WorldOf(const std::string& release) {
  static std::map<std::string, World> worlds;
  return worlds.try_emplace(release, release).first->second;
}

bool IsListed(const std::vector<Irregularity>& list, const Deed& deed) {
  return std::ranges::any_of(list, [&deed](const Irregularity& entry) { return entry.action == deed.function; });
}

class Faults : public testing::TestWithParam<std::string> {
 protected:
  std::string command() const { return GetParam(); }

  // Whether the False of this course is a documented silence; it counts as met.
  bool IsSilence(const Deed& deed, const Course& course, const std::string& refused) {
    for (const Silence& silence : rules_.silences) {
      if (silence.action != deed.function) continue;
      if (silence.refused.empty() ? !refused.empty() : refused.find(silence.refused) == refused.npos) continue;
      metSilences_.insert(&silence);
      return true;
    }
    // What is not served is answered at once; a template command says first that it is one.
    return course.calls.size() == course.Count("SetTemplate");
  }

  // `clean` is the same without the call gone wrong, `refused` the call that was refused.
  void Check(const Deed& deed, const Course& course, const Course& clean, const std::string& refused) {
    EXPECT_FALSE(course.escaped) << *course.escaped;
    EXPECT_EQ(course.openAfter, course.openBefore) << "a transaction stays open, or one too many is closed";
    // A close that is refused leaves the transaction open, so that the next one stands in it.
    const bool notClosed = refused.starts_with("scCommit") || refused.starts_with("scRollBack");
    const int deepest = (IsListed(rules_.nests, deed) ? 2 : 1) + (notClosed ? 1 : 0);
    EXPECT_LE(course.Deepest(), deepest) << "transactions nest";
    const bool envelope = clean.CountTrue("scStartTransaction") > 0;
    const bool mayLeave = course.Succeeded() || !envelope || IsListed(rules_.leavesBehind, deed);
    EXPECT_TRUE(mayLeave || course.left.empty()) << "a part of an action that failed is left behind";
    const bool told = course.answer || course.failure || course.Count("scErrorMessage") > 0 || course.box;
    const std::string reason = refused.empty() ? course.LastRefused() : refused;
    if (!told && !IsSilence(deed, course, reason))
      unknownSilences_.insert(deed.function + " " + deed.parameter + ", where the host refused " +
                              WithoutValues(reason));
  }

  void TryEveryFault(World& world, const Scenario& scenario, const Deed& deed, const Course& clean) {
    for (std::size_t call = 1; call <= clean.calls.size() && !HasFailure(); ++call) {
      for (const Fault fault : {Fault::Fails, Fault::Refuses}) {
        const std::string& wrong = clean.calls[call - 1].call;
        if (fault == Fault::Refuses && !FindOperation(OperationOf(clean.calls[call - 1])).CanRefuse()) continue;
        ++summary->counts.faults;
        const Course course = Go(world, scenario, deed, call, fault);
        Check(deed, course, clean, fault == Fault::Refuses ? wrong : "");
        if (HasFailure()) {
          ADD_FAILURE() << "with call " << call << (fault == Fault::Refuses ? " refused" : " failing") << ", "
                        << Described(deed, scenario) << "\n"
                        << Told(course);
          return;
        }
      }
    }
  }

  void TryDeed(World& world, const Scenario& scenario, const Deed& deed) {
    const Course clean = Go(world, scenario, deed);
    ++summary->counts.runs;
    Check(deed, clean, clean, "");
    if (HasFailure()) ADD_FAILURE() << Described(deed, scenario) << "\n" << Told(clean);
    if (clean.calls.empty() && !clean.answer) return;
    ++outcomes_[deed.function][clean.failure ? 2 : clean.answer ? 0 : 1];
    std::set<std::string>& roads = roads_[{deed.function, deed.worker}];
    if (roads.size() >= roadsPerWorker) return;
    if (roads.insert(clean.Road()).second && !HasFailure()) TryEveryFault(world, scenario, deed, clean);
  }

  static std::string Told(const Course& course) { return course.Transcript() + course.left; }

  std::string Described(const Deed& deed, const Scenario& scenario) const {
    std::string text = command() + " " + deed.function + " " + deed.parameter + " on record " +
                       std::to_string(scenario.CmdId) + ", changed " + TraceText(scenario.changed) + ", form";
    for (const auto& [name, value] : scenario.values) text += " " + name + "=" + TraceText(value);
    return text;
  }

  // Every worker of lists or checks once, on any of the parameters that it serves.
  static void AddDeeds(const std::string& function, const std::vector<ParameterWorker>& workers, Random& random,
                       std::vector<Deed>& deeds) {
    std::vector<std::pair<Worker, std::vector<std::string>>> served;
    for (const auto& [names, worker] : workers) {
      auto found = std::ranges::find(served, worker, &std::pair<Worker, std::vector<std::string>>::first);
      if (found == served.end()) found = served.insert(found, {worker, {}});
      found->second.insert(found->second.end(), names.all().begin(), names.all().end());
    }
    for (const auto& [worker, names] : served) deeds.push_back({function, random.Of(names), worker});
    deeds.push_back({function, "NONE"});
  }

  std::vector<Deed> Deeds(Random& random) const {
    const Module& module = *FindModule(command());
    std::vector<Deed> deeds = {{.function = "SetInfo", .worker = module.SetInfo},
                               {.function = "EditInfo", .worker = module.EditInfo},
                               {.function = "DeleteInfo", .worker = module.DeleteInfo},
                               {.function = "GenerateCmd", .worker = module.GenerateCmd}};
    AddDeeds("GetValidValForParam", module.ValidValues, random, deeds);
    AddDeeds("StatCheck", module.StatCheck, random, deeds);
    return deeds;
  }

  void Drive(World& world, Random& random) {
    workbench::Transaction undone(world.exchange());
    const Scenario scenario = MakeScenario(world, command(), random);
    for (const Deed& deed : Deeds(random)) {
      TryDeed(world, scenario, deed);
      if (HasFailure()) return;
    }
  }

  const Transcript& rules_ = TranscriptOfCommand(command());  // the transcripts say what is otherwise by rule
  std::map<std::pair<std::string, Worker>, std::set<std::string>> roads_;  // by function and worker
  std::map<std::string, std::array<std::size_t, 3>> outcomes_;             // True, False and failed, by action
  std::set<const Silence*> metSilences_;
  std::set<std::string> unknownSilences_;
};

TEST_P(Faults, LeaveNothingUntold) {
  Random random(seed, command());
  for (int i = 0; i < scenariosPerRelease; ++i) {
    for (const std::string& release : workbench::Releases()) {
      Drive(WorldOf(release), random);
      if (HasFailure()) return;
    }
  }
  for (const std::string& release : workbench::Releases())
    EXPECT_TRUE(WorldOf(release).IsAsItWasMade()) << "what an action did has not been undone";
  for (const std::string& silence : unknownSilences_) ADD_FAILURE() << "answers False without a message in " << silence;
  for (const Silence& silence : rules_.silences) {
    if (!metSilences_.contains(&silence))
      std::printf("  %s %s: no scenario has met the silence of \"%s\"\n", command().c_str(), silence.action.c_str(),
                  silence.refused.c_str());
  }

  ++summary->counts.commands;
  for (const auto& [worker, roads] : roads_) summary->counts.workers += 1, summary->counts.roads += roads.size();
  for (const auto& [action, outcome] : outcomes_)
    std::printf("  %s %s: %zu runs True, %zu False, %zu failed\n", command().c_str(), action.c_str(), outcome[0],
                outcome[1], outcome[2]);
}

std::vector<std::string> AllCommands() {
  std::vector<std::string> commands;
  for (const Command& command : Registry()) commands.emplace_back(command.name);
  return commands;
}

// "keyextensions_KSEXI", so that the families can be tested side by side.
std::string NameOf(const testing::TestParamInfo<std::string>& tested) {
  const auto command = std::ranges::find(Registry(), tested.param, &Command::name);
  return std::string(command->family) + "_" + tested.param;
}

INSTANTIATE_TEST_SUITE_P(Of, Faults, testing::ValuesIn(AllCommands()), NameOf);

}  // namespace
}  // namespace cordboard
