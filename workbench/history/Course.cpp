#include "workbench/history/Course.h"

#include <algorithm>
#include <iterator>

namespace cordboard::workbench {

namespace {

// The state of a number; null where it is older than what is kept.
State* Find(std::vector<State>& states, int number) {
  const auto found = std::ranges::find(states, number, &State::number);
  return found == states.end() ? nullptr : &*found;
}

void TakeBack(std::vector<State>& states, State& undo, Course& course) {
  const auto from = std::ranges::lower_bound(course.held, undo.note.of);
  undo.concerns.assign(from, course.held.end());
  course.held.erase(from, course.held.end());
  for (const int number : undo.concerns) Find(states, number)->takenBackBy = undo.number;
  course.undone.push_back(undo.number);
}

void BringAgain(std::vector<State>& states, State& redo, Course& course) {
  if (!course.undone.empty()) course.undone.pop_back();
  const State* undo = Find(states, redo.note.of);
  if (undo == nullptr) return;
  redo.concerns = undo->concerns;
  for (const int number : redo.concerns) {
    Find(states, number)->takenBackBy = 0;
    course.held.push_back(number);
  }
}

}  // namespace

Course FollowCourse(std::vector<State>& states) {
  Course course;
  for (State& state : states) {
    switch (state.note.kind) {
      case StateKind::New:
      case StateKind::Start:
      case StateKind::Outside: course = {}; break;
      case StateKind::Apply:
      case StateKind::Plant:
        course.held.push_back(state.number);
        course.undone.clear();
        break;
      case StateKind::Undo: TakeBack(states, state, course); break;
      case StateKind::Redo: BringAgain(states, state, course); break;
    }
  }
  return course;
}

}  // namespace cordboard::workbench
