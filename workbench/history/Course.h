// The course of a history: which of its states hold, and which were taken back.
#pragma once

#include <vector>

#include "workbench/history/State.h"

namespace cordboard::workbench {

struct Course {
  std::vector<int> held;    // the states that can be taken back, the first first
  std::vector<int> undone;  // the undos of which each can be taken back in turn, the last first of all
};

// The states come with the oldest first; `concerns` and `takenBackBy` of each are filled in.
Course FollowCourse(std::vector<State>& states);

}  // namespace cordboard::workbench
