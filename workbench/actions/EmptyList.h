// Why a list of valid values is empty, as far as that shows: what its rules asked for while they built it.
#pragma once

#include <string>
#include <vector>

#include "script/ForwardingHost.h"
#include "workbench/actions/Filling.h"

namespace cordboard::workbench {

// Notes which parameters of the form the rules read, and from which tables the values come.
class ListSources : public ForwardingHost {
 public:
  using ForwardingHost::ForwardingHost;

  // Each once, in the order in which they were asked for.
  const std::vector<std::string>& parameters() const { return parameters_; }
  const std::vector<std::string>& tables() const { return tables_; }
  void Forget();

 protected:
  HostAnswer Answer(const HostCall& call) override;

 private:
  std::vector<std::string> parameters_;
  std::vector<std::string> tables_;
};

// What an empty list, which has just been built, has to do with: the tables that it is chosen from, and the parameters
// on which it depends.
std::string WhyEmpty(Filling& filling, const std::string& parameter, const ListSources& sources);

}  // namespace cordboard::workbench
