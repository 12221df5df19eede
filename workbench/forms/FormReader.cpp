#include "workbench/forms/FormReader.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "entry/Registry.h"
#include "workbench/data/DataFile.h"
#include "workbench/database/Schema.h"
#include "workbench/forms/Foldings.h"
#include "workbench/forms/ParameterReader.h"
#include "workbench/text/Names.h"

namespace cordboard::workbench {

namespace {

using Texts = std::vector<std::string>;

// The identifier is CMDID to the library, however the table spells it.
Texts ColumnsOf(const Table& table) {
  Texts columns;
  for (const Column& column : table.columns) {
    if (!column.further) columns.push_back(SameName(column.name, "CMDID") ? "CMDID" : column.name);
  }
  return columns;
}

void ReadRecord(FormDefinition& form, Fields& fields, const DataItem& file) {
  form.table = fields.Get("table", form.command);
  if (const auto database = fields.Find("database")) {
    form.database = database->Text();
    if (form.database != "dynamic" && form.database != "site")
      database->Fail("records stand in \"dynamic\" or \"site\"");
  }
  const Table* table = form.Database().Find(form.table);
  if (table == nullptr) file.Fail("there is no table " + form.table);
  form.columns = fields.Get("columns", ColumnsOf(*table));
  form.prepared = fields.Get<std::string>("prepared", "");
  std::vector<std::string> named = form.columns;
  if (!form.prepared.empty()) named.push_back(form.prepared);
  for (const std::string& column : named) {
    if (table->Find(column) == nullptr) file.Fail("the table " + form.table + " has no column " + column);
  }
}

Texts WithoutThoseOf(const Texts& columns, const Texts& others) {
  Texts rest;
  std::ranges::copy_if(columns, std::back_inserter(rest),
                       [&](const std::string& column) { return std::ranges::find(others, column) == others.end(); });
  return rest;
}

// Where one record stands for the whole exchange, nothing has to tell it.
Texts ReadKey(const FormDefinition& form, const std::optional<DataItem>& item) {
  if (!item) {
    const auto stored = [&form](const ParameterDefinition& parameter) {
      return std::ranges::find(form.columns, parameter.name) != form.columns.end();
    };
    const auto first = std::ranges::find_if(form.parameters, stored);
    return form.single || first == form.parameters.end() ? Texts() : Texts{first->name};
  }
  for (const DataItem& name : item->List()) {
    if (form.Find(name.Text()) == nullptr) name.Fail("there is no parameter " + name.Text());
  }
  return item->As<Texts>();
}

// The second table takes everything else from the form as it has been read.
void ReadSecondTable(FormDefinition& form, const DataItem& item) {
  auto second = std::make_shared<FormDefinition>(form);
  item.Object([&](Fields& fields) {
    second->table = fields.Get<std::string>("table");
    form.secondWith = fields.Get<std::string>("with");
    return 0;
  });
  const Table* table = form.Database().Find(second->table);
  if (table == nullptr) item.Fail("there is no table " + second->table);
  second->columns = ColumnsOf(*table);
  second->shown = ShownColumns(*second);
  form.elsewhere = WithoutThoseOf(second->columns, form.columns);
  second->elsewhere = WithoutThoseOf(form.columns, second->columns);
  if (std::ranges::find(form.elsewhere, form.secondWith) == form.elsewhere.end())
    item.Fail("only the records of " + second->table + " may have " + form.secondWith);
  second->handling.writeAfterEdit = WithoutThoseOf(form.handling.writeAfterEdit, second->elsewhere);
  form.handling.writeAfterEdit = WithoutThoseOf(form.handling.writeAfterEdit, form.elsewhere);
  form.second = second;
}

SideLine ReadSideLine(Fields& fields) {
  SideLine line{.key = fields.Get<Texts>("key"), .with = {}, .further = fields.Get<std::string>("further", "")};
  for (const auto& [name, value] : fields.At("with").Entries()) line.with = {name, value.Text()};
  return line;
}

Texts NamesOf(const SideLine& line) {
  Texts names = line.key;
  for (const std::string& name : {line.with.name, line.further}) {
    if (!name.empty()) names.push_back(name);
  }
  return names;
}

// Derived parameters are in no form: what the form takes would be read as the exchange's word.
LineForm ReadLines(const FormDefinition& form, const DataItem& item) {
  LineForm lines = item.Object([](Fields& fields) {
    LineForm read{.derived = fields.Get("derived", Texts()),
                  .untold = fields.Get("untold", Texts()),
                  .from = fields.Get<std::string>("from", "")};
    if (const auto release = fields.Find("release")) read.release = release->Object(ReadSideLine);
    if (const auto continued = fields.Find("continued")) read.continued = continued->Object(ReadSideLine);
    return read;
  });
  const auto isParameter = [&form](const std::string& name) { return form.Find(name) != nullptr; };
  if (const auto found = std::ranges::find_if(lines.derived, isParameter); found != lines.derived.end())
    item.Fail(*found + " is a parameter of the form, so that no line derives it");
  Texts named = lines.untold;
  for (const SideLine& line : {lines.release, lines.continued})
    std::ranges::copy(NamesOf(line), std::back_inserter(named));
  if (const auto other = std::ranges::find_if_not(named, isParameter); other != named.end())
    item.Fail(*other + " is no parameter of the form");
  return lines;
}

void ReadActions(FormDefinition& form) {
  const Module* module = FindModule(form.command);
  if (module == nullptr) return;
  form.adds = module->SetInfo != nullptr;
  form.edits = module->EditInfo != nullptr;
  form.deletes = module->DeleteInfo != nullptr;
  form.generates = module->GenerateCmd != nullptr;
}

}  // namespace

Texts ShownColumns(const FormDefinition& form) {
  Texts shown;
  std::ranges::copy_if(form.columns, std::back_inserter(shown),
                       [&form](const std::string& column) { return form.Shows(column); });
  return shown;
}

FormDefinition ReadForm(const std::string& command, const DataItem& file) {
  return file.Object([&](Fields& fields) {
    FormDefinition form{.command = command,
                        .title = fields.Get<std::string>("title"),
                        .help = fields.Get<std::string>("help"),
                        .table = {},
                        .columns = {}};
    ReadRecord(form, fields, file);
    form.parameters = ReadParameters(command, fields.At("parameters"));
    form.foldings = FoldingsOf(form, file, fields.Find("folding"));
    form.shown = ShownColumns(form);
    form.inStep = fields.Get("inStep", std::vector<Texts>());
    form.oneOf = fields.Get("oneOf", std::vector<Texts>());
    form.ordered = fields.Get("ordered", false);
    form.single = fields.Get("single", false);
    form.key = ReadKey(form, fields.Find("key"));
    if (const auto after = fields.Find("after")) {
      form.handling = after->Object([](Fields& of) {
        return RecordHandling{.removeRowAfterDelete = of.Get("removeRowAfterDelete", false),
                              .writeAfterEdit = of.Get("writeAfterEdit", Texts())};
      });
    }
    if (const auto lines = fields.Find("lines")) form.lines = ReadLines(form, *lines);
    if (const auto templates = fields.Find("templates")) {
      form.templates = templates->Object([](Fields& of) {
        return TemplatesOf{.command = of.Get<std::string>("command"), .name = of.Get<std::string>("name")};
      });
    }
    if (const auto assumed = fields.Find("assumed")) {
      for (const auto& [name, value] : assumed->Entries()) form.assumed.push_back({name, value.Text()});
    }
    ReadActions(form);
    if (const auto second = fields.Find("second")) ReadSecondTable(form, *second);
    return form;
  });
}

}  // namespace cordboard::workbench
