#include "remote/Serve.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "entry/CScript.h"
#include "remote/Channel.h"
#include "remote/RemoteHost.h"
#include "script/MessageBox.h"
#include "script/RunTimeFailure.h"

namespace cordboard::remote {

namespace {

[[noreturn]] void WrongParameters(const std::string& what) { throw RequestError(ErrorCode::WrongParameters, what); }

void RequireNone(const std::string& method, const Json* params) {
  const bool none = params == nullptr || (params->is_array() && params->empty());
  if (!none) WrongParameters(method + " takes no parameters");
}

std::int32_t WholeNumber(const Json& params, const char* name) {
  using Limits = std::numeric_limits<std::int32_t>;
  const Json& member = params[name];
  const double number = member.is_number() ? member.get<double>() : 0.5;
  if (number != std::trunc(number) || number < Limits::min() || number > Limits::max())
    WrongParameters(std::string(name) + " is a whole number of 32 bits");
  return static_cast<std::int32_t>(number);
}

std::string Text(const Json& params, const char* name) {
  if (!params[name].is_string()) WrongParameters(std::string(name) + " is a text");
  return params[name].get<std::string>();
}

List Values(const Json& params, const char* name) {
  try {
    if (params[name].is_array()) return ToList(params[name]);
  } catch (const RunTimeFailure&) {
    // An element is no value.
  }
  WrongParameters(std::string(name) + " is an array of values");
}

// Exactly the six members, by name.
void RequireRunMembers(const Json* params) {
  const char* const names[] = {"Definition", "oaRelease", "FunctionName", "CmdName", "CmdId", "ParamList"};
  if (params == nullptr || !params->is_object()) WrongParameters("the parameters of Run are an object");
  for (const char* name : names) {
    if (!params->contains(name)) WrongParameters("Run has no " + std::string(name));
  }
  if (params->size() > std::size(names)) WrongParameters("Run has a parameter that it does not know");
}

// How the process shows a plain message box, for as long as this lives.
class MessageBoxAs {
 public:
  explicit MessageBoxAs(MessageBoxHook hook) : before_(SetMessageBox(std::move(hook))) {}
  ~MessageBoxAs() { SetMessageBox(std::move(before_)); }
  MessageBoxAs(const MessageBoxAs&) = delete;
  MessageBoxAs& operator=(const MessageBoxAs&) = delete;

 private:
  MessageBoxHook before_;
};

class Server {
 public:
  Server(std::istream& in, std::ostream& out, std::ostream& diagnostics)
      : channel_(in, out, diagnostics,
                 [this](const std::string& method, const Json* params) { return Request(method, params); }),
        // The answer to a message box is waited for, but not looked at.
        box_([this](const std::string& text, const std::string& title, int style) {
          channel_.Ask("MessageBox", {text, title, style});
        }) {}

  void Run() {
    while (channel_.TakeMessage()) {
    }
  }

 private:
  Message Request(const std::string& method, const Json* params) {
    if (method == "Run") return RunAction(params);
    if (method != "AddObject" && method != "Destroy")
      throw RequestError(ErrorCode::UnknownMethod, "the methods are AddObject, Run and Destroy");
    RequireNone(method, params);
    if (method == "AddObject") {
      script_.AddObject(host_);
    } else {
      script_.Destroy();
    }
    return nullptr;
  }

  bool RunAction(const Json* params) {
    RequireRunMembers(params);
    const std::int32_t Definition = WholeNumber(*params, "Definition");
    const std::string oaRelease = Text(*params, "oaRelease");
    const std::string FunctionName = Text(*params, "FunctionName");
    const std::string CmdName = Text(*params, "CmdName");
    const std::int32_t CmdId = WholeNumber(*params, "CmdId");
    const List ParamList = Values(*params, "ParamList");

    struct Deeper {
      int& depth;
      explicit Deeper(int& counter) : depth(counter) { ++depth; }
      ~Deeper() { --depth; }
    } const deeper(depth_);
    if (depth_ > MaximumRunDepth) throw RequestError(ErrorCode::NestedTooDeep, "too many Runs inside each other");
    return script_.Run(Definition, oaRelease, FunctionName, CmdName, CmdId, ParamList);
  }

  Channel channel_;
  std::shared_ptr<RemoteHost> host_ = std::make_shared<RemoteHost>(channel_);
  MessageBoxAs box_;
  int depth_ = 0;
  // One for the whole conversation: its end drops the host.
  CScript script_;
};

}  // namespace

int Serve(std::istream& in, std::ostream& out, std::ostream& diagnostics) {
  Server(in, out, diagnostics).Run();
  return out ? 0 : 1;
}

}  // namespace cordboard::remote
