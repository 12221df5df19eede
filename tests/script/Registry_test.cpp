#include "script/Registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace cordboard {
namespace {

// The commands of the exchange, in the order in which the registry compares them.
constexpr std::string_view names[] = {
    "ACGMI",         "ACGRI", "ADCOI", "ADINI",         "AOCOI",    "ASPAC",    "AUCOI", "CBELI",
    "CBGMI",         "CDCOI", "CDINI", "CHGMI",         "CLDFI",    "CLODI",    "CLOHI", "CLOMI",
    "CLFOC",         "CPDLI", "CPDNI", "CS_CHGRI",      "CS_GDNDI", "CS_GPGRI", "CXAKI", "CXCFI",
    "CXRFI",         "CXSYI", "EDEQI", "EDDFI",         "EDFII",    "EDICC",    "EXCCS", "EXTEI",
    "EXTEITEMPLATE", "GEDII", "GESPI", "GDNDI",         "GHGMI",    "GHGRI",    "GPAGI", "GPGMI",
    "ICFUI",         "ICFUC", "ICMWC", "IPBOI",         "IPEXI",    "KSANI",    "KSEXI", "KSEXITEMPLATE",
    "KSFKC",         "KSMDI", "ITNUI", "ITNUITEMPLATE", "NACDS",    "NANLS",    "NANSI", "NAPTS",
    "NASCS",         "NIINI", "OPADC", "OPCEI",         "OPCGS",    "OPCOI",    "OPCTS", "OPDNC",
    "OPERI",         "OPISS", "OPNEI", "OPRSC",         "PELPI",    "ROCAI",    "RODAI", "ROCAI_IMPORT",
    "ROEQI",         "RODDI", "NUTRI", "REEXI",         "IPGDI",    "IPGKC",    "SPEXI", "SYDAS",
    "SYIDI",         "SYTDS", "TCMAS", "VMFUI",         "VMPOI",    "IVMAI",    "IVBOI"};

TEST(Registry, ThereAre87CommandsOfDifferentNames) {
  EXPECT_EQ(std::size(names), 87U);
  EXPECT_EQ(std::set<std::string_view>(std::begin(names), std::end(names)).size(), 87U);
}

TEST(Registry, HoldsCommandsOfTheseNamesAloneEachOnceAndInTheirOrder) {
  const auto* next = std::begin(names);
  for (const Command& command : Registry()) {
    next = std::find(next, std::end(names), command.name);
    ASSERT_NE(next, std::end(names)) << command.name << " is no command, stands twice, or stands in the wrong place";
    ++next;
  }
}

TEST(Registry, EveryCommandHasAnEntryAndItsModuleInItsFamily) {
  for (const Command& command : Registry()) {
    EXPECT_NE(command.entry, nullptr) << command.name;
    // The one module whose name is not its command's.
    const std::string_view module = command.name == "KSEXITEMPLATE" ? "KSEXITemplate" : command.name;
    const auto file =
        std::filesystem::path(CORDBOARD_SOURCE_DIR) / "commands" / command.family / (std::string(module) + ".cpp");
    EXPECT_TRUE(std::filesystem::is_regular_file(file)) << file;
  }
}

}  // namespace
}  // namespace cordboard
