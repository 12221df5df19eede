// The fields of a form as a page shows it: each with what is asked of it now and what is wrong, digits beside the whole
// that they make.
#pragma once

#include <vector>

#include "web/Fields.h"
#include "web/Html.h"
#include "web/SentForm.h"

namespace cordboard::web {

struct FormFields {
  Html html;
  Fields shown;  // what each field has in it
};

// `errors` and `warnings` are told at the fields of their parameters.
FormFields WriteFields(const SentForm& sent, workbench::Filling& filling, const std::vector<workbench::Problem>& errors,
                       const std::vector<workbench::Problem>& warnings);

}  // namespace cordboard::web
