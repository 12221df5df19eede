// Warnings of values that the rules take as they are, and that make lines which an exchange cannot take: each is a
// function, and stands in a list. None is asked of a value that was found in a list of valid values.
#pragma once

#include <string>

namespace cordboard::workbench {

class Filling;
struct Assignment;

// Looks at the values that are given, once they are set.
void WarnOfValues(Filling& filling);

// What is wrong with the number of digits of a whole that is typed as a row of digits; nothing where nothing is.
std::string WrongLength(const Filling& filling, const Assignment& assignment);

}  // namespace cordboard::workbench
