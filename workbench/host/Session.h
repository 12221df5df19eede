// The library at work on an exchange: the script object, the workbench as its host, and the order that is kept around
// every Run.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "entry/CScript.h"
#include "workbench/host/WorkbenchHost.h"

namespace cordboard::workbench {

// Why a call failed: what its user has to know, and where it struck, for the developer of the rules.
struct Failure {
  std::string inWords;
  std::string cause;
};

struct RunResult {
  bool answer = false;
  std::optional<Failure> failure;
};

class Session {
 public:
  // Puts a host in front of the workbench: one that traces, counts or injects failures.
  using Decorate = std::function<std::shared_ptr<Host>(std::shared_ptr<Host> workbench)>;

  explicit Session(Exchange& exchange, const Decorate& decorate = {});

  Exchange& exchange() { return exchange_; }
  WorkbenchHost& host() { return *host_; }
  Form& form() { return host_->form(); }

  // Runs one action on the command whose form is open. What it leaves open, by a failure or by a rule that ends without
  // closing, is rolled back.
  RunResult Run(const std::string& function, std::int32_t CmdId, const List& ParamList,
                const std::string& parameter = "");
  // Runs the static check of one parameter.
  RunResult Check(const std::string& parameter);
  // Runs the generation of a command, which writes its lines under this number. It reads records alone: a form that is
  // open is closed.
  RunResult Generate(const std::string& command, int number);

 private:
  RunResult RunCommand(const std::string& command, int definition, const std::string& function, std::int32_t CmdId,
                       const List& ParamList);

  Exchange& exchange_;
  std::shared_ptr<WorkbenchHost> host_;
  CScript script_;
};

}  // namespace cordboard::workbench
