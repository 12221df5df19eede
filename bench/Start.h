// What a start of the program costs on a new exchange, in instructions, as valgrind counts them.
#pragma once

#include <string>

namespace cordboard::bench {

// `program` is cordboard.
void MeasureStart(const std::string& program);

}  // namespace cordboard::bench
