// The pages of the site: one file each, named after the page. Each opens the exchange as it now is and answers one
// request; what cannot be answered ends with Failed.
#pragma once

#include "web/Request.h"
#include "web/Visit.h"

namespace cordboard::web {

// GET /: the commands by family, with how many records each has.
Answer Commands(const Visit& visit, const Request& request);

// GET /form: the form of a command, to add a record or to change the one that is selected.
Answer OpenForm(const Visit& visit, const Request& request);
// POST /form: the same as it is filled in, checked. Its script gets the form alone.
Answer CheckForm(const Visit& visit, const Request& request);
// POST /values: the values that are valid for "parameter" as the form is filled in, of which "q" is a part.
Answer Values(const Visit& visit, const Request& request);
// POST /try and /act: what the action of a form will do, and doing it.
Answer TryAction(const Visit& visit, const Request& request);
Answer DoAction(const Visit& visit, const Request& request);
// GET and POST /delete: what a deletion will do, and doing it.
Answer ConfirmDelete(const Visit& visit, const Request& request);
Answer Delete(const Visit& visit, const Request& request);

}  // namespace cordboard::web
