// Parameters that are parts of others: their digits, or pieces with a separator between them.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "workbench/text/NameHash.h"

namespace cordboard::workbench {

// Some digits of a whole parameter, entered on the form as sub-digit parameters. Several that share the same digits add
// up, each to as many digits as the place has; a sum of 10 to 15 in one digit is a letter from A. Where one parameter
// is the place as a whole, the others are its parts: either it is given or they are.
struct DigitPlace {
  int first = 1;  // position of the first digit, from 1
  int width = 1;
  std::vector<std::string> parameters;
  std::string digit = {};  // the parameter that is the place as a whole, beside its parts

  // The slots of these names (FoldingList).
  std::vector<std::size_t> slots = {};
  std::size_t digitSlot = 0;

  bool Has(std::string_view name) const;
};

// A whole parameter that the form folds from sub-digit parameters. Digits without a place, or not given, are the fill.
// A whole may have several foldings, of which the one holds whose parameters are given, or that is the one of the
// whole's active definition.
// With a separator the whole is no row of digits but its parts as they are typed, one parameter each, with the
// separator between them ("200-A1"). All parts have to be given, unless the whole is a list: of that any are, and each
// may be a whole of its own.
struct Folding {
  std::string parameter;
  int length = 0;
  char fill = '0';
  std::vector<DigitPlace> places = {};
  std::string separator = {};
  bool isList = false;
  std::vector<std::string> sum = {};  // of a list: the numbers in its parts that add up to something
  int definition = 0;                 // of the whole, in which alone the folding holds; 0: in any
  std::size_t slot = 0;               // of the parameter (FoldingList)

  bool Has(std::string_view subDigit) const;
};

// A name that stands in foldings: of which it is the whole, in which it is a digit, and its slot.
struct FoldedName {
  std::size_t slot = 0;
  std::vector<const Folding*> of = {};
  std::vector<const Folding*> with = {};
};

// The foldings of a form, in order, and those that a name has to do with. Each name in them has a slot, a number from 0
// on by which a form keeps its value. A copy shares them.
class FoldingList {
 public:
  FoldingList();
  FoldingList(std::initializer_list<Folding> foldings) : FoldingList(std::vector<Folding>(foldings)) {}
  FoldingList(std::vector<Folding> foldings);

  auto begin() const { return kept_->all.begin(); }
  auto end() const { return kept_->all.end(); }
  const Folding& back() const { return kept_->all.back(); }
  std::size_t slots() const { return kept_->names.size(); }
  // Null for a name that stands in none.
  const FoldedName* Find(std::string_view name) const;
  const std::vector<const Folding*>& Of(std::string_view whole) const;
  const std::vector<const Folding*>& With(std::string_view subDigit) const;

 private:
  struct Kept {
    std::vector<Folding> all;  // which hold the names
    std::unordered_map<std::string_view, FoldedName, NameHash> names = {};
  };

  std::shared_ptr<const Kept> kept_;
};

}  // namespace cordboard::workbench
