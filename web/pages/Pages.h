// The pages of the site: one file each, named after the page. Each opens the exchange as it now is and answers one
// request; what cannot be answered ends with Failed.
#pragma once

#include "web/Request.h"
#include "web/Visit.h"

namespace cordboard::web {

// GET /: the commands by family, with how many records each has.
Answer Commands(const Visit& visit, const Request& request);

}  // namespace cordboard::web
