// What every list costs as positions, numbers, trunks, routes and records become five times as many: one value is
// looked up, and the first values and the first free one are found, in no more than a quarter more steps of the
// database. That quarter is for what a few have fewer of than the first values that are asked for.
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "workbench/actions/Filling.h"
#include "workbench/exchange/Plant.h"
#include "workbench/support/Steps.h"

namespace cordboard::workbench {
namespace {

using std::string;

// A list as a form without values has it.
struct Case {
  string command;
  string parameter;
};

void PrintTo(const Case& of, std::ostream* out) { *out << of.command << ' ' << of.parameter; }
string Name(const testing::TestParamInfo<Case>& info) { return info.param.command + "_" + info.param.parameter; }

// What the rules themselves make grow, and why.
const std::map<string, string>& Growing() {
  static const std::map<string, string> growing = {
      {"ITNUI_EQU", "the terminals at each position of each key extension are counted"},
  };
  return growing;
}

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const FormDefinition* form : Forms()) {
    for (const ParameterDefinition& parameter : form->parameters) {
      if (parameter.list && !Growing().contains(form->command + "_" + parameter.name))
        cases.push_back({form->command, parameter.name});
    }
  }
  return cases;
}

// Those of which a form without values has no list: they are not measured here.
const std::set<string> ofOtherValues = {"CXRFI RPN",
                                        "EXTEI ICAT_D1_SUB1",
                                        "EXTEI ICAT_D1_SUB2",
                                        "EXTEI ICAT_D1_SUB3",
                                        "EXTEI ICAT_D1_SUB4",
                                        "EXTEI ICAT_D4",
                                        "EXTEITEMPLATE ICAT_D1_SUB1",
                                        "EXTEITEMPLATE ICAT_D1_SUB2",
                                        "EXTEITEMPLATE ICAT_D1_SUB3",
                                        "EXTEITEMPLATE ICAT_D1_SUB4",
                                        "EXTEITEMPLATE ICAT_D4",
                                        "ICFUC EQU",
                                        "OPERI PCM",
                                        "VMPOI ICUIND",
                                        "VMPOI IFCIND"};

class ListCost : public testing::TestWithParam<Case> {
 protected:
  // An exchange with so many positions, numbers of each type, trunks, routes and records, a third of them in use.
  static std::unique_ptr<Exchange> ExchangeWith(int count) {
    nlohmann::json plant = {{"name", "lists"}, {"locations", {{{"location", "HQ"}}}}};
    // Each LIM has boards of one type, so that those of some types stand behind all others.
    const std::vector<string> types = {"77", "44", "27", "70", "31", "77", "44",
                                       "27", "70", "31", "59", "52", "2",  "112"};
    const int lims = static_cast<int>(types.size());
    for (int lim = 0; lim < lims; ++lim) plant["lims"].push_back({{"lim", 1 + lim}, {"location", "HQ"}});
    for (int board = 0; board * 16 < count; ++board)
      plant["boards"].push_back({{"lim", 1 + board % lims},
                                 {"magazine", 0},
                                 {"slot", board / lims},
                                 {"type", types[static_cast<std::size_t>(board % lims)]}});
    auto exchange = Exchange::CreateInMemory("R8", ParsePlant(plant.dump(), "lists"));
    const auto many = [&](const string& sql) {
      exchange->Dynamic().Run("WITH RECURSIVE [n]([i]) AS (SELECT 0 UNION ALL SELECT [i] + 1 FROM [n] LIMIT " +
                              std::to_string(count) + ") " + sql);
    };
    for (const char* type : {"EX", "ED", "GH", "OI", "AD", "EP", "CO", "DN", "DG", "DE", "MA"})
      many("INSERT INTO [NANSI] SELECT [i], [i] + 10000, '" + string(type) + "', [i] % 3 = 0 FROM [n]");
    many("INSERT INTO [TRKLINE] SELECT '001-' || [i], 1 + [i] % 14, [i] % 3 = 0 FROM [n]");
    many("INSERT INTO [ROUTE] SELECT [i], [i] % 3 = 0 FROM [n]");
    for (const char* table : {"KSEXI", "EXTEIDIR", "ITNUI", "GEDII", "OPERI"})
      many("INSERT INTO [" + string(table) + "] ([CMDID], [DIR], [NUMTYP]) SELECT [i], [i] + 10000, '" +
           (string(table) == "OPERI" ? "OI" : "EX") + "' FROM [n] WHERE [i] % 3 = 0");
    many("INSERT INTO [CXAKI] ([CMDID], [DIR]) SELECT [i], [i] + 10000 FROM [n] WHERE [i] % 3 = 0");
    many("INSERT INTO [KSANI] ([CMDID], [ADN]) SELECT [i], [i] + 10000 FROM [n] WHERE [i] % 3 = 1");
    for (const char* table : {"GHGRI", "ACGRI", "CBELI"})
      many("INSERT INTO [" + string(table) + "] ([CMDID], [GRP]) SELECT [i], [i] + 10000 FROM [n]");
    return exchange;
  }

  static void SetUpTestSuite() {
    const StepCounter counter;
    few_ = ExchangeWith(320);
    many_ = ExchangeWith(1600);
  }
  static void TearDownTestSuite() {
    few_.reset();
    many_.reset();
  }

  struct Steps {
    long one;
    long first;
    long free;
  };
  static Steps In(Exchange& exchange) {
    Session session(exchange);
    const auto [command, parameter] = GetParam();
    const Filling filling(session, *FindForm(command));
    const ValueList* list = session.host().FreshList(parameter);
    EXPECT_EQ(list == nullptr, ofOtherValues.contains(command + " " + parameter));
    if (list == nullptr) return {};
    const auto& pool = FindForm(command)->Find(parameter)->pool;
    const Wanted free{.unusedOf = pool ? pool->table : ""};
    return {.one = StepCounter::Steps([&] { EXPECT_FALSE(list->Contains("10001 ")); }),
            .first = StepCounter::Steps([&] { list->First(10); }),
            .free = StepCounter::Steps([&] { list->First(1, free); })};
  }

  static inline std::unique_ptr<Exchange> few_;
  static inline std::unique_ptr<Exchange> many_;
};

TEST_P(ListCost, Stays) {
  const Steps few = In(*few_);
  const Steps many = In(*many_);
  EXPECT_LE(many.one, few.one + few.one / 4 + 10);
  EXPECT_LE(many.first, few.first + few.first / 4 + 10);
  EXPECT_LE(many.free, few.free + few.free / 4 + 10);
}

INSTANTIATE_TEST_SUITE_P(Lists, ListCost, testing::ValuesIn(Cases()), Name);

}  // namespace
}  // namespace cordboard::workbench
