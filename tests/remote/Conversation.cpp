#include "remote/Conversation.h"

#include <sstream>

#include "entry/Registry.h"
#include "remote/Serve.h"

namespace cordboard {

extern const Module NANSI;

namespace {

bool Probe(const Action&) { return remote::probe(); }

const Module PROBE{.SetInfo = Probe};

}  // namespace

// The commands of this test program. It stands in the place of the table of the library.
std::span<const Command> Registry() {
  static const Command commands[] = {{"NANSI", "numberplan", NANSI}, {"PROBE", "tests", PROBE}};
  return commands;
}

}  // namespace cordboard

namespace cordboard::remote {

std::function<bool()> probe;

Conversation ConverseBytes(const std::string& input) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream diagnostics;
  Conversation conversation;
  conversation.status = Serve(in, out, diagnostics);
  conversation.out = out.str();
  conversation.diagnostics = diagnostics.str();
  std::istringstream written(conversation.out);
  for (std::string line; std::getline(written, line);) conversation.lines.push_back(line);
  return conversation;
}

Conversation Converse(const std::vector<std::string>& input) {
  std::string bytes;
  for (const std::string& line : input) bytes += line + "\n";
  return ConverseBytes(bytes);
}

std::string RunNANSI(const std::string& id, const std::string& function, const std::string& parameters) {
  return R"({"jsonrpc":"2.0","id":)" + id + R"(,"method":"Run","params":{"Definition":1,"oaRelease":"R7",)" +
         R"("FunctionName":")" + function + R"(","CmdName":"NANSI","CmdId":7,"ParamList":)" + parameters + "}}";
}

std::string RunProbe(const std::string& id, const std::string& parameters) {
  return R"({"jsonrpc":"2.0","id":)" + id + R"(,"method":"Run","params":{"Definition":1,"oaRelease":"R7",)" +
         R"("FunctionName":"SetInfo","CmdName":"PROBE","CmdId":0,"ParamList":)" + parameters + "}}";
}

std::string AnswerTo(const std::string& id, const std::string& result) {
  return R"({"jsonrpc":"2.0","id":")" + id + R"(","result":)" + result + "}";
}

std::string Call(const std::string& id, const std::string& method, const std::string& params) {
  return R"({"jsonrpc":"2.0","id":")" + id + R"(","method":")" + method + R"(","params":)" + params + "}";
}

std::string Result(const std::string& id, const std::string& result) {
  return R"({"jsonrpc":"2.0","id":)" + id + R"(,"result":)" + result + "}";
}

std::string Failure(const std::string& id, int code, const std::string& message, const std::string& cause) {
  const std::string data = cause.empty() ? "" : R"(,"data":{"cause":")" + cause + R"("})";
  return R"({"jsonrpc":"2.0","id":)" + id + R"(,"error":{"code":)" + std::to_string(code) + R"(,"message":")" +
         message + "\"" + data + "}}";
}

}  // namespace cordboard::remote
