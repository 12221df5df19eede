#include "cli/shell/Typed.h"

#include "workbench/plans/PlanLine.h"

namespace cordboard::cli::shell {

namespace {

constexpr std::string_view blanks = " \t\r";

bool IsBlank(std::string_view row) {
  const std::size_t first = row.find_first_not_of(blanks);
  return first == row.npos || row[first] == '#';
}

}  // namespace

bool IsLine(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == text.npos) return false;
  text.remove_prefix(first);
  const std::string_view word = text.substr(0, text.find_first_of(" \t\r:;"));
  return word == "edit" || word == "delete" || text.front() < 'a' || text.front() > 'z';
}

std::string RowsOf(const std::string& text) {
  std::string rows;
  for (const char c : text) rows += c == '\n' ? "\\\n" : std::string(1, c);
  return rows;
}

bool Typed::Add(std::string_view row) {
  row = row.substr(0, row.find_last_not_of('\r') + 1);
  if (IsBlank(row)) return false;
  const bool goesOn = row.ends_with('\\');
  if (goesOn) row.remove_suffix(1);
  text_ += between_;
  if (between_ == "\n") lastLine_ = text_.size();
  text_ += row;
  ++rows_;
  const bool isWhole = IsWhole();
  between_ = !goesOn ? " " : isWhole && IsLine(text_) ? "\n" : "";
  return isWhole && !goesOn;
}

std::string Typed::LineWith(std::string_view row) const {
  if (between_ == "\n") return std::string(row);
  return text_.substr(lastLine_) + between_ + std::string(row);
}

bool Typed::IsWhole() const {
  if (!IsLine(text_)) return true;
  try {
    workbench::ParsePlanLine(std::string_view(text_).substr(lastLine_));
    return true;
  } catch (const workbench::PlanLineError& error) {
    return !error.isUnended();
  }
}

}  // namespace cordboard::cli::shell
