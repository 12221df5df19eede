#include "workbench/forms/ParameterReader.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "entry/Registry.h"
#include "workbench/data/DataFile.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/FixedValues.h"
#include "workbench/forms/Foldings.h"

namespace cordboard::workbench {

namespace {

std::vector<std::string> ReadReleases(Fields& fields) {
  const auto item = fields.Find("releases");
  if (!item) return {};
  for (const DataItem& release : item->List()) {
    if (std::ranges::find(Releases(), release.Text()) == Releases().end())
      release.Fail("there is no release " + release.Text());
  }
  return item->As<std::vector<std::string>>();
}

Characters ReadCharacters(Fields& fields) {
  const auto item = fields.Find("characters");
  if (!item) return Characters::Word;
  const std::string kind = item->Text();
  if (kind == "any") return Characters::Any;
  if (kind == "digits") return Characters::Digits;
  if (kind == "dialled") return Characters::Dialled;
  if (kind == "hexadecimal") return Characters::Hexadecimal;
  item->Fail("characters are \"any\", \"digits\", \"dialled\" or \"hexadecimal\"");
}

// What the library serves of the command's parameters, and their fixed values.
struct Served {
  const Module* module;  // null where there is none
  const std::set<std::string>& fixed;
};

ParameterDefinition ReadParameter(const Served& served, Fields& fields, const std::string& number) {
  ParameterDefinition parameter{.name = WithNumber(fields.Get<std::string>("name"), number),
                                .title = fields.Get<std::string>("title")};
  for (const ParameterFlag& flag : ParameterFlags()) {
    if (flag.source == ParameterFlag::Source::Form) parameter.*flag.flag = fields.Get(flag.key, false);
  }
  if (served.module != nullptr) {
    parameter.list = served.module->ListOf(parameter.name) != nullptr;
    parameter.check = served.module->CheckOf(parameter.name) != nullptr;
  }
  parameter.fixed = !parameter.list && served.fixed.contains(parameter.name);
  parameter.characters = ReadCharacters(fields);
  parameter.releases = ReadReleases(fields);
  parameter.otherwise = fields.Get<std::string>("otherwise", "");
  fields.Find("each");
  if (const auto pool = fields.Find("pool")) {
    parameter.pool = pool->Object([](Fields& of) {
      return Pool{of.Get<std::string>("table"), of.Get<std::string>("column")};
    });
  }
  if (const auto narrowed = fields.Find("narrowed")) {
    parameter.narrowing = narrowed->Object([](Fields& of) {
      return Narrowing{of.Get<std::string>("by"), of.Get<std::string>("without")};
    });
  }
  if (const auto beside = fields.Find("beside")) {
    parameter.beside = beside->Object([](Fields& of) { return Numbers{of.Get<int>("from"), of.Get<int>("to")}; });
  }
  return parameter;
}

}  // namespace

ParameterList ReadParameters(const std::string& command, const DataItem& entries) {
  const Served served{FindModule(command), FixedParametersOf(command)};
  ParameterList parameters;
  for (const DataItem& entry : entries.List()) {
    const std::vector<std::string> numbers = EachOf(entry);
    for (const std::string& number : numbers) {
      parameters.push_back(entry.Object([&](Fields& fields) { return ReadParameter(served, fields, number); }));
      parameters.back().ofSeries = numbers.size();
    }
  }
  return parameters;
}

}  // namespace cordboard::workbench
