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

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// A line that cannot be read; the message says what is wrong with it, and where, but tells no text of it.
class PlanLineError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The longest line that is read, in bytes.
inline constexpr std::size_t longestLine = 65536;

// Reads a line. Nothing for a blank line or a comment.
std::optional<UserAction> ParsePlanLine(std::string_view line);

// The same; nothing for a line that cannot be read as well.
std::optional<UserAction> ReadableLine(std::string_view line);

// A value as a line has it: in double quotes where it holds a sign of the notation, or a blank at an end.
std::string WrittenValue(const std::string& value);

// An action as a line of a plan: what ParsePlanLine reads as the same action, unless a value holds a line end.
std::string WrittenLine(const UserAction& action);

// A parameter as the command line of the program takes it: NAME=value. The message says what is wrong, not with which.
Assignment ParseAssignment(std::string_view text);

}  // namespace cordboard::workbench
