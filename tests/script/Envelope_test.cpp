#include "script/Envelope.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "script/CurrentHost.h"
#include "script/NullHost.h"
#include "script/TracingHost.h"
#include "support/Outcome.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

using Steps = std::set<std::string>;

class RefusingHost : public NullHost {
 public:
  explicit RefusingHost(Steps refused) : refused_(std::move(refused)) {}

  bool scStartTransaction() override { return !refused_.contains("start"); }
  bool scCommitTransaction() override { return !refused_.contains("commit"); }
  bool scRollBackTransaction() override { return !refused_.contains("rollback"); }

 private:
  Steps refused_;
};

struct Path {
  const char* name;
  Steps refused;
  bool work;  // the answer of the work
  bool answer;
  std::string transcript;
};

const std::string report = "scErrorMessage(0, 2, 2, \"Add: NANSI\", ";

const std::vector<Path> paths = {
    {"work done", {}, true, true, Lines({"scStartTransaction()", "work", "scCommitTransaction()"})},
    {"work refused", {}, false, false, Lines({"scStartTransaction()", "work", "scRollBackTransaction()"})},
    {"start refused, which skips the work and still rolls back",
     {"start"},
     true,
     false,
     Lines({"scStartTransaction()", report + "62010)", "scRollBackTransaction()"})},
    {"commit refused, which changes no answer",
     {"commit"},
     true,
     true,
     Lines({"scStartTransaction()", "work", "scCommitTransaction()", report + "62011)"})},
    {"rollback refused",
     {"rollback"},
     false,
     false,
     Lines({"scStartTransaction()", "work", "scRollBackTransaction()", report + "62012)"})},
    {"start and rollback refused",
     {"start", "rollback"},
     true,
     false,
     Lines({"scStartTransaction()", report + "62010)", "scRollBackTransaction()", report + "62012)"})},
    {"everything refused but the work",
     {"start", "commit", "rollback"},
     true,
     false,
     Lines({"scStartTransaction()", report + "62010)", "scRollBackTransaction()", report + "62012)"})},
};

// Runs with a host that refuses these steps, and gives the transcript.
std::string Transcript(const Steps& refused, const std::function<void()>& run) {
  const auto host = std::make_shared<TracingHost>(std::make_shared<RefusingHost>(refused));
  SetCurrentHost(host);
  run();
  SetCurrentHost(nullptr);
  std::string transcript;
  for (const TracedCall& call : host->calls()) {
    transcript += (call.call.starts_with("scPrintToDebugWindow") ? "work" : call.call) + "\n";
  }
  return transcript;
}

using Work = std::function<bool()>;

// Each path in an envelope comes to its answer by its calls.
void ExpectPaths(const std::vector<Path>& all, const std::function<bool(const Reporter&, const Work&)>& envelope) {
  for (const auto& [name, refused, work, answer, transcript] : all) {
    SCOPED_TRACE(name);
    bool given = !answer;
    EXPECT_EQ(Transcript(refused,
                         [&, worked = work] {
                           given = envelope(Reporter("Add: NANSI"), [&] {
                             Debug("the work");
                             return worked;
                           });
                         }),
              transcript);
    EXPECT_EQ(given, answer);
  }
}

TEST(Envelope, FollowsEveryPathToItsEnd) { ExpectPaths(paths, InTransaction<Work>); }

const std::vector<Path> leftOpen = {
    {"work done", {}, true, true, Lines({"scStartTransaction()", "work", "scCommitTransaction()"})},
    {"work refused, which closes nothing", {}, false, false, Lines({"scStartTransaction()", "work"})},
    {"start refused, which skips the work and closes nothing",
     {"start"},
     true,
     false,
     Lines({"scStartTransaction()", report + "62010)"})},
    {"commit refused, which is rolled back and changes no answer",
     {"commit"},
     true,
     true,
     Lines({"scStartTransaction()", "work", "scCommitTransaction()", report + "62011)", "scRollBackTransaction()"})},
    {"commit and rollback refused",
     {"commit", "rollback"},
     true,
     true,
     Lines({"scStartTransaction()", "work", "scCommitTransaction()", report + "62011)", "scRollBackTransaction()",
            report + "62012)"})},
    {"work refused where neither commit nor rollback would be done",
     {"commit", "rollback"},
     false,
     false,
     Lines({"scStartTransaction()", "work"})},
    {"everything refused but the work",
     {"start", "commit", "rollback"},
     true,
     false,
     Lines({"scStartTransaction()", report + "62010)"})},
};

TEST(Envelope, ThatIsLeftOpenFollowsEveryPathToItsEnd) { ExpectPaths(leftOpen, InTransactionLeftOpen<Work>); }

struct Close {
  const char* name;
  Steps refused;
  std::string transcript;
};

const std::vector<Close> closes = {
    {"committed", {}, Lines({"scCommitTransaction()"})},
    {"a rollback that would be refused is not needed", {"rollback"}, Lines({"scCommitTransaction()"})},
    {"commit refused", {"commit"}, Lines({"scCommitTransaction()", report + "62011)", "scRollBackTransaction()"})},
    {"commit and rollback refused",
     {"commit", "rollback"},
     Lines({"scCommitTransaction()", report + "62011)", "scRollBackTransaction()", report + "62012)"})},
};

TEST(Envelope, CommitsOrRollsBack) {
  for (const auto& [name, refused, transcript] : closes) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Transcript(refused, [] { CommitOrRollBack(Reporter("Add: NANSI")); }), transcript);
  }
}

TEST(Envelope, LeavesTheTransactionOpenWhereTheWorkFailsTheCall) {
  const std::string transcript = Transcript({}, [] {
    EXPECT_EQ(Outcome([] { return InTransaction(Reporter("Add: NANSI"), [] { return List()[0].truth(); }); }),
              "SubscriptOutOfRange");
  });
  EXPECT_EQ(transcript, Lines({"scStartTransaction()"}));
}

TEST(Envelope, ThatIsLeftOpenStaysOpenWhereTheWorkFailsTheCall) {
  const std::string transcript = Transcript({}, [] {
    EXPECT_EQ(Outcome([] { return InTransactionLeftOpen(Reporter("Add: NANSI"), [] { return List()[0].truth(); }); }),
              "SubscriptOutOfRange");
  });
  EXPECT_EQ(transcript, Lines({"scStartTransaction()"}));
}

TEST(Envelope, ReportsUnderTheContextThatHoldsWhenItCloses) {
  Reporter fail("Add: ROCAI");
  EXPECT_EQ(Transcript({"commit"},
                       [&] {
                         InTransaction(fail, [&] {
                           fail = Reporter("Add: NANSI");
                           return true;
                         });
                       }),
            Lines({"scStartTransaction()", "scCommitTransaction()", report + "62011)"}));
}

}  // namespace
}  // namespace cordboard
