// What has become of records, as a table that a page shows.
#pragma once

#include <vector>

#include "web/Html.h"
#include "workbench/actions/Changes.h"

namespace cordboard::web {

// A row for each record: what became of it, which it is, and its columns from what they were to what they are. Secrets
// are hidden. Of more than `most` the others are counted.
Html ChangedRecords(const std::vector<workbench::RecordChange>& changes, std::size_t most = 500);

}  // namespace cordboard::web
