#include <algorithm>
#include <charconv>
#include <optional>

#include "web/Frame.h"
#include "web/Selecting.h"
#include "web/pages/Pages.h"
#include "workbench/plans/RecordList.h"
#include "workbench/text/Counted.h"

namespace cordboard::web {

namespace {

using workbench::Counted;
using workbench::FormDefinition;
using workbench::ListedRecord;
using workbench::RecordList;

constexpr std::size_t recordsOfPage = 100;

// What is asked of the list, as its address says it.
struct Wish {
  const FormDefinition& form;
  std::string find;
  std::string sort;
  bool down = false;
  std::size_t page = 1;

  std::string Where() const {
    Fields query = {{"command", form.command}};
    if (!find.empty()) query.Add("find", find);
    if (!sort.empty()) query.Add("sort", sort);
    if (down) query.Add("down", "1");
    if (page > 1) query.Add("page", std::to_string(page));
    return Address("/records", query);
  }
};

Wish ReadWish(const Fields& query) {
  Wish wish{.form = FormOf(query), .find = query["find"], .sort = query["sort"], .down = query.Has("down")};
  const std::string& page = query["page"];
  std::from_chars(page.data(), page.data() + page.size(), wish.page);
  return wish;
}

bool Has(const RecordList& list, const std::string& column) {
  return std::ranges::find(list.columns(), column) != list.columns().end();
}

// "10" is looked for in all columns, "DIR=10" in one.
void Find(RecordList& list, const std::string& text) {
  if (text.empty()) return;
  const std::size_t equals = text.find('=');
  const std::string column = text.substr(0, equals);
  if (equals == text.npos || !Has(list, column)) return list.Find(text, std::nullopt);
  if (!list.IsOpen(column)) throw Failed(BadRequest, column + " is secret: records cannot be found by it.");
  list.Find(text.substr(equals + 1), column);
}

void Sort(RecordList& list, const Wish& wish) {
  if (wish.sort.empty()) return;
  // A column without any value is not shown, and all records are alike in it.
  if (!Has(list, wish.sort)) return;
  if (!list.IsOpen(wish.sort)) throw Failed(BadRequest, wish.sort + " is secret: records cannot be sorted by it.");
  list.SortBy(wish.sort, wish.down);
}

Heading HeadingOf(const std::string& column, Wish wish) {
  const workbench::ParameterDefinition* parameter = wish.form.Find(column);
  const Attributes title = parameter == nullptr ? Attributes() : Attributes{{"title", parameter->title}};
  if (wish.form.IsSecret(column)) return {Element("span", title, column), {}};
  const bool isSorted = wish.sort == column;
  Attributes sorted;
  if (isSorted) sorted = {{"aria-sort", wish.down ? "descending" : "ascending"}};
  wish.down = isSorted && !wish.down;
  wish.sort = column;
  wish.page = 1;
  Attributes link = {{"href", wish.Where()}};
  link.insert(link.end(), title.begin(), title.end());
  return {Element("a", link, column), sorted};
}

// The ways from a record; a screen reader reads with each which record it is.
Html Ways(const Visit& visit, const FormDefinition& form, const ListedRecord& record) {
  const auto way = [&](const char* path, const char* text) {
    const std::string named = std::string(text) + " " + Named(form, record.selection);
    return Element("a", {{"href", Address(path, FieldsOf(form, record.selection))}, {"aria-label", named}}, text);
  };
  Html ways;
  // Some rules write several records under one identifier.
  if (record.selection.empty()) return ways;
  if (form.edits) ways += way("/form", visit.readOnly() ? "Open" : "Edit");
  if (!form.deletes || visit.readOnly()) return ways;
  if (form.edits) ways += " ";
  ways += way("/delete", "Delete");
  return ways;
}

Html TableOf(const Visit& visit, const RecordList& list, const std::vector<ListedRecord>& records, const Wish& wish) {
  std::vector<Heading> headings = {"Actions"};
  for (const std::string& column : list.columns()) headings.push_back(HeadingOf(column, wish));
  std::vector<std::vector<Html>> rows;
  for (const ListedRecord& record : records) {
    std::vector<Html>& row = rows.emplace_back();
    row.push_back(Ways(visit, wish.form, record));
    for (const std::string& value : record.values) row.emplace_back(value);
  }
  return Table("Records of " + wish.form.command, headings, rows);
}

// Such as "Find in any column, or in one: DIR=10".
std::string WhatToFind(const RecordList& list) {
  const auto open = std::ranges::find_if(list.columns(), [&](const std::string& each) { return list.IsOpen(each); });
  return "Find in any column" + (open == list.columns().end() ? "" : ", or in one: " + *open + "=10");
}

Html Search(const RecordList& list, const Wish& wish) {
  Html content = Hidden("command", wish.form.command);
  if (!wish.sort.empty()) content += Hidden("sort", wish.sort);
  if (wish.down) content += Hidden("down", "1");
  content += Element("label", {{"for", "find"}}, WhatToFind(list)) +
             Element("input", {{"type", "search"}, {"id", "find"}, {"name", "find"}, {"value", wish.find}}) +
             Element("button", "Find");
  return Element("form", {{"action", "/records"}, {"role", "search"}, {"class", "actions"}}, content);
}

Html Turning(Wish wish, std::size_t pages) {
  if (pages < 2) return {};
  const std::size_t here = wish.page;
  const auto to = [&](std::size_t page, const char* text) {
    wish.page = page;
    return Element("li", Link(wish.Where(), text));
  };
  Html links;
  if (here > 1) links += to(1, "First") + to(here - 1, "Previous");
  links += Element("li", {{"aria-current", "page"}}, "Page " + std::to_string(here) + " of " + std::to_string(pages));
  if (here < pages) links += to(here + 1, "Next") + to(pages, "Last");
  return Element("nav", {{"aria-label", "Pages of records"}}, Element("ul", {{"class", "actions"}}, links));
}

Html HowToBegin(const FormDefinition& form) {
  if (form.adds)
    return "There is no record yet. " + Link(Address("/form", {{"command", form.command}}), "Add the first");
  return "There is no record yet, and this command adds none: records come with those of other commands.";
}

Html Shown(const Visit& visit, RecordList& list, Wish& wish) {
  if (list.count() == 0) return Element("p", HowToBegin(wish.form));
  Find(list, wish.find);
  Sort(list, wish);
  const std::size_t found = list.CountFound();
  const std::size_t pages = std::max<std::size_t>((found + recordsOfPage - 1) / recordsOfPage, 1);
  wish.page = std::clamp<std::size_t>(wish.page, 1, pages);
  const std::string all = Counted(list.count(), "record");
  Html content = Search(list, wish);
  content += Element("p", {{"role", "status"}}, wish.find.empty() ? all : std::to_string(found) + " of " + all);
  if (found == 0) return content;
  const auto records = list.Read((wish.page - 1) * recordsOfPage, recordsOfPage);
  return content + TableOf(visit, list, records, wish) + Turning(wish, pages);
}

Html WaysOf(const FormDefinition& form) {
  const Fields command = {{"command", form.command}};
  Html links;
  if (form.adds)
    links += Element("li", Link(Address("/form", command), form.single ? "Open the form" : "Add a record"));
  if (form.generates) links += Element("li", Link(Address("/lines", command), "Lines"));
  links += Element("li", Link(Address("/help", command), "Help"));
  return Element("ul", {{"class", "actions"}}, links);
}

}  // namespace

Answer Records(const Visit& visit, const Request& request) {
  const auto exchange = visit.Read();
  Wish wish = ReadWish(request.query);
  RecordList list(*exchange, wish.form);
  Html content = Element("p", wish.form.help) + WaysOf(wish.form) + Shown(visit, list, wish);
  const std::size_t blank = CountRecords(*exchange, wish.form).blank;
  if (blank > 0)
    content += Element("p", Counted(blank, "row") + " prepared for a record, and still blank, " +
                                (blank == 1 ? "is" : "are") + " not shown.");
  return Page(visit, wish.form.command + ": " + wish.form.title, content);
}

}  // namespace cordboard::web
