#include "script/CommandLine.h"

#include <gtest/gtest.h>

namespace cordboard {
namespace {

TEST(CommandLine, IsThatOfTheProcessByDefault) {
#ifdef __linux__
  const std::string program = testing::internal::GetArgvs().front();
  EXPECT_EQ(CommandLine().substr(0, program.size()), program);
  EXPECT_EQ(CommandLine().find('\0'), std::string::npos);
#else
  EXPECT_NO_THROW(CommandLine());
#endif
}

TEST(CommandLine, ComesFromAHookUntilTheDefaultIsRestored) {
  const std::string own = CommandLine();
  EXPECT_FALSE(SetCommandLine([] { return std::string("host -first"); }));
  EXPECT_EQ(CommandLine(), "host -first");
  const CommandLineHook before = SetCommandLine([] { return std::string("host -second"); });
  EXPECT_EQ(before(), "host -first");
  EXPECT_EQ(CommandLine(), "host -second");
  EXPECT_TRUE(SetCommandLine(nullptr));
  EXPECT_EQ(CommandLine(), own);
}

}  // namespace
}  // namespace cordboard
