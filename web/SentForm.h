// The form of a command as a page sends it: what its user has given, in the order in which it came, and what the page
// had shown. Fields of the page:
//   command       whose form it is
//   of            the selection of the record that is changed (web/Selecting.h)
//   edit          "1" where a record is changed though no selection tells it: the one of the whole exchange
//   from          the template that is added from, if any
//   given         the names of what was given before, with commas
//   shown         what each field had in it when the page was made, as one text (Fields::Encoded)
//   mark          of the exchange as it stood then (StateStore::Mark)
//   v.NAME        what is in the field of a parameter now
//   clear         the names of secrets that are to be cleared: their fields do not show what is stored
#pragma once

#include <string>
#include <vector>

#include "web/Request.h"
#include "workbench/actions/Filling.h"

namespace cordboard::web {

class SentForm {
 public:
  // Fails with Failed where the fields are not those of a form, such as a value of more than one line.
  explicit SentForm(const Fields& fields);

  const workbench::FormDefinition& form() const { return *form_; }
  const std::vector<workbench::Assignment>& selection() const { return selection_; }
  const std::vector<workbench::Assignment>& given() const { return given_; }
  const std::string& from() const { return from_; }
  const std::string& mark() const { return mark_; }
  void SetMark(std::string mark) { mark_ = std::move(mark); }
  bool IsEdit() const { return isEdit_; }
  // It is this record that is changed from now on.
  void Select(std::vector<workbench::Assignment> selection) {
    selection_ = std::move(selection);
    isEdit_ = true;
  }

  // What is given for a parameter; null where nothing is.
  const workbench::Assignment* Find(const std::string& name) const;

  workbench::UserAction Action() const;

  // Opens the form in the session and sets what is given, but for one parameter where that is said. Fails with Failed
  // where there is no such record.
  workbench::Filling Fill(workbench::Session& session, const std::string& without = "") const;

 private:
  void ReadGiven(const Fields& fields);
  void DropPartsOf(const std::string& whole);

  const workbench::FormDefinition* form_;
  std::vector<workbench::Assignment> selection_;
  bool isEdit_;
  std::vector<workbench::Assignment> given_;
  std::string from_;
  std::string mark_;
};

}  // namespace cordboard::web
