// The cost of one more action as the tables grow.
//
// growth.json holds recipes, each for a command: "line" is a line of a plan that adds records, with {n} counting up
// from "first" and {position} for the positions of the plant, one after the other; "before" are lines that come first.
// "counts" are the numbers of records, 100, 1000 and 10,000 if not given. "board" is what the plant has: boards of one
// type with so many positions, "without" those that records do not take; 100 of the others, to the end of a board, are
// free at every count. What is measured are the "actions" and, for "lists", whether one value is in the list, its first
// ten values and, unless it is "long", the whole list, where the form is "given" some values; each is done several
// times in a row. In all of these {next} is a number after the last one used, {position} the position that goes with
// it, {used} a number that is used and {usedPosition} its position, all of them others in every turn; {middle} is used
// as well and always the same; {turn} counts the turns, in two digits; and {last} leaves 100 numbers free.
#pragma once

#include <string>

namespace cordboard::bench {

// Measures every recipe, or those for one command, in time and, where valgrind is there, in instructions. `program` is
// this program.
void MeasureGrowth(const std::string& program, const std::string& command = "");

// Does one of the things that are measured on an exchange that has the records, for valgrind to count.
void DoOnce(const std::string& file, std::size_t recipe, const std::string& what);

}  // namespace cordboard::bench
