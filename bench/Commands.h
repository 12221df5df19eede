// What each action and each list of each command costs, on an exchange that holds little (bench/LargeExchange.h) and on
// one that holds ten times as much. Counted are steps of the database, which depend on nothing else; the time of the
// processor stands beside them, since it alone tells of walks within the program.
#pragma once

namespace cordboard::bench {

void MeasureCommands();

}  // namespace cordboard::bench
