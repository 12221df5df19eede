// The cost of one more action as the tables grow.
//
// growth.json holds a recipe for each command: "line" is a line of a plan that adds records, with {n} counting up from
// "first" and {position} for the positions of the plant, one after the other; "before" are lines that come first. What
// is measured are the "actions" and, for "lists", whether one value is in the list and the whole list; each is done
// several times in a row. In all of these {next} is a number after the last one used and {used} one that is used, both
// another in every turn; {middle} is used as well and always the same; {turn} counts the turns, in two digits; and
// {last} leaves 100 numbers free.
#pragma once

#include <string>

namespace cordboard::bench {

// Measures every recipe with 100, 1000 and 10,000 records, in time and, where valgrind is there, in instructions.
// `program` is this program.
void MeasureGrowth(const std::string& program);

// Does one of the things that are measured on an exchange that has the records, for valgrind to count.
void DoOnce(const std::string& file, std::size_t recipe, const std::string& what);

}  // namespace cordboard::bench
