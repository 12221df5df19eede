#include "entry/Registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "support/SourceFolder.h"

namespace cordboard {
namespace {

TEST(Registry, ThereAre87CommandsOfDifferentNames) {
  EXPECT_EQ(CommandNames().size(), 87U);
  EXPECT_EQ(std::set<std::string_view>(CommandNames().begin(), CommandNames().end()).size(), 87U);
}

TEST(Registry, HoldsBuiltCommandsInTheOrderOfTheNames) {
  auto next = CommandNames().begin();
  for (const Command& command : Registry()) {
    next = std::find(next, CommandNames().end(), command.name);
    ASSERT_NE(next, CommandNames().end()) << command.name << " stands in the wrong place";
    ++next;
  }
}

TEST(Registry, FindsTheModuleOfACommandByItsExactName) {
  EXPECT_NE(FindModule("KSEXI"), nullptr);
  EXPECT_EQ(FindModule("ksexi"), nullptr);
  EXPECT_EQ(FindModule("KSEXITemplate"), nullptr);
  EXPECT_EQ(FindModule(""), nullptr);
}

TEST(Registry, EveryCommandHasItsModuleInItsFamily) {
  for (const Command& command : Registry()) {
    // The one module whose name is not its command's.
    const std::string_view module = command.name == "KSEXITEMPLATE" ? "KSEXITemplate" : command.name;
    const auto file = SourceFile("commands/" + std::string(command.family) + "/" + std::string(module) + ".cpp");
    EXPECT_TRUE(std::filesystem::is_regular_file(file)) << file;
  }
}

}  // namespace
}  // namespace cordboard
