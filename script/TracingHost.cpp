#include "script/TracingHost.h"

#include "script/Conversions.h"

namespace cordboard {

namespace {

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 2, "\r\n") == 0) {
      quoted += "{NL}";
      ++i;
    } else if (text[i] == '\n') {
      quoted += "{LF}";
    } else if (text[i] == '"') {
      quoted += "{QT}";
    } else {
      quoted += text[i];
    }
  }
  return quoted + "\"";
}

struct ToTraceText {
  std::string operator()(std::monostate) const { return ""; }
  std::string operator()(OutPlace) const { return "out"; }
  template <typename Content>
  std::string operator()(const Content& content) const {
    return TraceText(content);
  }
  std::string operator()(const Argument& argument) const { return std::visit(*this, argument); }
};

template <typename Items>
std::string Listed(const Items& items) {
  std::string text;
  for (const auto& item : items) text += (text.empty() ? "" : ", ") + ToTraceText()(item);
  return text;
}

}  // namespace

std::string TraceText(const Value& value) {
  if (value.IsEmpty()) return "Empty";
  if (value.IsNull()) return "Null";
  return value.IsText() ? Quoted(value.text()) : Joined(value);
}

std::string TraceText(const List& list) {
  if (list.IsEmpty()) return "Empty";
  return list.IsNull() ? "Null" : "[" + Listed(list) + "]";
}

std::string TraceText(const RowSet& rows) {
  std::vector<List> columns;
  for (std::size_t column = 0; column < rows.ColumnCount(); ++column) columns.push_back(rows[column]);
  return rows.IsEmpty() ? "Empty" : "[" + Listed(columns) + "]";
}

std::string TraceText(const HostCall& call) { return std::string(call.operation) + "(" + Listed(call.arguments) + ")"; }

std::string TraceText(const HostAnswer& answer) {
  const std::string result = std::visit(ToTraceText(), answer.result);
  const std::string out = std::visit(ToTraceText(), answer.out);
  return (std::holds_alternative<RowSet>(answer.result) ? "rows " : "") + result +
         (result.empty() || out.empty() ? "" : ", ") + out;
}

HostAnswer TracingHost::Answer(const HostCall& call) {
  const std::size_t index = calls_.size();
  calls_.push_back({Noted(call), "failed", depth_});
  struct Deeper {
    int& depth;
    explicit Deeper(int& counter) : depth(counter) { ++depth; }
    ~Deeper() { --depth; }
  } const deeper(depth_);
  HostAnswer answer = ForwardingHost::Answer(call);
  calls_[index].answer = Noted(answer, call);
  return answer;
}

}  // namespace cordboard
