// One line of a plan, in the exchange's own notation:
//
//   NANSI:NUMTYP=EX,NUMSE=100&&199;      adds
//   KSEXI from Office:DIR=100,ITYPE=3;   adds from a template: its values, and over them what the line gives
//   edit KSEXI DIR=100:CUST=3;           changes the record that the parameters before the colon select
//   delete KSEXI DIR=100;                removes it
//
// A value ends at a comma or the semicolon; in double quotes it may hold both ("" stands for one double quote). After
// the semicolon only a comment (#) may follow.
#pragma once

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// A line that cannot be read; the message says what is wrong with it, and where, but tells no text of it.
class PlanLineError : public std::runtime_error {
 public:
  explicit PlanLineError(const std::string& message, std::optional<std::size_t> column = {}, bool isUnended = false)
      : std::runtime_error(message), column_(column), isUnended_(isUnended) {}

  std::optional<std::size_t> column() const { return column_; }  // from 1 on, in characters, where the message has one
  bool isUnended() const { return isUnended_; }                  // what is missing may stand in a row that follows

 private:
  std::optional<std::size_t> column_;
  bool isUnended_;
};

// The longest line that is read, in bytes.
inline constexpr std::size_t longestLine = 65536;

// The next line of a plan as it is written, cut where it is longer than any line may be, so that a hostile file costs
// no memory. Gives false behind the last.
bool NextLine(std::istream& in, std::string& line);
// The same for the first line: without the mark that some editors put in front of UTF-8 text.
bool FirstLine(std::istream& in, std::string& line);

// Reads a line. Nothing for a blank line or a comment.
std::optional<UserAction> ParsePlanLine(std::string_view line);

// The same; nothing for a line that cannot be read as well.
std::optional<UserAction> ReadableLine(std::string_view line);

// A stretch of a line, in characters; the first has the column 1.
struct Stretch {
  std::size_t column = 1;
  std::size_t width = 1;
};
// Where the value of a parameter stands in a line that can be read, or the element of it that has this text: of several
// parameters of that name the one that has it, or the last. The command for no name. Nothing where it is not there.
std::optional<Stretch> FindInLine(std::string_view line, const std::string& parameter, const std::string& value);

// A value as a line has it: in double quotes where it holds a sign of the notation, or a blank at an end.
std::string WrittenValue(const std::string& value);

// An action as a line of a plan: what ParsePlanLine reads as the same action, unless a value holds a line end.
std::string WrittenLine(const UserAction& action);

// A parameter as the command line of the program takes it: NAME=value. The message says what is wrong, not with which.
Assignment ParseAssignment(std::string_view text);

}  // namespace cordboard::workbench
