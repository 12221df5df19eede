#include "workbench/forms/Foldings.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string_view>

#include "workbench/data/DataFile.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

using Names = std::vector<std::string>;

bool Holds(const Names& names, const std::string& name) { return std::ranges::find(names, name) != names.end(); }

// What a form says about a whole beyond the names of its parameters.
struct Exception {
  std::optional<int> length = {};
  char fill = '0';
  std::string separator = {};
  std::vector<Names> alternatives = {};
  bool byDefinition = false;  // whether each alternative holds in a definition
  Names list = {};            // the parts of a list
  Names sum = {};
};

char ReadFill(Fields& fields) {
  const auto item = fields.Find("fill");
  if (!item) return '0';
  if (item->Text().size() != 1) item->Fail("a fill is one character");
  return item->Text().front();
}

void ReadList(const DataItem& list, Exception& exception) {
  list.Object([&](Fields& fields) {
    fields.Find("each");
    const auto part = fields.Get<std::string>("of");
    const auto summand = fields.Get<std::string>("sum", "");
    for (const std::string& number : EachOf(list)) {
      exception.list.push_back(WithNumber(part, number));
      if (!summand.empty()) exception.sum.push_back(WithNumber(summand, number));
    }
  });
}

std::map<std::string, Exception> ReadExceptions(const std::optional<DataItem>& item, const Names& wholes) {
  std::map<std::string, Exception> exceptions;
  if (!item) return exceptions;
  const auto read = [&](const DataItem& entry, const std::string& number) {
    entry.Object([&](Fields& fields) {
      fields.Find("each");
      Exception exception{
          .length = fields.Has("length") ? std::optional(fields.Get<int>("length")) : std::nullopt,
          .fill = ReadFill(fields),
          .separator = fields.Get<std::string>("separator", ""),
          .alternatives = fields.Get(fields.Has("definitions") ? "definitions" : "alternatives", std::vector<Names>()),
          .byDefinition = fields.Has("definitions")};
      if (const auto list = fields.Find("list")) ReadList(*list, exception);
      for (const DataItem& whole : fields.At("wholes").List()) {
        const std::string name = WithNumber(whole.Text(), number);
        if (!Holds(wholes, name) && exception.list.empty()) whole.Fail("no parameter is a digit of " + name);
        if (!exceptions.emplace(name, exception).second) whole.Fail(name + " stands there twice");
      }
    });
  };
  for (const DataItem& entry : item->List()) {
    for (const std::string& number : EachOf(entry)) read(entry, number);
  }
  return exceptions;
}

// The places of some parameters of one whole, by their digits.
std::vector<DigitPlace> PlacesOf(const Names& parameters, const DataItem& file) {
  std::map<int, DigitPlace> places;
  for (const std::string& name : parameters) {
    const SubDigit digits = *SubDigitOf(name);
    DigitPlace& place = places.try_emplace(digits.first, DigitPlace{digits.first, digits.width, {}}).first->second;
    place.parameters.push_back(name);
    if (place.width != digits.width)
      file.Fail(place.parameters.front() + " and " + name + " overlap: say in \"folding\" what are alternatives");
  }
  std::vector<DigitPlace> ordered;
  for (auto& [first, place] : places) {
    const auto isDigit = [](const std::string& name) { return name.find("_SUB") == name.npos; };
    const auto digit = std::ranges::find_if(place.parameters, isDigit);
    if (place.parameters.size() > 1 && digit != place.parameters.end()) {
      place.digit = *digit;
      place.parameters.erase(digit);
    }
    if (!ordered.empty() && ordered.back().first + ordered.back().width > first)
      file.Fail(ordered.back().parameters.front() + " and " + place.parameters.front() +
                " overlap: say in \"folding\" what are alternatives");
    ordered.push_back(place);
  }
  return ordered;
}

Folding Folded(const std::string& whole, const Names& parameters, const Exception& exception, const DataItem& file) {
  Folding folding{.parameter = whole,
                  .fill = exception.fill,
                  .places = PlacesOf(parameters, file),
                  .separator = exception.separator};
  if (folding.places.empty()) file.Fail("an alternative of " + whole + " has no parameter");
  const int told = folding.places.back().first + folding.places.back().width - 1;
  folding.length = exception.length.value_or(told);
  if (folding.length < told) file.Fail(whole + " is shorter than its digits");
  return folding;
}

Folding ListOf(const std::string& whole, const Exception& exception, const FormDefinition& form, const DataItem& file) {
  Folding folding{.parameter = whole, .separator = exception.separator, .isList = true, .sum = exception.sum};
  if (folding.separator.empty()) file.Fail("the list " + whole + " has no separator");
  const auto unknown =
      std::ranges::find_if(exception.list, [&](const std::string& part) { return form.Find(part) == nullptr; });
  if (unknown != exception.list.end())
    file.Fail("the list " + whole + " has a part " + *unknown + ", which is no parameter");
  for (const std::string& part : exception.list) folding.places.push_back({++folding.length, 1, {part}});
  return folding;
}

// The parameters of one alternative, with those that stand in none.
Names Alternative(const Names& parameters, const std::vector<Names>& alternatives, const Names& chosen) {
  Names names;
  for (const std::string& name : parameters) {
    const bool inAny = std::ranges::any_of(alternatives, [&](const Names& other) { return Holds(other, name); });
    if (!inAny || Holds(chosen, name)) names.push_back(name);
  }
  return names;
}

}  // namespace

// The whole, then "_D7" or "_D7D8", and perhaps "_SUB1".
std::optional<SubDigit> SubDigitOf(const std::string& name) {
  std::string_view rest = name;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const std::size_t sub = rest.rfind("_SUB");
  if (sub != rest.npos && sub + 4 < rest.size() && std::ranges::all_of(rest.substr(sub + 4), isDigit))
    rest = rest.substr(0, sub);
  const std::size_t mark = rest.rfind("_D");
  if (mark == rest.npos || mark == 0) return std::nullopt;
  SubDigit digits{.whole = std::string(rest.substr(0, mark)), .first = 0, .width = 0};
  for (rest.remove_prefix(mark + 1); !rest.empty(); ++digits.width) {
    int place = 0;
    const auto [end, error] = std::from_chars(rest.data() + 1, rest.data() + rest.size(), place);
    const auto length = static_cast<std::size_t>(end - rest.data());
    if (rest.front() != 'D' || error != std::errc() || place < 0 || length > std::string_view("D12").size())
      return std::nullopt;
    if (digits.width == 0) digits.first = place;
    if (place != digits.first + digits.width) return std::nullopt;  // digits apart are no place
    rest.remove_prefix(length);
  }
  return digits.first == 0 ? std::nullopt : std::optional(digits);
}

std::vector<std::string> EachOf(const DataItem& entry) {
  const auto each = Fields(entry).Find("each");
  std::vector<std::string> numbers = each ? Elements(each->Text()) : std::vector<std::string>();
  if (numbers.empty()) return std::vector<std::string>(1);
  for (std::string& number : numbers) number.erase(0, number.find_first_not_of('0'));
  return numbers;
}

std::string WithNumber(std::string text, const std::string& number) {
  const auto sign = number.empty() ? text.npos : text.find('%');
  return sign == text.npos ? text : text.replace(sign, 1, number);
}

std::vector<Folding> FoldingsOf(const FormDefinition& form, const DataItem& file,
                                const std::optional<DataItem>& exceptions) {
  Names wholes;
  std::map<std::string, Names> parameters;
  for (const ParameterDefinition& parameter : form.parameters) {
    const auto digits = SubDigitOf(parameter.name);
    if (!digits) continue;
    if (!Holds(form.columns, digits->whole))
      file.Fail(parameter.name + " is a digit of " + digits->whole + ", which is no column");
    if (!Holds(wholes, digits->whole)) wholes.push_back(digits->whole);
    parameters[digits->whole].push_back(parameter.name);
  }

  std::map<std::string, Exception> excepted = ReadExceptions(exceptions, wholes);
  std::vector<Folding> foldings;
  for (const std::string& whole : wholes) {
    const Exception& exception = excepted[whole];
    if (exception.alternatives.empty()) foldings.push_back(Folded(whole, parameters[whole], exception, file));
    int definition = 0;
    for (const Names& chosen : exception.alternatives) {
      const auto stranger =
          std::ranges::find_if_not(chosen, [&](const std::string& name) { return Holds(parameters[whole], name); });
      if (stranger != chosen.end()) file.Fail(*stranger + " is no digit of " + whole);
      foldings.push_back(
          Folded(whole, Alternative(parameters[whole], exception.alternatives, chosen), exception, file));
      if (exception.byDefinition) foldings.back().definition = ++definition;
    }
  }
  for (const auto& [whole, exception] : excepted) {
    if (!exception.list.empty()) foldings.push_back(ListOf(whole, exception, form, file));
  }
  return foldings;
}

}  // namespace cordboard::workbench
