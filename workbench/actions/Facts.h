// What the exchange tells of the values of one parameter: a record has them, there are no such things, or they are
// free. What is the same of several is told once. Each look costs some look-ups.
#pragma once

#include <string>
#include <vector>

#include "workbench/actions/Filling.h"
#include "workbench/exchange/References.h"

namespace cordboard::workbench {

class Facts {
 public:
  Facts(Filling& filling, const std::string& parameter);

  // Finds out what there is to tell of the value.
  void Look(const std::string& value);
  // Only whether a record has the value.
  void LookWhoHas(const std::string& value);
  // Whether it begins another string of digits, as none may.
  void LookForBeginning(const std::string& value);
  // Whether it lies in a range that is blocked.
  void LookForRange(const std::string& value);

  // "300 is used by the key extension DIR=300 (KSEXI); no series holds 999". Nothing where nothing was found.
  std::string Told() const;

 private:
  // What is told of one value, and of several of which the same is true; {} stands for them.
  struct Fact {
    std::string ofOne;
    std::string ofSeveral;
    std::vector<std::string> values = {};

    std::string Told() const;
  };

  Exchange& exchange() { return filling_.session().exchange(); }
  void Add(const std::string& ofOne, const std::string& ofSeveral, const std::string& value);
  bool IsTheKeyOfAnother(const std::string& value);
  bool IsSetUp(const std::string& value);
  void LookFor(const Thing& thing, bool takes, const std::string& value);
  void IsMissing(const Thing& thing, const std::string& value);
  bool IsTaken(const Thing& thing, const std::string& value);

  Filling& filling_;
  std::string parameter_;
  const Reference* reference_;
  const Thing* defined_;
  const RecordKind* record_;
  std::vector<Fact> facts_;
};

}  // namespace cordboard::workbench
