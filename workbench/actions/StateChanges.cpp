#include "workbench/actions/StateChanges.h"

#include "workbench/history/Recording.h"
#include "workbench/history/Undo.h"

namespace cordboard::workbench {

// The state is taken back unseen, and what that did is taken back again under the eyes of the changes.
StateChanges::StateChanges(Exchange& copy, int state) : changes_(copy) {
  GoBackTo(copy.Dynamic(), state);
  Recording recording(copy.Dynamic());
  recording.store().TakeBack(state);
  recording.Commit({.kind = StateKind::Undo, .of = state});
  changes_.Forget();
  GoBackTo(copy.Dynamic(), state);
  records_ = changes_.Take();
}

}  // namespace cordboard::workbench
