// The library with the workbench against the statements that it runs, replayed straight into SQLite.
#pragma once

namespace cordboard::bench {

// Runs the workload and its replay in turn, round by round, and prints the medians.
void Compare(int series, int rounds);

}  // namespace cordboard::bench
