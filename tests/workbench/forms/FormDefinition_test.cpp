#include "workbench/forms/FormDefinition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <utility>

#include "entry/Registry.h"
#include "workbench/database/Schema.h"

namespace cordboard::workbench {
namespace {

// Whether the columns stand in the table in its order, the identifier first.
bool StandIn(const Table* table, const std::vector<std::string>& columns) {
  if (table == nullptr || columns.empty() || columns.front() != "CMDID") return false;
  const Column* last = nullptr;
  for (const std::string& name : columns) {
    const Column* column = table->Find(name);
    if (column == nullptr || (last != nullptr && column <= last)) return false;
    last = column;
  }
  return true;
}

// Goes through all forms, those of second tables too, with the name of the form, and of the parameter, in front of what
// fails.
void ForEachForm(const std::function<void(const FormDefinition&)>& test) {
  for (const FormDefinition* form : Forms()) {
    for (const FormDefinition* each : form->OfEachTable()) {
      SCOPED_TRACE(form->command + " in " + each->table);
      test(*each);
    }
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

TEST(FormDefinition, AFormTellsWhatTheModuleServes) {
  ForEachForm([](const FormDefinition& form) {
    const Module& module = *FindModule(form.command);
    EXPECT_EQ(form.adds, module.SetInfo != nullptr);
    EXPECT_EQ(form.edits, module.EditInfo != nullptr);
    EXPECT_EQ(form.deletes, module.DeleteInfo != nullptr);
    EXPECT_EQ(form.generates, module.GenerateCmd != nullptr);
  });
  ForEachParameter([](const FormDefinition& form, const ParameterDefinition& parameter) {
    EXPECT_EQ(parameter.list, FindModule(form.command)->ListOf(parameter.name) != nullptr);
    EXPECT_EQ(parameter.check, FindModule(form.command)->CheckOf(parameter.name) != nullptr);
  });
}

// What a module serves, and no form has.
const std::set<std::pair<std::string, std::string>> onNoForm = {
    {"KSANI", "CATTYP"},            // numbers keep no role of a category
    {"EXTEI", "CATTYP"},            // nor do these
    {"EXTEITEMPLATE", "CATTYP"},    // and their templates
    {"KSEXITEMPLATE", "LOCATION"},  // templates have no position
    {"ITNUITEMPLATE", "LOCATION"},  // as above
    {"EXTEITEMPLATE", "EQU"},       // as above
    {"EXTEITEMPLATE", "DIR"},       // and no number
    {"EXTEITEMPLATE", "AUX"},       // as above
    {"EXTEITEMPLATE", "DIR_AUX"},   // as above
};

TEST(FormDefinition, AFormHasEveryParameterThatItsModuleServes) {
  ForEachForm([](const FormDefinition& form) {
    const Module& module = *FindModule(form.command);
    for (const auto* served : {&module.ValidValues, &module.StatCheck}) {
      for (const ParameterWorker& entry : *served) {
        for (const std::string& name : entry.names.all())
          EXPECT_NE(form.Find(name) != nullptr, onNoForm.contains({form.command, name})) << name;
      }
    }
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
    EXPECT_TRUE(StandIn(form.Database().Find(form.table), form.columns)) << form.table;
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
    EXPECT_GT(form.parameters.size(), 0);
  });
  ForEachParameter([](const FormDefinition&, const ParameterDefinition& parameter) {
    EXPECT_FALSE(parameter.title.empty());
    EXPECT_FALSE(parameter.list && parameter.fixed) << "its list is the command's or the fixed one";
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
    for (const Folding& folding : form.foldings) {
      SCOPED_TRACE(folding.parameter);
      std::set<std::string> parts;
      const bool stored = std::ranges::find(form.columns, folding.parameter) != form.columns.end();
      EXPECT_NE(stored, form.IsElsewhere(folding.parameter));
      ASSERT_NE(form.FoldingOf(folding.parameter), nullptr);
      EXPECT_EQ(form.FoldingOf(folding.parameter)->parameter, folding.parameter);
      for (const DigitPlace& place : folding.places) {
        EXPECT_FALSE(place.parameters.empty());
        for (const std::string& name : place.parameters) {
          EXPECT_NE(form.Find(name), nullptr) << name;
          EXPECT_TRUE(parts.insert(name).second) << name;
          EXPECT_EQ(form.FoldingWith(name)->parameter, folding.parameter) << name;
        }
        EXPECT_TRUE(place.digit.empty() || form.Find(place.digit) != nullptr) << place.digit;
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
