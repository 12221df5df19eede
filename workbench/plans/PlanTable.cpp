#include "workbench/plans/PlanTable.h"

#include <algorithm>

#include "script/Text.h"
#include "workbench/forms/Unknown.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Quoted.h"
#include "workbench/text/Separated.h"
#include "workbench/text/Utf8.h"

namespace cordboard::workbench {

namespace {

using Texts = std::vector<std::string>;

constexpr std::string_view signs = "\",\r\n";

// Takes the cells of a row from left to right.
class Cells {
 public:
  explicit Cells(std::string_view line) : line_(line), rest_(line) {}

  Texts All() {
    Texts cells = {Next()};
    while (rest_.starts_with(',')) {
      rest_.remove_prefix(1);
      cells.push_back(Next());
    }
    if (!rest_.empty()) Refuse("a comma is missing behind the double quote");
    return cells;
  }

 private:
  std::string Next() {
    if (rest_.starts_with('"')) {
      if (auto cell = TakeQuoted(rest_)) return *cell;
      Refuse("a double quote is opened and not closed in its line");
    }
    std::string cell(rest_.substr(0, rest_.find(',')));
    if (const std::size_t quote = cell.find('"'); quote != cell.npos) {
      rest_.remove_prefix(quote);
      Refuse("a double quote stands within a cell that does not begin with one");
    }
    rest_.remove_prefix(cell.size());
    return cell;
  }

  [[noreturn]] void Refuse(const std::string& message) const {
    const std::size_t column = Length(line_.substr(0, line_.size() - rest_.size())) + 1;
    throw PlanLineError(message + " at column " + std::to_string(column));
  }

  std::string_view line_;
  std::string_view rest_;
};

Texts CellsOf(std::string_view line) {
  if (line.size() > longestLine)
    throw PlanLineError("the line is longer than " + std::to_string(longestLine) + " bytes");
  if (!IsUtf8(line)) throw PlanLineError("the line is not UTF-8 text");
  if (line.find('\0') != line.npos) throw PlanLineError("the line holds a zero character");
  return Cells(line).All();
}

std::string WrittenCell(const std::string& value) {
  return value.find_first_of(signs) == value.npos ? value : Quoted(value);
}

bool IsBlank(std::string_view line) { return line.find_first_not_of(" \t,") == line.npos; }

}  // namespace

void TableReader::ReadHeadings(std::string_view line) {
  hasHeadings_ = true;
  if (line.find(';') != line.npos)
    throw PlanLineError(
        "the first line has the names of parameters with commas between them, not semicolons; no row is "
        "read");
  Texts names = CellsOf(line);
  for (const std::string& name : names) {
    if (name.empty()) throw PlanLineError("a column has no heading; no row is read");
    if (form_->Find(name) == nullptr) throw PlanLineError("no row is read: " + UnknownParameter(*form_, name));
    if (std::ranges::count(names, name) > 1)
      throw PlanLineError("two columns have the heading " + name + "; no row is read");
  }
  parameters_ = std::move(names);
}

std::optional<UserAction> TableReader::Read(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  if (!hasHeadings_) {
    ReadHeadings(line);
    return std::nullopt;
  }
  if (parameters_.empty() || IsBlank(line)) return std::nullopt;
  Texts cells = CellsOf(line);
  if (cells.size() != parameters_.size())
    throw PlanLineError("the row has " + Counted(cells.size(), "cell") + " under " +
                        Counted(parameters_.size(), "heading"));
  UserAction add{.command = form_->command, .selection = {}, .values = {}};
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!cells[i].empty()) add.values.push_back({parameters_[i], std::move(cells[i])});
  }
  return add;
}

std::string WrittenTable(const FormDefinition& form, const std::vector<UserAction>& adds) {
  Texts columns;
  for (const ParameterDefinition& parameter : form.parameters) {
    const auto gives = [&](const UserAction& add) {
      return std::ranges::find(add.values, parameter.name, &Assignment::name) != add.values.end();
    };
    if (std::ranges::any_of(adds, gives)) columns.push_back(parameter.name);
  }
  std::string text = Separated(columns, ",") + "\n";
  for (const UserAction& add : adds) {
    const auto cell = [&](const std::string& column) {
      const auto value = std::ranges::find(add.values, column, &Assignment::name);
      return value == add.values.end() ? "" : WrittenCell(value->value);
    };
    text += Separated(columns, ",", cell) + "\n";
  }
  return text;
}

}  // namespace cordboard::workbench
