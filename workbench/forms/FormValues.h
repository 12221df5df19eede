// The values of a form: of the names that stand in its foldings by slot, since folding reads them often.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "script/Value.h"
#include "workbench/forms/FoldingList.h"
#include "workbench/text/NameHash.h"

namespace cordboard::workbench {

// A name that has no value has the empty one.
class FormValues {
 public:
  struct Entry {
    Value value = {};
    Value previous = {};
  };

  explicit FormValues(const FoldingList& foldings) : foldings_(foldings), bySlot_(foldings.slots()) {}

  // Null for a name that stands in no folding.
  const FoldedName* Find(const std::string& name) const { return foldings_.Find(name); }

  const Value& operator[](std::size_t slot) const { return bySlot_[slot].value; }
  void Set(std::size_t slot, Value value) {
    bySlot_[slot].value = std::move(value);
    ++state_;
  }

  // `folded` is what Find has given for the name.
  const Entry& Of(const std::string& name, const FoldedName* folded) const {
    static const Entry none;
    if (folded != nullptr) return bySlot_[folded->slot];
    const auto found = others_.find(name);
    return found == others_.end() ? none : found->second;
  }
  void Set(const std::string& name, const FoldedName* folded, Entry entry) {
    if (folded != nullptr) {
      bySlot_[folded->slot] = std::move(entry);
      ++state_;
    } else if (entry.value.IsEmpty() && entry.previous.IsEmpty()) {
      others_.erase(name);  // as if it had never been
    } else {
      others_[name] = std::move(entry);
    }
  }

  // Another one when a value with a slot may be another one.
  unsigned state() const { return state_; }

 private:
  FoldingList foldings_;
  std::vector<Entry> bySlot_;
  ByName<Entry> others_;
  unsigned state_ = 1;
};

}  // namespace cordboard::workbench
