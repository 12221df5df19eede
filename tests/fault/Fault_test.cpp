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
constexpr std::size_t roadsPerAction = 12;
constexpr std::size_t roadsPerParameter = 4;

struct Counts {
  std::size_t commands = 0;
  std::size_t actions = 0;  // served, a list and a check counting once for each parameter
  std::size_t runs = 0;     // without a fault
  std::size_t roads = 0;
  std::size_t faults = 0;
};

// Prints what was tried, after all tests.
class Summary : public testing::Environment {
 public:
  Counts counts;

  void TearDown() override {
    std::printf("faults: %zu commands, %zu actions and parameters, %zu runs, %zu roads, %zu calls gone wrong\n",
                counts.commands, counts.actions, counts.runs, counts.roads, counts.faults);
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
  const Transcript& rules() const { return TranscriptOfCommand(command()); }

  // Whether the False of this course is a documented silence; it counts as met.
  bool IsSilence(const Deed& deed, const Course& course, const std::string& refused) {
    for (const Silence& silence : rules().silences) {
      if (silence.action != deed.function) continue;
      if (silence.refused.empty() ? !refused.empty() : refused.find(silence.refused) == refused.npos) continue;
      metSilences_.insert(&silence);
      return true;
    }
    // What is not served is answered at once.
    return course.calls.empty();
  }

  // `clean` is the same without the call gone wrong, `refused` the call that was refused.
  void Check(const Deed& deed, const Course& course, const Course& clean, const std::string& refused) {
    EXPECT_FALSE(course.escaped) << *course.escaped;
    EXPECT_EQ(course.openAfter, course.openBefore) << "a transaction stays open, or one too many is closed";
    // A close that is refused leaves the transaction open, so that the next one stands in it.
    const bool notClosed = refused.starts_with("scCommit") || refused.starts_with("scRollBack");
    const int deepest = (IsListed(rules().nests, deed) ? 2 : 1) + (notClosed ? 1 : 0);
    EXPECT_LE(course.Deepest(), deepest) << "transactions nest";
    const bool envelope = clean.CountTrue("scStartTransaction") > 0;
    const bool mayLeave = course.Succeeded() || !envelope || IsListed(rules().leavesBehind, deed);
    EXPECT_TRUE(mayLeave || course.difference.empty()) << "a part of an action that failed is left behind";
    const bool told = course.answer || course.failure || course.Count("scErrorMessage") > 0 || course.box;
    const std::string reason = refused.empty() ? course.LastRefused() : refused;
    if (!told && !IsSilence(deed, course, reason))
      unknownSilences_.insert(deed.function + " " + deed.parameter + ", where the host refused " +
                              WithoutValues(reason));
  }

  void TryEveryFault(World& world, const std::string& before, const Scenario& scenario, const Deed& deed,
                     const Course& clean) {
    for (std::size_t call = 1; call <= clean.calls.size() && !HasFailure(); ++call) {
      for (const Fault fault : {Fault::Fails, Fault::Refuses}) {
        const std::string& wrong = clean.calls[call - 1].call;
        if (fault == Fault::Refuses && !FindOperation(OperationOf(clean.calls[call - 1])).CanRefuse()) continue;
        ++summary->counts.faults;
        const Course course = Go(world, before, scenario, deed, call, fault);
        Check(deed, course, clean, fault == Fault::Refuses ? wrong : "");
        if (HasFailure()) {
          ADD_FAILURE() << "with call " << call << (fault == Fault::Refuses ? " refused" : " failing") << ", "
                        << Described(deed, scenario) << "\n"
                        << course.Transcript();
          return;
        }
      }
    }
  }

  void TryDeed(World& world, const std::string& before, const Scenario& scenario, const Deed& deed) {
    const Course clean = Go(world, before, scenario, deed);
    ++summary->counts.runs;
    Check(deed, clean, clean, "");
    if (HasFailure()) ADD_FAILURE() << Described(deed, scenario) << "\n" << clean.Transcript();
    for (const TracedCall& call : clean.calls) LearnParameter(call);
    if (clean.calls.empty() && !clean.answer) return;
    ++outcomes_[deed.function][clean.failure ? 2 : clean.answer ? 0 : 1];
    std::set<std::string>& roads = roads_[deed.function + " " + deed.parameter];
    if (roads.size() >= (deed.parameter.empty() ? roadsPerAction : roadsPerParameter)) return;
    if (roads.insert(clean.Road()).second && !HasFailure()) TryEveryFault(world, before, scenario, deed, clean);
  }

  // A command without a form makes its own known by what it asks for.
  void LearnParameter(const TracedCall& call) {
    for (const char* operation :
         {"scGetParamValue", "scSetParamValue", "scResetParam", "scGetValueArray", "scGetValidValues"}) {
      if (OperationOf(call) != operation) continue;
      const std::size_t from = call.call.find('"') + 1;
      asked_.insert(call.call.substr(from, call.call.find('"', from) - from));
    }
  }

  std::string Described(const Deed& deed, const Scenario& scenario) const {
    std::string text = command() + " " + deed.function + " " + deed.parameter + " on record " +
                       std::to_string(scenario.CmdId) + ", changed " + TraceText(scenario.changed) + ", form";
    for (const auto& [name, value] : scenario.values) text += " " + name + "=" + TraceText(value);
    return text;
  }

  std::vector<Deed> Deeds() const {
    std::vector<Deed> deeds = {{"SetInfo", ""}, {"EditInfo", ""}, {"DeleteInfo", ""}, {"GenerateCmd", ""}};
    for (const workbench::ParameterDefinition& parameter : FormOf(command()).parameters) {
      deeds.push_back({"GetValidValForParam", parameter.name});
      deeds.push_back({"StatCheck", parameter.name});
    }
    return deeds;
  }

  void Drive(World& world, Random& random) {
    workbench::Transaction undone(world.exchange());
    const Scenario scenario = MakeScenario(world, command(), random);
    const std::string before = world.Dump();
    for (const Deed& deed : Deeds()) {
      TryDeed(world, before, scenario, deed);
      if (HasFailure()) return;
    }
  }

  std::map<std::string, std::set<std::string>> roads_;          // by action and parameter
  std::map<std::string, std::array<std::size_t, 3>> outcomes_;  // True, False and failed, by action
  std::set<std::string> asked_;
  std::set<const Silence*> metSilences_;
  std::set<std::string> unknownSilences_;
};

TEST_P(Faults, LeaveNothingUntold) {
  Random random(seed, command());
  for (int i = 0; i < scenariosPerRelease; ++i) {
    for (const std::string& release : workbench::Releases()) {
      Drive(WorldOf(release), random);
      if (HasFailure()) return;
      for (const std::string& parameter : asked_) AddToForm(command(), parameter);
    }
  }
  for (const std::string& silence : unknownSilences_) ADD_FAILURE() << "answers False without a message in " << silence;
  for (const Silence& silence : rules().silences) {
    if (!metSilences_.contains(&silence))
      std::printf("  %s %s: no scenario has met the silence of \"%s\"\n", command().c_str(), silence.action.c_str(),
                  silence.refused.c_str());
  }

  ++summary->counts.commands;
  for (const auto& [deed, roads] : roads_) summary->counts.actions += 1, summary->counts.roads += roads.size();
  for (const auto& [action, outcome] : outcomes_)
    std::printf("  %s %s: %zu runs True, %zu False, %zu failed\n", command().c_str(), action.c_str(), outcome[0],
                outcome[1], outcome[2]);
}

std::vector<std::string> AllCommands() {
  std::vector<std::string> commands;
  for (const Command& command : Registry()) commands.emplace_back(command.name);
  return commands;
}

INSTANTIATE_TEST_SUITE_P(Of, Faults, testing::ValuesIn(AllCommands()),
                         [](const testing::TestParamInfo<std::string>& command) { return command.param; });

}  // namespace
}  // namespace cordboard
