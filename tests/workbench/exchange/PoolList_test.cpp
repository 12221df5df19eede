// The first positions of the lists that draw from the pool of positions: those with which the whole list begins, at a
// cost that does not grow.
#include "workbench/exchange/PoolList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "workbench/actions/Filling.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Plant.h"
#include "workbench/support/Steps.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using std::string;
using std::vector;

// A list of positions as a user opens it.
struct Case {
  string command;
  vector<Assignment> given;
};

void PrintTo(const Case& of, std::ostream* out) {
  *out << of.command;
  for (const auto& [name, value] : of.given) *out << ' ' << name << '=' << value;
}

const vector<Case>& Cases() {
  static const vector<Case> cases = {
      {"EXTEI", {}},
      {"EXTEI", {{"TYPE", "EL6"}}},
      {"EXTEI", {{"TYPE", "EL7"}}},
      {"EXTEI", {{"TYPE", "EL8"}}},
      {"EXTEI", {{"LOCATION", "WORKS"}, {"TYPE", "EL6"}}},
      {"EXTEI", {{"LOCATION", "WORKS"}, {"TYPE", "EL7"}}},
      {"EXTEI", {{"LOCATION", "HQ"}, {"TYPE", "EL8"}}},
      {"KSEXI", {}},
      {"KSEXI", {{"ITYPE", "0"}}},
      {"KSEXI", {{"ITYPE", "3"}}},
      {"KSEXI", {{"ITYPE", "9"}}},
      {"KSEXI", {{"ITYPE", "9"}, {"LOCATION", "WORKS"}}},
      {"ROEQI", {}},
      {"OPERI", {{"TYPE", "1"}}},
      {"OPERI", {{"TYPE", "3"}, {"LOCATION", "WORKS"}}},
      {"CBELI", {}},
      {"CBELI", {{"LOCATION", "WORKS"}}},
      {"ITNUI", {}},
  };
  return cases;
}

// Boards of these types one after the other, again and again, 16 in each LIM, the LIMs at the two locations in turn.
std::unique_ptr<Exchange> ExchangeWith(const vector<string>& types, int boards) {
  nlohmann::json plant = {{"name", "pool"},
                          {"locations", {{{"location", "HQ"}}, {{"location", "WORKS"}}}},
                          {"lims", nlohmann::json::array()},
                          {"boards", nlohmann::json::array()}};
  for (int board = 0; board < boards; ++board) {
    const int lim = 1 + board / 16;
    if (board % 16 == 0) plant["lims"].push_back({{"lim", lim}, {"location", lim % 2 == 1 ? "HQ" : "WORKS"}});
    const string& type = types[static_cast<std::size_t>(board) % types.size()];
    plant["boards"].push_back({{"lim", lim}, {"magazine", 0}, {"slot", board % 16}, {"type", type}});
  }
  return Exchange::CreateInMemory("R8", ParsePlant(plant.dump(), "pool"));
}

class PoolLists : public testing::TestWithParam<Case> {
 protected:
  void Open(std::unique_ptr<Exchange> exchange) {
    session_.reset();
    own_ = std::move(exchange);
    Use(*own_);
  }
  void Use(Exchange& exchange) {
    exchange_ = &exchange;
    session_.emplace(exchange);
  }

  void Take(const string& condition) {
    exchange_->Dynamic().Run("UPDATE [Equipment] SET [USED] = TRUE WHERE " + condition);
  }
  bool IsFree(const string& EQU) {
    return exchange_->Dynamic().Run("SELECT 1 FROM [Equipment] WHERE [EQU] = ? AND [USED]", {EQU}).IsEmpty();
  }

  template <typename Ask>
  auto Asked(const Case& of, const Ask& ask) {
    const Filling filling = FillForm(*session_, *FindForm(of.command), of.given);
    EXPECT_FALSE(filling.IsRefused());
    return ask(*session_->host().FreshList("EQU"));
  }

  Wanted Free() {
    return {.accept = [this](const string& EQU) { return IsFree(EQU); }, .unusedOf = "Equipment"};
  }

  // The first values are those with which the whole list begins, and the first free ones the free ones of these.
  void ExpectTheBeginningOfTheWhole(const Case& of) {
    Asked(of, [&](const ValueList& list) {
      const vector<string> all = Texts(list.All());
      vector<string> free = all;
      std::erase_if(free, [&](const string& EQU) { return !IsFree(EQU); });
      for (const std::size_t count : {1, 10, 700}) {
        EXPECT_EQ(Texts(list.First(count)), Beginning(all, count)) << count;
        EXPECT_EQ(Texts(list.First(count, Free())), Beginning(free, count)) << count << " free";
      }
    });
  }

 private:
  static vector<string> Texts(const vector<ValidValue>& entries) {
    vector<string> texts;
    for (const ValidValue& entry : entries) texts.push_back(entry.value);
    return texts;
  }
  static vector<string> Beginning(const vector<string>& all, std::size_t count) {
    return {all.begin(), all.begin() + static_cast<long>(std::min(count, all.size()))};
  }

  std::unique_ptr<Exchange> own_;
  Exchange* exchange_ = nullptr;
  std::optional<Session> session_;
};

const vector<string> allTypes = {"31", "27", "59", "2", "52", "77", "44", "104", "70"};

TEST_P(PoolLists, BeginsAsTheWholeList) {
  Open(ExchangeWith(allTypes, 32));
  ExpectTheBeginningOfTheWhole(GetParam());
  Take("[LIM] = 1");
  ExpectTheBeginningOfTheWhole(GetParam());
  Take("[EQU] NOT LIKE '%1'");
  ExpectTheBeginningOfTheWhole(GetParam());
  Take("TRUE");
  ExpectTheBeginningOfTheWhole(GetParam());
}

// All boards but the last are of a type that no list but the widest has.
TEST_P(PoolLists, FindsWhatStandsAtTheEndAlone) {
  for (const char* last : {"27", "52", "59"}) {
    vector<string> types(20, "70");
    types.back() = last;
    Open(ExchangeWith(types, 20));
    ExpectTheBeginningOfTheWhole(GetParam());
  }
}

INSTANTIATE_TEST_SUITE_P(Lists, PoolLists, testing::ValuesIn(Cases()));

// --- The shape.

class PoolListShape : public testing::Test {
 protected:
  bool DrawsFromPool(const string& sql) {
    DebugLines debug;
    const auto list = PrepareList(*exchange_, sql, "dynamic", debug);
    EXPECT_TRUE(list) << sql;
    return list && FirstOfPool(*list, 1, "").has_value();
  }
  string Front(const string& sql, const string& unusedOf) {
    DebugLines debug;
    return FrontOfPool(PrepareList(*exchange_, sql, "dynamic", debug).value(), unusedOf);
  }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
};

const string boards =
    "FROM Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND (Boards.Magazine = Equipment.Magazine) AND "
    "(Boards.LIM = Equipment.LIM) ";
const string onSomeBoards = " AND Boards.BoardID = '27' OR Boards.BoardID = '59'";
const string byPlace = " ORDER BY Equipment.LIM, Equipment.Magazine, Equipment.Slot, Equipment.Individual";

TEST_F(PoolListShape, IsThatOfAConditionOnWhatMakesTheKinds) {
  for (const char* condition : {"Equipment.Used = False", "equipment.individual LIKE '0*'"})
    EXPECT_TRUE(DrawsFromPool("SELECT Equipment.EQU " + boards + "WHERE " + condition + onSomeBoards + byPlace))
        << condition;
  for (const char* condition : {"Equipment.Slot = 3", "Used = False", "Equipment.EQU = '001-0-10-00'",
                                "Boards.BoardID IN (SELECT EQU FROM KSEXI)", "Boards.LIM = 1"}) {
    EXPECT_FALSE(DrawsFromPool("SELECT Equipment.EQU " + boards + "WHERE " + condition + onSomeBoards + byPlace))
        << condition;
  }
}

TEST_F(PoolListShape, IsThatOfAConditionOnHowThePositionEnds) {
  const string such = "SELECT Equipment.EQU " + boards + "WHERE Equipment.Used = False AND Boards.BoardID = '27' AND ";
  EXPECT_TRUE(DrawsFromPool(such + "NOT (Equipment.EQU LIKE '%-00' OR Equipment.EQU LIKE '%-16')" + byPlace));
  EXPECT_FALSE(DrawsFromPool(such + "NOT (Equipment.EQU LIKE '%-00' OR Equipment.EQU LIKE '%1-16')" + byPlace));
  EXPECT_FALSE(DrawsFromPool(such + "Equipment.EQU LIKE '001%'" + byPlace));
  EXPECT_FALSE(DrawsFromPool(such + "Equipment.EQU > '%-00'" + byPlace));
}

TEST_F(PoolListShape, IsThatOfAListInTheOrderOfThePool) {
  const string free = "SELECT Equipment.EQU " + boards + "WHERE Equipment.Used = False" + onSomeBoards;
  EXPECT_FALSE(DrawsFromPool(free));
  EXPECT_FALSE(DrawsFromPool(free + " ORDER BY Equipment.Individual"));
  EXPECT_FALSE(DrawsFromPool(free + byPlace + " DESC"));
  EXPECT_TRUE(DrawsFromPool(free + byPlace + ", Equipment.EQU"));
}

TEST_F(PoolListShape, IsThatOfTheNamesOfPositions) {
  EXPECT_FALSE(
      DrawsFromPool("SELECT Equipment.LIM " + boards + "WHERE Equipment.Used = False" + onSomeBoards + byPlace));
  EXPECT_FALSE(DrawsFromPool("SELECT Equipment.EQU, Boards.BoardID " + boards + "WHERE Equipment.Used = False" +
                             onSomeBoards + byPlace));
  EXPECT_FALSE(DrawsFromPool("SELECT EQU FROM Equipment WHERE USED = False"));
  EXPECT_FALSE(
      DrawsFromPool("SELECT Equipment.EQU FROM Equipment INNER JOIN KSEXI ON KSEXI.EQU = Equipment.EQU WHERE "
                    "Equipment.Used = False" +
                    byPlace));
}

TEST_F(PoolListShape, TellsTheFirstRowThatIsNotTakenOfThePoolThatIsMeant) {
  const string free = "SELECT Equipment.EQU " + boards + "WHERE Equipment.Used = False" + onSomeBoards + byPlace;
  const string first = Front(free, "Equipment");
  EXPECT_EQ(first, Front(free, "equipment"));
  exchange_->Dynamic().Run("UPDATE [Equipment] SET [USED] = TRUE WHERE [EQU] = ?", {first});
  EXPECT_GT(Front(free, "Equipment"), first);
  for (const char* other : {"", "ROUTE"}) EXPECT_EQ(Front(free, other), "") << other;
  EXPECT_EQ(Front("SELECT EQU FROM Equipment WHERE USED = False", "Equipment"), "") << "of another shape";
  exchange_->Dynamic().Run("UPDATE [Equipment] SET [USED] = TRUE");
  EXPECT_EQ(Front(free, "Equipment"), "");
}

// --- The cost, in steps of the database.

// The steps to the first free position of a list, and to the first ten of the list.
struct Cost {
  long free;
  long first;
};

class PoolListCost : public PoolLists {
 protected:
  // All positions in the first LIMs are taken but those that no list has: they stand free in front of the others.
  static std::unique_ptr<Exchange> WithTaken(int lims) {
    auto exchange = ExchangeWith({"27", "59", "52", "77", "44", "31", "70"}, 16 * (lims + 8));
    exchange->Dynamic().Run("UPDATE [Equipment] SET [USED] = TRUE WHERE [LIM] <= " + std::to_string(lims) +
                            " AND [Individual] NOT IN ('00', '16') AND [Kind] NOT LIKE '70%'");
    return exchange;
  }
  static void SetUpTestSuite() {
    const StepCounter counter;
    few_ = WithTaken(4);
    many_ = WithTaken(14);
  }
  static void TearDownTestSuite() {
    few_.reset();
    many_.reset();
  }

  Cost In(Exchange& exchange) {
    Use(exchange);
    return Asked(GetParam(), [&](const ValueList& list) {
      return Cost{.free = StepCounter::Steps([&] { EXPECT_EQ(list.First(1, Free()).size(), 1u); }),
                  .first = StepCounter::Steps([&] { EXPECT_EQ(list.First(10).size(), 10u); })};
    });
  }

  static inline std::unique_ptr<Exchange> few_;
  static inline std::unique_ptr<Exchange> many_;
};

TEST_P(PoolListCost, StaysAsPositionsBecomeMany) {
  const Cost few = In(*few_);
  const Cost many = In(*many_);
  EXPECT_GT(few.free, 0);
  EXPECT_LE(many.free, few.free + few.free / 10 + 200);
  EXPECT_LE(many.first, few.first + few.first / 10 + 200);
}

INSTANTIATE_TEST_SUITE_P(Lists, PoolListCost, testing::ValuesIn([] {
                           vector<Case> cases = Cases();
                           // The list of terminals asks how many there are at each position, the location of a key
                           // extension takes away one by one, and groups at a location walk past those at others.
                           std::erase_if(cases, [](const Case& of) {
                             return of.command == "ITNUI" || (of.command == "KSEXI" && of.given.size() == 2) ||
                                    (of.command == "CBELI" && of.given.size() == 1);
                           });
                           return cases;
                         }()));

// --- Kinds.

TEST(Kinds, HaveInCommonWhatMakesThem) {
  const auto exchange = ExampleExchange();
  EXPECT_TRUE(exchange->Dynamic()
                  .Run("SELECT 1 FROM [Equipment] JOIN [Boards] USING ([LIM], [Magazine], [Slot]) JOIN [LIMs] USING "
                       "([LIM]) GROUP BY [Kind] HAVING COUNT(DISTINCT [BoardID]) > 1 OR COUNT(DISTINCT [Individual]) > "
                       "1 OR COUNT(DISTINCT [Location]) > 1")
                  .IsEmpty());
  EXPECT_TRUE(exchange->Dynamic().Run("SELECT 1 FROM [Equipment] WHERE [Kind] IS NULL").IsEmpty());
}

}  // namespace
}  // namespace cordboard::workbench
