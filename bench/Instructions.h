// The workload in instructions, which do not depend on what else the machine does.
#pragma once

#include <string>

namespace cordboard::bench {

// Prints those of each step, by action; `program` is the benchmark's own.
void MeasureInstructions(const std::string& program);

}  // namespace cordboard::bench
