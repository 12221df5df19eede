// What has become of an exchange since a page was made.
#pragma once

#include <string>

#include "web/Html.h"
#include "web/Visit.h"

namespace cordboard::web {

// A notice that nothing was done, with the states that came since the one of this mark (StateStore::Mark).
Html ChangesSince(const Visit& visit, const std::string& mark);

}  // namespace cordboard::web
