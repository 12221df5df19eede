// The plant of an exchange, and what is added to it later.
#include "workbench/exchange/PlantTables.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "script/Conversions.h"
#include "workbench/plans/Plan.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

// An exchange that is small at first, and what it grows by: in front of what stands there, behind it and beside it.
const char* const first = R"({
  "name": "growing",
  "locations": [{"location": "HQ"}],
  "lims": [{"lim": 5, "location": "HQ"}],
  "boards": [{"lim": 5, "magazine": 0, "slot": 10, "type": "31"}, {"lim": 5, "magazine": 0, "slot": 12, "type": "59"}],
  "customers": [{"cust": "2"}],
  "trunkLines": [{"lim": 5, "tru": "5-01&&5-04"}],
  "routes": ["5&&9"],
  "categories": 4
})";
const char* const more = R"({
  "locations": [{"location": "A"}],
  "lims": [{"lim": 1, "location": "A"}, {"lim": 9, "location": "HQ"}],
  "boards": [{"lim": 5, "magazine": 0, "slot": 2, "type": "31"}, {"lim": 9, "magazine": 0, "slot": 1, "type": "31"},
             {"lim": 1, "magazine": 0, "slot": 30, "type": "59"}, {"lim": 5, "magazine": 0, "slot": 11, "type": "31"}],
  "customers": [{"cust": "1"}],
  "trunkLines": [{"lim": 1, "tru": "1-01"}, {"lim": 5, "tru": "5-05"}],
  "routes": ["1&&4"],
  "categories": 6
})";

std::unique_ptr<Exchange> First() { return Exchange::CreateInMemory("R7", ParsePlant(first, "first")); }

// The same plant made at once: the lists of the one with those of the other behind them.
std::unique_ptr<Exchange> Whole() {
  nlohmann::json whole = nlohmann::json::parse(first);
  const nlohmann::json piece = nlohmann::json::parse(more);
  for (const auto& [key, part] : piece.items()) {
    if (!part.is_array()) {
      whole[key] = part;
    } else {
      whole[key].insert(whole[key].end(), part.begin(), part.end());
    }
  }
  return Exchange::CreateInMemory("R7", ParsePlant(whole.dump(), "whole"));
}

// What the lines of a plan are refused for.
std::string Refusals(Exchange& exchange, const std::string& lines) {
  std::stringstream plan(lines);
  Session session(exchange);
  std::string texts;
  for (const LineReport& report : ApplyPlan(session, {{"plan", plan}}, {}).reports) {
    for (const Problem& problem : report.problems) texts += problem.parameter + ": " + problem.message + "\n";
  }
  return texts;
}

TEST(PlantTables, ThePlantOfAnExchangeIsTheOneItWasMadeFrom) {
  for (const std::string& name : PlantNames()) {
    const auto exchange = Exchange::CreateInMemory("R7", ReadPlant(name));
    EXPECT_EQ(JsonOf(PlantOf(*exchange)), JsonOf(ReadPlant(name)));
  }
}

TEST(PlantTables, AnExchangeWithoutANameGetsOne) {
  const auto exchange = First();
  exchange->Dynamic().Execute("DELETE FROM [Cordboard] WHERE [Name] = 'Plant'");
  EXPECT_EQ(PlantOf(*exchange).name, "exchange");
}

TEST(PlantTables, WhatIsAddedStandsThereAsFromTheStart) {
  const auto grown = First();
  AddToPlant(*grown, {{"more.json", more}});
  const auto whole = Whole();
  for (const char* table : {"Locations", "LIMs", "Boards", "Equipment", "CUSTOMERS", "TRKLINE", "ROUTE", "EXCCS"})
    EXPECT_EQ(Rows(*grown, "SELECT * FROM [" + std::string(table) + "]"),
              Rows(*whole, "SELECT * FROM [" + std::string(table) + "]"));
  EXPECT_EQ(JsonOf(PlantOf(*grown)), JsonOf(PlantOf(*whole)));
}

TEST(PlantTables, PositionsAreTakenInTheirOrderWheneverTheyCame) {
  const std::string before =
      "NANSI:NUMTYP=EX,NUMSE=100&&299;\nEXCCS:CAT=1,TRAF=1,SERV_D6=1,CDIV_D1=1,ROC_D2=1;\n"
      "KSEXI:DIR=100&&109,ITYPE=3,EQU=005-0-10-00&&005-0-10-09,CAT=1;\n";
  const std::string after =
      "KSEXI:DIR=next:50,ITYPE=3,EQU=next,CAT=1;\nKSEXI:DIR=next:40,ITYPE=12,EQU=next,CAT=1;\n"
      "delete KSEXI DIR=120;\nKSEXI:DIR=next:2,ITYPE=3,EQU=next,CAT=1;\n";
  const auto grown = First();
  ASSERT_EQ(Refusals(*grown, before), "");
  AddToPlant(*grown, {{"more.json", more}});
  const auto whole = Whole();
  ASSERT_EQ(Refusals(*whole, before), "");
  for (Exchange* exchange : {grown.get(), whole.get()}) ASSERT_EQ(Refusals(*exchange, after), "");

  const std::string extensions = "SELECT DIR, EQU FROM KSEXI ORDER BY rowid";
  EXPECT_EQ(Rows(*grown, extensions), Rows(*whole, extensions));
  const std::string places =
      "SELECT MIN(DIR), COUNT(*) FROM KSEXI WHERE DIR >= '110' GROUP BY substr(EQU, 1, 8) ORDER BY MIN(DIR)";
  // The board in front with the position that was given back, what the first one has left, the one beside it and that
  // of the last LIM; then the digital ones, of which the added one stands in front.
  EXPECT_EQ(Rows(*grown, places), R"([["110", "126", "132", "148", "160", "192"], [16, 6, 16, 13, 32, 8]])");
}

TEST(PlantTables, WhatWasThereStaysAsItIs) {
  const auto exchange = First();
  ASSERT_EQ(Refusals(*exchange,
                     "NANSI:NUMTYP=EX,NUMSE=100;\nEXCCS:CAT=3,TRAF=1,SERV_D6=1,CDIV_D1=1,ROC_D2=1;\n"
                     "KSEXI:DIR=100,ITYPE=3,EQU=005-0-10-00,CAT=3;\n"),
            "");
  const std::string categories = "SELECT * FROM EXCCS WHERE CAT < '4'";
  const std::string kept = Rows(*exchange, categories);
  AddToPlant(*exchange, {{"more.json", more}});
  EXPECT_EQ(Rows(*exchange, categories), kept);
  EXPECT_EQ(Rows(*exchange, "SELECT EQU FROM Equipment WHERE USED"), R"([["005-0-10-00"]])");
  EXPECT_EQ(Rows(*exchange, "SELECT COUNT(*), COUNT(DISTINCT CmdId), COUNT(DISTINCT CAT) FROM EXCCS"),
            "[[6], [6], [6]]");
}

TEST(PlantTables, AllOfAPieceIsAddedOrNothing) {
  const auto exchange = First();
  const nlohmann::json before = JsonOf(PlantOf(*exchange));
  const PlantText twice{"board.json", R"({"boards": [{"lim": 1, "magazine": 0, "slot": 30, "type": "31"}]})"};
  EXPECT_EQ(Refusal<PlantError>([&] {
              AddToPlant(*exchange, {{"more.json", more}, twice});
            }),
            "board.json: boards[0].slot: there is a board in 001-0-30 already");
  EXPECT_EQ(JsonOf(PlantOf(*exchange)), before);
  EXPECT_EQ(exchange->OpenTransactions(), 0);
}

}  // namespace
}  // namespace cordboard::workbench
