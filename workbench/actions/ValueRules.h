// The rules of one value of a form: each is a function, and stands in a list.
#pragma once

#include <string>

namespace cordboard::workbench {

class Filling;
struct Assignment;

// Why a value cannot be set at all, whatever else the form holds; nothing where it can.
std::string WrongValue(const Filling& filling, const Assignment& assignment);
// Refuses the first given value that does not stand as it was given, once all are set and checked.
void GivenValuesStand(Filling& filling);

}  // namespace cordboard::workbench
