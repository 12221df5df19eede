#include "web/SentForm.h"

#include <algorithm>
#include <sstream>

#include "web/Selecting.h"
#include "workbench/actions/ShownValues.h"

namespace cordboard::web {

using workbench::Assignment;
using workbench::Filling;

SentForm::SentForm(const Fields& fields)
    : form_(&FormOf(fields)),
      selection_(SelectionOf(fields)),
      isEdit_(!selection_.empty() || fields["edit"] == "1"),
      from_(OneLine(fields["from"])),
      mark_(OneLine(fields["mark"])) {
  if (IsEdit() ? !form_->edits : !form_->adds)
    throw Failed(NotFound, "Records of " + form_->command + " cannot be " + (IsEdit() ? "changed." : "added."));
  ReadGiven(fields);
}

// What was given stays so until its field is emptied. A field in which something else stands than was shown is given
// from now on, also where a check had set it.
void SentForm::ReadGiven(const Fields& fields) {
  const auto shown = Fields::Read(fields["shown"]);
  if (!shown) throw Failed(BadRequest, "The form cannot be read.");
  // A tab, as it comes from a table, is a blank.
  const auto now = [&](const std::string& name) {
    std::string value = fields["v." + name];
    std::ranges::replace(value, '\t', ' ');
    return OneLine(value);
  };
  const std::vector<std::string> cleared = fields.Each("clear");
  const auto give = [&](const std::string& name) {
    if (Find(name) == nullptr) given_.push_back({name, now(name)});
  };
  std::istringstream before(fields["given"]);
  for (std::string name; std::getline(before, name, ',');) {
    if (form_->Find(name) == nullptr || !fields.Has("v." + name)) continue;
    const bool isEmptied = now(name).empty() && !(*shown)[name].empty();
    if (form_->IsSecret(name) ? !now(name).empty() : IsEdit() || !isEmptied) give(name);
  }
  for (const auto& [field, value] : fields) {
    if (!field.starts_with("v.")) continue;
    const std::string name = field.substr(2);
    if (form_->Find(name) == nullptr) throw Failed(BadRequest, "The form has no such field.");
    const bool wasGiven = ("," + fields["given"] + ",").find("," + name + ",") != std::string::npos;
    const bool isCleared = std::ranges::find(cleared, name) != cleared.end() && value.empty();
    if (!isCleared && now(name) == (*shown)[name]) continue;
    // What was given keeps its place; but who types a whole means it as it is, whatever digits he has given before.
    if (wasGiven && !isCleared && (form_->FoldingOf(name) == nullptr || Find(name) == nullptr)) continue;
    std::erase_if(given_, [&](const Assignment& given) { return given.name == name; });
    DropPartsOf(name);
    give(name);
  }
}

void SentForm::DropPartsOf(const std::string& whole) {
  std::erase_if(given_, [&](const Assignment& given) {
    const workbench::Folding* folding = form_->FoldingWith(given.name);
    while (folding != nullptr && folding->parameter != whole) folding = form_->FoldingWith(folding->parameter);
    return folding != nullptr && !folding->isList;
  });
}

const Assignment* SentForm::Find(const std::string& name) const {
  const auto found = std::ranges::find(given_, name, &Assignment::name);
  return found == given_.end() ? nullptr : &*found;
}

workbench::UserAction SentForm::Action() const {
  return {.kind = IsEdit() ? workbench::UserAction::Kind::Edit : workbench::UserAction::Kind::Add,
          .command = form_->command,
          .selection = selection_,
          .values = given_,
          .from = from_};
}

Filling SentForm::Fill(workbench::Session& session, const std::string& without) const {
  std::vector<Assignment> given = given_;
  std::erase_if(given, [&](const Assignment& each) { return each.name == without; });
  if (!IsEdit()) return FillForm(session, *form_, std::move(given), from_);
  return FillFormOf(session, RecordOf(session.exchange(), *form_, selection_), std::move(given));
}

}  // namespace cordboard::web
