// The parameters of a form: what each takes, and what the form and the library do with it.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/text/NameHash.h"

namespace cordboard::workbench {

// The table that marks in its column USED which values are taken.
struct Pool {
  std::string table;
  std::string column;
};

// Another parameter of the form that narrows a list while it has a value: the statement gives what does not go with the
// value.
struct Narrowing {
  std::string by;
  std::string without;
};

// Whole numbers from the one to the other.
struct Numbers {
  long from = 0;
  long to = 0;

  bool Has(std::string_view text) const;
};

// What a value is made of where no list says so. A word has no sign of the line language, whatever else it holds.
enum class Characters { Word, Any, Digits, Dialled, Hexadecimal };

struct ParameterDefinition {
  std::string name;
  std::string title;
  bool mandatory = false;
  bool multiple = false;  // takes several values, "1&2&5"
  bool range = false;     // takes a range, "100&&199"
  bool list = false;      // the command builds a list of valid values for it
  bool fixed = false;     // its values are the fixed ones of the release, though the command builds no list
  bool check = false;     // the command has a static check for it
  bool text = false;      // reads as the empty text, not as empty, where no value was given
  bool reuse = false;     // a value that a record has is possible as well, though the list has it no more
  // Several values make a record each, so that an edit, which changes one record, takes one value.
  bool oneInEdit = false;
  bool unique = false;        // no two records have the same value
  bool firstToRules = false;  // a rule that reads it is given the first of several values
  bool onlyGiven = false;     // rules that ask for its values are told where it has none, and turn to another
  bool next = false;          // "next" and "next:20" stand for the first values of its list
  bool addOnly = false;       // is given when a record is added; an edit cannot change it
  bool address = false;       // is an address of the data network, "10.0.0.5"
  bool secret = false;        // is shown as ***, unless a user asks for it
  Characters characters = Characters::Word;
  std::size_t ofSeries = 1;  // how many parameters, of which the form speaks as one, differ in a number alone

  // Whether its value is taken apart at "&": elsewhere the sign is part of the value.
  bool TakesElements() const { return multiple || range; }

  std::string otherwise = {};              // what a record gets where none is given, where rules put that
  std::vector<std::string> releases = {};  // that have the parameter; none named: all of them
  std::optional<Pool> pool = {};           // "next" passes over what is taken there
  std::optional<Narrowing> narrowing = {};
  std::optional<Numbers> beside = {};  // are possible as well as what is listed

  bool IsIn(std::string_view release) const;
};

// A flag of a parameter: what the form, the help and the pages know it by.
struct ParameterFlag {
  enum class Source { Form, Library };  // said in the form, or told by what the command serves

  const char* key;
  bool ParameterDefinition::*flag;
  Source source;
  const char* words;  // what a user reads, typed text in back quotes; nothing where he need not know
};

// All of them, in the order in which users read them.
std::span<const ParameterFlag> ParameterFlags();

// The parameters of a form, in order, and found by their names, which stay as they were when they came in.
class ParameterList {
 public:
  ParameterList() = default;
  ParameterList(std::vector<ParameterDefinition> parameters);

  auto begin() const { return all_.begin(); }
  auto end() const { return all_.end(); }
  std::size_t size() const { return all_.size(); }
  const ParameterDefinition& operator[](std::size_t place) const { return all_[place]; }
  ParameterDefinition& operator[](std::size_t place) { return all_[place]; }
  ParameterDefinition& front() { return all_.front(); }
  ParameterDefinition& back() { return all_.back(); }
  void push_back(ParameterDefinition parameter);

  // After all of them for a name that there is not.
  std::size_t PlaceOf(std::string_view name) const;

 private:
  std::vector<ParameterDefinition> all_;
  ByName<std::size_t> places_;
};

}  // namespace cordboard::workbench
