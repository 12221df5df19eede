#include "web/Frame.h"
#include "web/Selecting.h"
#include "web/States.h"
#include "web/Told.h"
#include "web/pages/Pages.h"
#include "workbench/actions/Generation.h"
#include "workbench/plans/Comparison.h"
#include "workbench/plans/ToldPlan.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Separated.h"

namespace cordboard::web {

namespace {

using workbench::Counted;
using workbench::DifferentLine;
using workbench::Generated;
using workbench::GeneratedLine;

constexpr std::size_t mostOfCommand = 1000;
constexpr std::size_t fewLines = 200;  // are not folded

using Problems = std::vector<std::pair<std::string, workbench::Problem>>;

// The commands whose lines are asked for; none stands for all.
std::vector<std::string> CommandsOf(const Request& request) {
  return request.query["command"].empty() ? std::vector<std::string>()
                                          : std::vector<std::string>{FormOf(request.query).command};
}

Generated GeneratedOf(const Visit& visit, const Request& request) {
  const auto exchange = visit.Read();
  const std::vector<std::string> commands = CommandsOf(request);
  workbench::Session session(*exchange);
  return Generate(session, commands.empty() ? "dynamic" : workbench::FindForm(commands.front())->database, commands);
}

Html Told(const Problems& problems) {
  Html content;
  for (const auto& [command, problem] : problems) content += Element("li", command + ": " + InWords(problem));
  return problems.empty() ? Html() : Notice("error", Element("ul", content));
}

Html WithoutLines(const std::vector<std::string>& commands) {
  if (commands.empty()) return {};
  return Element("details", Element("summary", "The records of " + Counted(commands.size(), "command") +
                                                   " give no lines, by the rules of the exchange") +
                                Element("p", workbench::Separated(commands, ", ")));
}

// The lines of each command, as far as they are shown.
struct Group {
  std::string command;
  std::vector<Html> lines = {};
  std::size_t count = 0;
};

class Groups {
 public:
  void Add(const std::string& command, const Html& line) {
    if (groups_.empty() || groups_.back().command != command) groups_.push_back({.command = command});
    Group& group = groups_.back();
    if (++group.count <= mostOfCommand) group.lines.push_back(line);
    ++count_;
  }

  std::size_t count() const { return count_; }

  Html Shown() const {
    Html content;
    for (const Group& group : groups_) {
      const workbench::FormDefinition* form = workbench::FindForm(group.command);
      const std::string title = form == nullptr ? "" : ": " + form->title;
      Html lines = AsLines(group.lines);
      if (group.count > mostOfCommand)
        lines += Element("p", "and " + Counted(group.count - mostOfCommand, "line") + " more");
      const Html summary = Element("summary", group.command + title + ", " + Counted(group.count, "line"));
      content += Element("details", count_ > fewLines ? Attributes() : Attributes{{"open", ""}}, summary + lines);
    }
    return content;
  }

 private:
  std::vector<Group> groups_;
  std::size_t count_ = 0;
};

Html Search(const Visit& visit, const Request& request) {
  const auto exchange = visit.Read();
  auto states = StatesToChoose(*exchange);
  states.insert(states.begin(), {"", "all lines"});
  for (auto& [number, words] : states)
    if (number == std::to_string(visit.firstState())) words += " (where this visit began)";
  const std::string& command = request.query["command"];
  const Attributes find = {{"type", "search"}, {"id", "find"}, {"name", "find"}, {"value", request.query["find"]}};
  return Element("form", {{"action", "/lines"}, {"role", "search"}, {"class", "actions"}},
                 (command.empty() ? Html() : Hidden("command", command)) + Element("label", {{"for", "find"}}, "Find") +
                     Element("input", find) +
                     Choice("since", "What has changed since", states, request.query["since"]) +
                     Element("button", "Show"));
}

// A secret is not found either.
bool IsFound(const std::string& told, const std::string& text) { return told.find(text) != told.npos; }

Html AllLines(const Visit& visit, const Request& request) {
  const Generated generated = GeneratedOf(visit, request);
  Groups groups;
  for (const GeneratedLine& line : generated.lines) {
    const std::string told = workbench::ToldLine(line.text);
    if (IsFound(told, request.query["find"])) groups.Add(line.command, told);
  }
  return Told(generated.problems) + WithoutLines(generated.without) +
         Element("p", {{"role", "status"}}, Counted(groups.count(), "line")) + groups.Shown();
}

Html Changed(const DifferentLine& line, const std::string& told) {
  return line.inSecond ? Element("ins", {{"class", "added"}}, "+ " + told)
                       : Element("del", {{"class", "removed"}}, "- " + told);
}

Html ChangesSince(const Visit& visit, const Request& request, int state) {
  const auto before = visit.ReadAsOf(state);
  const auto now = visit.Read();
  const workbench::DifferentLines different = CompareLines(*before, *now, CommandsOf(request));
  Groups groups;
  for (const DifferentLine& line : different.lines) {
    const std::string told = workbench::ToldLine(line.text);
    if (IsFound(told, request.query["find"])) groups.Add(line.command, Changed(line, told));
  }
  const std::string count = Counted(groups.count(), "line");
  return Told(different.problems) +
         Element("p", {{"role", "status"}}, count + " that came or went since state " + std::to_string(state)) +
         groups.Shown();
}

// The command whose lines are asked for, as a part of an address.
Fields CommandField(const Request& request) {
  Fields command;
  for (const std::string& name : CommandsOf(request)) command.Add("command", name);
  return command;
}

Html Ways(const Request& request) {
  const Fields command = CommandField(request);
  Html links = Element("li", Link(Address("/lines.txt", command), "Download as text, with secrets"));
  if (command.size() > 0) links += Element("li", Link("/lines", "Lines of all commands"));
  return Element("ul", {{"class", "actions"}}, links);
}

}  // namespace

Answer Lines(const Visit& visit, const Request& request) {
  const auto since = StateNumberOf(request.query, "since");
  const Html content = since ? ChangesSince(visit, request, *since) : AllLines(visit, request);
  const std::string& command = request.query["command"];
  return Page(visit, command.empty() ? "Lines" : "Lines of " + command,
              Ways(request) + Search(visit, request) + content);
}

Answer LinesAsText(const Visit& visit, const Request& request) {
  const Generated generated = GeneratedOf(visit, request);
  // A file could not say that lines are missing in it.
  if (!generated.problems.empty())
    return Page(visit, "Lines as text",
                Told(generated.problems) +
                    Element("p", "There is no file to download while lines are missing: it could not say which.") +
                    Element("ul", {{"class", "actions"}},
                            Element("li", Link(Address("/lines", CommandField(request)), "Show the other lines"))),
                Conflict);
  std::string text;
  for (const GeneratedLine& line : generated.lines) text += line.text + "\n";
  return AsFile("lines.txt", std::move(text));
}

}  // namespace cordboard::web
