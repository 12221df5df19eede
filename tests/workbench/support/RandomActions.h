// Actions of a user who tries what the lists of an exchange offer: of all commands, and most of them are accepted.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "fault/Random.h"
#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/actions/UserAction.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

class RandomActions {
 public:
  RandomActions(Session& session, unsigned seed) : session_(session), random_(seed) {}

  // An add, or of a record that is there an edit or a delete.
  UserAction Next(bool addsAlone) {
    static const std::vector<const FormDefinition*> forms = Forms();
    const FormDefinition& form = *forms[Below(forms.size())];
    // An add where one record stands for the whole exchange changes that, and one of ICFUC the link of ICFUI.
    if (addsAlone && (form.command == "ICFUC" || StandingRecord(session_.exchange(), form))) return Next(addsAlone);
    const std::size_t kind = addsAlone ? 0 : Below(5);
    if (kind == 3) return {UserAction::Kind::Edit, form.command, KeyOfAny(form), Values(form, 1)};
    if (kind == 4) return {UserAction::Kind::Delete, form.command, KeyOfAny(form), {}};
    return {UserAction::Kind::Add, form.command, {}, Values(form, 3, addsAlone)};
  }

 private:
  std::size_t Below(std::size_t end) { return random_.Below(end); }

  // Values that go together as far as the form tells, of every mandatory parameter and of some of the others.
  std::vector<Assignment> Values(const FormDefinition& form, std::size_t oftenOfTen, bool addsAlone = false) {
    Filling filling(session_, form);
    std::vector<Assignment> values;
    const bool edits = oftenOfTen == 1;
    const auto set = form.oneOf.empty() ? std::vector<std::string>() : form.oneOf[Below(form.oneOf.size())];
    for (const ParameterDefinition& parameter : form.parameters) {
      const bool ofSet = std::ranges::find(set, parameter.name) != set.end();
      const bool asked = !edits && (filling.form().IsMandatory(parameter.name) || ofSet);
      if (!asked && Below(10) >= oftenOfTen) continue;
      // The rules take whatever is typed there, and make records of it that no key has.
      if (addsAlone && parameter.name == "DIRK") continue;
      if (std::string value = ValueOf(filling, parameter, edits); !value.empty()) {
        values.push_back({parameter.name, std::move(value)});
        filling.Set(values.back());
      }
    }
    return values;
  }

  std::string ValueOf(Filling& filling, const ParameterDefinition& parameter, bool one) {
    const ValueList* list = filling.ListOf(parameter.name);
    if (list == nullptr) return parameter.address ? "10.0.0." + std::to_string(Below(256)) : Typed(parameter);
    const std::vector<ValidValue> possible = list->First(40);
    if (possible.empty()) return "";
    const std::size_t first = Below(possible.size());
    const std::size_t most = !one && parameter.multiple && Below(3) == 0 ? 4 : 1;
    const auto end = std::min(first + most, possible.size());
    return Separated(std::vector(possible.begin() + static_cast<std::ptrdiff_t>(first),
                                 possible.begin() + static_cast<std::ptrdiff_t>(end)),
                     "&", &ValidValue::value);
  }

  // What is typed where no list says what is possible.
  std::string Typed(const ParameterDefinition& parameter) {
    static const char* const words[] = {"Mill, gate 2", "a\"b", " x ", "Ö#1", "12;3", "Hall", "A:b"};
    switch (parameter.characters) {
      case Characters::Any: return words[Below(std::size(words))];
      case Characters::Word: return Below(2) == 0 ? "W" + std::to_string(Below(100)) : std::to_string(Below(100));
      default: break;
    }
    std::string digits;
    for (std::size_t length = 1 + Below(5); digits.size() < length;) digits += std::to_string(Below(10));
    return digits;
  }

  // The key of a record of the command; nothing where there is none.
  std::vector<Assignment> KeyOfAny(const FormDefinition& form) {
    const RowSet count = SelectRecords(session_.exchange(), form, "COUNT(*)", {}, "");
    const auto records = static_cast<std::size_t>(count[0][0].number());
    if (records == 0) return {};
    // Where there are two tables, those of the second have more.
    std::vector<std::string> columns = form.key;
    std::erase_if(columns,
                  [&](const std::string& name) { return std::ranges::find(form.columns, name) == form.columns.end(); });
    const std::string names = Separated(columns, ", ", [](const std::string& name) { return "[" + name + "]"; });
    if (names.empty()) return {};
    const RowSet found =
        SelectRecords(session_.exchange(), form, names, {}, " LIMIT 1 OFFSET " + std::to_string(Below(records)));
    std::vector<Assignment> key;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (std::string value = Joined(found[i][0]); !value.empty()) key.push_back({columns[i], std::move(value)});
    }
    return key;
  }

  Session& session_;
  Random random_;
};

}  // namespace cordboard::workbench
