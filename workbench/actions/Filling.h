// Filling in a form: its values are set one after the other with the checks that a form runs, then the form is looked
// at as a whole. What stands in the way, and what the user should know of, is gathered on the way.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "workbench/actions/UserAction.h"
#include "workbench/forms/ValueList.h"

namespace cordboard::workbench {

class Filling {
 public:
  // Opens an empty form that is to be given these values. A session has one form: to open the next one ends this one.
  Filling(Session& session, const FormDefinition& definition, std::vector<Assignment> given = {});

  Session& session() const { return session_; }
  const Form& form() const { return session_.form(); }
  const FormDefinition& definition() const { return form().definition(); }
  const std::vector<Assignment>& given() const { return given_; }
  bool IsGiven(const std::string& name) const;

  // Sets all that is given. "next" gives way to the values that it stands for; a value that the form holds already
  // changes nothing, and so nothing is checked.
  void SetGiven();
  // Sets one value: it has to be of the form, free of quotes, of as many elements as the form takes, in its list of
  // valid values, and past its static check.
  void Set(const Assignment& assignment);

  // The list of valid values of a parameter as it now is; nothing where there is none. What the library reports while
  // it builds the list is a problem of the value, and there is no list then.
  const ValueList* ListOf(const std::string& parameter, const std::string& value = "");

  // Whether the values of a parameter were found in its list.
  bool IsFromList(const std::string& parameter) const { return fromList_.contains(parameter); }

  // Neither tells the value of a parameter that is secret, or that the form does not have.
  void Refuse(Problem problem);
  void Refuse(const Assignment& assignment, std::string message);
  void Warn(Problem problem);
  void Warn(const Assignment& assignment, std::string message);

  // A text of the library with *** in the place of each secret that the form holds or is given.
  std::string WithoutSecrets(std::string text) const;
  // What the library has traced since the form was opened, without secrets.
  std::vector<std::string> TakeDebugLines();

  bool IsRefused() const { return !problems_.empty(); }
  const std::vector<Problem>& problems() const { return problems_; }
  const std::vector<Problem>& warnings() const { return warnings_; }
  // The values that "next" stood for.
  const std::vector<Assignment>& taken() const { return taken_; }

 private:
  Problem Told(Problem problem) const;
  bool IsPossible(const ParameterDefinition& parameter, const Assignment& assignment);
  void CheckAgainst(const ValueList& list, const Assignment& assignment, const std::vector<std::string>& elements);
  void RunCheck(const Assignment& assignment);
  void CheckTogether(const Assignment& assignment);

  Session& session_;
  std::vector<Assignment> given_;
  std::vector<Problem> problems_;
  std::vector<Problem> warnings_;
  std::vector<Assignment> taken_;
  std::set<std::string> fromList_;
};

// The form of a record to be added, with these values. Where one record stands for the whole exchange, the form shows
// it: what is given is checked together with the rest of it. Given a template's name, it shows the template.
Filling FillForm(Session& session, const FormDefinition& definition, std::vector<Assignment> given,
                 const std::string& from = "");

// The messages that the library has reported, as problems of a value or of the action as a whole.
std::vector<Problem> TakeMessages(Session& session, const Assignment& about = {});

}  // namespace cordboard::workbench
