// What a command's form is: its parameters, its record and what the record handling does (data/forms/<COMMAND>.json).
// What the command serves, and which digits a name tells, is not said there again (workbench/forms/FormReader.h).
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "workbench/text/NameHash.h"

namespace cordboard::workbench {

struct DatabaseSchema;

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

// What the record handling does after an action, where the command's rules leave it to the host.
struct RecordHandling {
  bool removeRowAfterDelete = false;
  std::vector<std::string> writeAfterEdit = {};  // columns that an edit leaves as they were
};

// The command whose records are templates for those of another, and the parameter that has a template's name.
struct TemplatesOf {
  std::string command;
  std::string name;
};

// What stands in the place of a secret.
inline constexpr const char* hiddenValue = "***";

// What an add is given, or what selects a record, in the order typed.
struct Assignment {
  std::string name;
  std::string value;
};

// A line that stands beside another one of the same record. It has these parameters alone.
struct SideLine {
  std::vector<std::string> key;  // in which the two lines agree; none: records of the command have one line each
  Assignment with;               // by which such a line is known
  std::string further = {};      // whose values it adds to those of the other line
};

// In what the lines of a command differ from what its form takes, so that an exchange's lines can be read.
struct LineForm {
  std::vector<std::string> derived = {};  // parameters of lines alone: their values follow from the record
  std::vector<std::string> untold = {};   // parameters that lines do not tell, and on which the derived ones depend
  std::string from = {};                  // the command whose records give the lines, where it is another one
  SideLine release = {};                  // in front of a line that uses a key: it takes the function off the key
  SideLine continued = {};                // behind a line that is full
};

struct FormDefinition {
  std::string command;
  std::string title;
  std::string help;                  // one sentence
  std::string table;                 // the table of its records
  std::string database = "dynamic";  // in which the table stands: "site" for templates
  std::vector<std::string> columns;  // the columns that "SetInfo" is given, "CMDID" first
  ParameterList parameters = {};
  std::vector<std::string> key = {};  // the parameters that tell one record from another, as far as it has them
  FoldingList foldings = {};
  RecordHandling handling = {};
  LineForm lines = {};
  TemplatesOf templates = {};                         // no command: records are not made from templates
  std::vector<std::vector<std::string>> inStep = {};  // parameters whose values go together by their place
  std::vector<std::vector<std::string>> oneOf = {};   // sets of parameters, of which one has to be given whole
  // Some commands keep their records in two tables: a record for which one parameter is given stands in the second.
  // `second` is the form of those records, the same but for its table and its columns.
  std::shared_ptr<const FormDefinition> second = {};
  std::string secondWith = {};
  std::vector<std::string> elsewhere = {};  // parameters that only the records of the other table have
  std::vector<Assignment> assumed = {};     // what rules read or reset though the form does not show it
  std::string prepared = {};                // where rows stand before they are filled in: the one column they have
  bool ordered = false;  // values are set in the order of the parameters, whatever the order in which they are typed
  bool single = false;   // one record for the whole exchange: an add shows and changes the record that stands
  bool adds = false;
  bool edits = false;
  bool deletes = false;
  bool generates = false;

  const DatabaseSchema& Database() const;
  std::string Rows() const;  // what stands in a FROM for the rows of its records
  const ParameterDefinition* Find(std::string_view name) const;
  bool Knows(std::string_view name) const;         // whether it is a parameter, or assumed
  bool Shows(std::string_view column) const;       // whether the column is a parameter, or a whole of such
  std::size_t Place(std::string_view name) const;  // of a parameter in the order; after all for an unknown one
  bool IsSecret(std::string_view name) const;
  // The value as a message may tell it: *** for a secret, and nothing where the form does not have the name, which may
  // be that of a secret mistyped.
  std::string Told(const Assignment& assignment) const;
  bool IsElsewhere(std::string_view name) const;  // whether it, or the whole that it is a digit of, is in `elsewhere`
  const Folding* FoldingOf(std::string_view parameter) const;   // of a whole parameter, the first
  const Folding* FoldingWith(std::string_view subDigit) const;  // that a sub-digit parameter belongs to
  // The form of each table, the first one's first; the form of the record that has these values.
  std::vector<const FormDefinition*> OfEachTable() const;
  const FormDefinition& OfRecordWith(const std::vector<Assignment>& values) const;
};

// The forms of all commands that are built, by command name.
const FormDefinition* FindForm(std::string_view command);
std::vector<const FormDefinition*> Forms();

}  // namespace cordboard::workbench
