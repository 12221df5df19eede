// Reads a line of a plan from left to right, word by word, and passes over the blanks between words. A tab is a blank,
// and so is the carriage return, which is what is left of a line end of Windows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

bool IsBlank(char sign);

class LineReader {
 public:
  // The line has to outlive it.
  explicit LineReader(std::string_view line) : line_(line), rest_(line) { SkipBlanks(); }

  bool AtEnd() const { return rest_.empty(); }
  bool AtComment() const { return rest_.starts_with('#'); }
  // Whether one of these signs stands next, or nothing.
  bool AtOneOf(std::string_view signs) const { return AtEnd() || signs.find(rest_.front()) != signs.npos; }

  // Each gives whether what it wants stands next, and then passes over it.
  bool Take(char sign);
  // A word of the notation: it ends at a blank or at one of the signs behind it.
  bool TakeWord(std::string_view wanted);

  // A name ends at a blank or at one of the signs of the notation. It may be empty.
  std::string Name();
  // NAME=value, whose value ends at one of `ends`; `hint` is for who has typed no equals sign.
  Assignment NextAssignment(std::string_view ends, const std::string& hint);
  // A value ends at one of `ends`, or is in double quotes.
  std::string Content(std::string_view ends);

  // All assignments that were read, and where the value of each begins and ends.
  struct Assigned {
    Assignment assignment;
    std::size_t begin;
    std::size_t end;
  };
  const std::vector<Assigned>& assigned() const { return assigned_; }

  // Refuses the line for what stands next, with a PlanLineError. Its text is not told: in a line that cannot be read it
  // may be part of a secret.
  [[noreturn]] void Refuse(const std::string& message, const std::string& hint = "") const;
  // Of a position in the line, from 1, in characters.
  std::size_t Column(std::size_t position) const;

 private:
  std::size_t Position() const { return line_.size() - rest_.size(); }
  void Skip(std::size_t count);
  void SkipBlanks();

  std::string_view line_;
  std::string_view rest_;
  std::vector<Assigned> assigned_;
};

}  // namespace cordboard::workbench
