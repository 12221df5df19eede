// Records as the actions of a plan that add, change and remove them.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "workbench/actions/UserAction.h"
#include "workbench/plans/RecordTable.h"

namespace cordboard::workbench {

// Some columns of a table, by their places.
using Columns = std::vector<bool>;
Columns GivenIn(const Record& record);
// Those that an add has to tell: of sets of parameters of which one has to be given, the others follow from the first.
Columns ToldOf(const RecordTable& table, const Record& record);

// Runs of records, one after the other, each of which one line may make: they differ in one parameter that takes
// several values, or in those that go in step with it. A record that `begins` a run is none of the one before.
using Begins = std::function<bool(const Record& record)>;
std::vector<std::span<const Record>> Runs(const RecordTable& table, std::span<const Record> records,
                                          const Begins& begins = {});

// The add of a run that tells these columns.
UserAction AddOf(const RecordTable& table, std::span<const Record> run, const Columns& told);

UserAction EditOf(const RecordTable& table, const Record& before, const Record& now);

// The record is selected by its key, or by all that it has.
enum class Selected { ByKey, ByAll };
UserAction DeleteOf(const RecordTable& table, const Record& record, Selected selected);

}  // namespace cordboard::workbench
