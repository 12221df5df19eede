// The rules of a whole form: each is a function, and stands in a list. Those of one value stand in ValueRules.
#pragma once

namespace cordboard::workbench {

class Filling;

// Parameters that add up to the same digits are given together, over a whole that the form shows already.
void SharedDigitsAreGivenTogether(Filling& filling);
// What an edit must not do. Looks at the record as it is stored, before anything is set.
void CheckEdit(Filling& filling);
// What the form asks for once all values are set.
void CheckWholeForm(Filling& filling);

}  // namespace cordboard::workbench
