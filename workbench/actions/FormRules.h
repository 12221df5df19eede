// The rules of a form: each is a function, and stands in a list. Some are asked of one value, some of the whole form.
#pragma once

#include <string>

namespace cordboard::workbench {

class Filling;
struct Assignment;

// Why a value cannot be set at all, whatever else the form holds; nothing where it can.
std::string WrongValue(const Filling& filling, const Assignment& assignment);
// Parameters that add up to the same digits are given together, over a whole that the form shows already.
void SharedDigitsAreGivenTogether(Filling& filling);
// What an edit must not do. Looks at the record as it is stored, before anything is set.
void CheckEdit(Filling& filling);
// What the form asks for once all values are set.
void CheckWholeForm(Filling& filling);

}  // namespace cordboard::workbench
