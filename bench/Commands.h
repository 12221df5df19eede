// What each action of each command costs, by the lines of the example plans, on an exchange that holds little besides
// and on one that holds much: boards of every type with as many positions, as many numbers of each type, and as many
// records of each command that has a DIR. Counted are steps of the database, which depend on nothing else.
#pragma once

namespace cordboard::bench {

void MeasureCommands();

}  // namespace cordboard::bench
