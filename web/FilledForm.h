// The form of a command, filled in as far as it is, as a page shows it: its fields (web/FormFields.h), the templates
// that it may be made from, and what it is sent with.
#pragma once

#include <vector>

#include "web/Frame.h"
#include "web/SentForm.h"

namespace cordboard::web {

// `errors` and `warnings` are told at the fields of their parameters.
Html FilledForm(const Visit& visit, const SentForm& sent, workbench::Filling& filling,
                const std::vector<workbench::Problem>& errors, const std::vector<workbench::Problem>& warnings);

// The same form as values that nobody sees, so that what stands around it can be sent on with it.
Html HiddenForm(const SentForm& sent);

// Which form it is: "KSEXI: add", "KSEXI: change DIR=100".
std::string TitleOf(const SentForm& sent);

}  // namespace cordboard::web
