#include "workbench/system/Signals.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <ctime>

#include "workbench/database/Connection.h"

namespace cordboard::workbench {
namespace {

// Takes the signals that wait, so that none comes when they are not held back any more.
class Signals : public testing::Test {
 protected:
  ~Signals() override {
    while (const int signal = WaitingSignal()) {
      sigset_t one;
      sigemptyset(&one);
      sigaddset(&one, signal);
      sigwait(&one, &taken_);
    }
  }

 private:
  const SignalsHeldBack held_;
  int taken_ = 0;
};

TEST_F(Signals, ThatAreHeldBackWaitUntilTheyAreLookedFor) {
  EXPECT_EQ(WaitingSignal(), 0);
  EXPECT_NO_THROW(EndOnSignal());
  for (const int signal : {SIGHUP, SIGTERM, SIGINT}) {
    std::raise(signal);
    EXPECT_EQ(WaitingSignal(), signal);
  }
  try {
    EndOnSignal();
    FAIL();
  } catch (const Interrupted& interrupted) {
    EXPECT_EQ(interrupted.signal(), SIGINT);
  }
}

TEST_F(Signals, EndTheWaitingForInput) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(write(ends[1], "x", 1), 1);
  EXPECT_TRUE(WaitForInput(ends[0]));
  std::raise(SIGTERM);
  EXPECT_FALSE(WaitForInput(ends[0]));
  char read;
  ASSERT_EQ(::read(ends[0], &read, 1), 1);
  EXPECT_FALSE(WaitForInput(ends[0]));
  close(ends[0]);
  close(ends[1]);
}

TEST_F(Signals, EndALongStatement) {
  Connection database;
  std::raise(SIGINT);
  EXPECT_THROW(database.Run("WITH [n] AS (SELECT 1 AS [i] UNION ALL SELECT [i] + 1 FROM [n]) SELECT COUNT(*) FROM [n]"),
               Interrupted);
}

}  // namespace
}  // namespace cordboard::workbench
