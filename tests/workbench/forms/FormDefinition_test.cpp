#include "workbench/forms/FormDefinition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>

#include "entry/CScript.h"
#include "entry/Registry.h"
#include "script/NullHost.h"
#include "script/RunTimeFailure.h"
#include "script/TracingHost.h"
#include "workbench/data/Resources.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/text/Names.h"

namespace cordboard::workbench {
namespace {

const Table* TableOf(const FormDefinition& form) {
  static const Schema schema = ReadSchema(Resource("schema.json"));
  const Table* table = schema.Database("dynamic").Find(form.table);
  return table != nullptr ? table : schema.Database("site").Find(form.table);
}

// Goes through all forms with the name of the form, and of the parameter, in front of what fails.
void ForEachForm(const std::function<void(const FormDefinition&)>& test) {
  for (const FormDefinition* form : Forms()) {
    SCOPED_TRACE(form->command);
    test(*form);
  }
}

void ForEachParameter(const std::function<void(const FormDefinition&, const ParameterDefinition&)>& test) {
  ForEachForm([&](const FormDefinition& form) {
    for (const ParameterDefinition& parameter : form.parameters) {
      SCOPED_TRACE(parameter.name);
      test(form, parameter);
    }
  });
}

// --- What the command itself serves.

// A form on which every parameter has a value.
class FilledHost : public NullHost {
 public:
  Value scGetParamValue(const std::string&) override { return "1"; }
};

// Whether the library does anything at all: an action or a parameter that a command does not serve gives no call but
// the one that tells of a template. The answer does not tell: the category command gives True for what it does not
// serve.
bool DoesAnything(std::shared_ptr<Host> behind, const std::string& release, const std::string& function,
                  const std::string& command, const List& ParamList) {
  const auto trace = std::make_shared<TracingHost>(std::move(behind));
  CScript script;
  script.AddObject(trace);
  try {
    script.Run(1, release, function, command, 1, ParamList);
  } catch (const RunTimeFailure&) {
    return true;
  }
  return std::ranges::any_of(trace->calls(), [](const TracedCall& call) { return call.call != "SetTemplate(True)"; });
}

bool Serves(const std::string& function, const std::string& command, const List& ParamList) {
  return std::ranges::any_of(Releases(), [&](const std::string& release) {
    return DoesAnything(std::make_shared<NullHost>(), release, function, command, ParamList) ||
           DoesAnything(std::make_shared<FilledHost>(), release, function, command, ParamList);
  });
}

TEST(FormDefinition, AParameterHasAListExactlyWhereItsCommandBuildsOne) {
  ForEachParameter([](const FormDefinition& form, const ParameterDefinition& parameter) {
    EXPECT_EQ(parameter.list, Serves("GetValidValForParam", form.command, {parameter.name}));
  });
}

TEST(FormDefinition, AParameterHasACheckExactlyWhereItsCommandServesOne) {
  ForEachParameter([](const FormDefinition& form, const ParameterDefinition& parameter) {
    EXPECT_EQ(parameter.check, Serves("StatCheck", form.command, {parameter.name}));
  });
}

TEST(FormDefinition, AFormOffersExactlyTheActionsOfItsCommand) {
  ForEachForm([](const FormDefinition& form) {
    const List columns(std::vector<Value>(form.columns.begin(), form.columns.end()));
    EXPECT_EQ(form.adds, Serves("SetInfo", form.command, columns));
    EXPECT_EQ(form.edits, Serves("EditInfo", form.command, columns));
    EXPECT_EQ(form.deletes, Serves("DeleteInfo", form.command, List()));
    EXPECT_EQ(form.generates, Serves("GenerateCmd", form.command, {"1"}));
  });
}

TEST(FormDefinition, EveryFormBelongsToACommandOfTheRegistry) {
  ForEachForm([](const FormDefinition& form) {
    EXPECT_NE(std::ranges::find(Registry(), form.command, &Command::name), Registry().end());
  });
}

// --- Columns and names.

TEST(FormDefinition, ColumnsStandInTheTableInItsOrderAndTheIdentifierIsTheFirst) {
  ForEachForm([](const FormDefinition& form) {
    const Table* table = TableOf(form);
    ASSERT_NE(table, nullptr) << form.table;
    ASSERT_FALSE(form.columns.empty());
    EXPECT_EQ(form.columns.front(), "CMDID");
    const Column* last = nullptr;
    for (const std::string& name : form.columns) {
      const Column* column = table->Find(name);
      ASSERT_NE(column, nullptr) << name;
      EXPECT_TRUE(last == nullptr || last < column) << name;
      last = column;
    }
  });
}

TEST(FormDefinition, NoNameStandsThereTwice) {
  ForEachForm([](const FormDefinition& form) {
    std::set<std::string> names;
    for (const ParameterDefinition& parameter : form.parameters) EXPECT_TRUE(names.insert(parameter.name).second);
    const std::set<std::string> columns(form.columns.begin(), form.columns.end());
    EXPECT_EQ(columns.size(), form.columns.size());
    EXPECT_FALSE(names.contains("CMDID"));
  });
}

TEST(FormDefinition, EveryFormAndParameterSaysWhatItIs) {
  ForEachForm([](const FormDefinition& form) {
    EXPECT_FALSE(form.title.empty());
    EXPECT_TRUE(form.help.ends_with('.')) << form.help;
    EXPECT_FALSE(form.parameters.empty());
  });
  ForEachParameter([](const FormDefinition&, const ParameterDefinition& parameter) {
    EXPECT_FALSE(parameter.title.empty());
    EXPECT_FALSE(parameter.list && parameter.fixed) << "its list is the command's or the fixed one";
  });
}

TEST(FormDefinition, AParameterWithFixedValuesHasSome) {
  const Plant plant = ReadPlant("example");
  std::vector<std::unique_ptr<Exchange>> exchanges;
  for (const std::string& release : Releases()) exchanges.push_back(Exchange::CreateInMemory(release, plant));
  ForEachParameter([&](const FormDefinition& form, const ParameterDefinition& parameter) {
    if (!parameter.fixed) return;
    const bool some = std::ranges::any_of(exchanges, [&](const auto& exchange) {
      const Value count = exchange->Database("static")->Single(
          "SELECT COUNT(*) FROM [ParamValueDesc] WHERE [Command] = ? AND [Param] = ?", {form.command, parameter.name});
      return count != Value(0);
    });
    EXPECT_TRUE(some);
  });
}

TEST(FormDefinition, WhatIsWrittenAfterAnEditAreColumns) {
  ForEachForm([](const FormDefinition& form) {
    for (const std::string& column : form.handling.writeAfterEdit)
      EXPECT_NE(std::ranges::find(form.columns, column), form.columns.end()) << column;
    EXPECT_TRUE(form.edits || form.handling.writeAfterEdit.empty());
    EXPECT_TRUE(form.deletes || !form.handling.removeRowAfterDelete);
  });
}

// --- Foldings.

TEST(FormDefinition, AFoldingGoesIntoAColumnFromParametersOfTheForm) {
  ForEachForm([](const FormDefinition& form) {
    std::set<std::string> parts;
    for (const Folding& folding : form.foldings) {
      SCOPED_TRACE(folding.parameter);
      EXPECT_NE(std::ranges::find(form.columns, folding.parameter), form.columns.end());
      EXPECT_EQ(form.FoldingOf(folding.parameter), &folding);
      for (const DigitPlace& place : folding.places) {
        EXPECT_FALSE(place.parameters.empty());
        for (const std::string& name : place.parameters) {
          EXPECT_NE(form.Find(name), nullptr) << name;
          EXPECT_TRUE(parts.insert(name).second) << name;
          EXPECT_EQ(form.FoldingWith(name), &folding) << name;
        }
      }
    }
  });
}

TEST(FormDefinition, ThePlacesOfAFoldingLieInItsLengthAndApart) {
  ForEachForm([](const FormDefinition& form) {
    for (const Folding& folding : form.foldings) {
      SCOPED_TRACE(folding.parameter);
      if (!folding.separator.empty()) continue;  // parts of any length, told apart by the separator
      std::set<int> taken;
      for (const DigitPlace& place : folding.places) {
        EXPECT_GE(place.first, 1);
        EXPECT_GE(place.width, 1);
        EXPECT_LE(place.first + place.width - 1, folding.length);
        for (int digit = place.first; digit < place.first + place.width; ++digit)
          EXPECT_TRUE(taken.insert(digit).second) << digit;
      }
    }
  });
}

// --- Finding.

TEST(FormDefinition, FormsAreFoundByTheExactNameOfTheirCommand) {
  ASSERT_NE(FindForm("NANSI"), nullptr);
  EXPECT_EQ(FindForm("NANSI")->command, "NANSI");
  EXPECT_EQ(FindForm("nansi"), nullptr);
  EXPECT_EQ(FindForm(""), nullptr);
}

TEST(FormDefinition, ParametersAreFoundByTheirExactName) {
  const FormDefinition& form = *FindForm("NANSI");
  ASSERT_NE(form.Find("NUMTYP"), nullptr);
  EXPECT_TRUE(form.Find("NUMTYP")->mandatory);
  EXPECT_TRUE(form.Find("NUMTYP")->list);
  EXPECT_FALSE(form.Find("NUMTYP")->TakesElements());
  EXPECT_TRUE(form.Find("NUMSE")->TakesElements());
  EXPECT_EQ(form.Find("numtyp"), nullptr);
  EXPECT_EQ(form.Find("USED"), nullptr);
  EXPECT_EQ(form.FoldingOf("NUMSE"), nullptr);
  EXPECT_EQ(form.FoldingWith("NUMSE"), nullptr);
}

}  // namespace
}  // namespace cordboard::workbench
