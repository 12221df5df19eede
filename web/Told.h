// What stands in the way of an action, or what its user should know, as a page tells it.
#pragma once

#include <string>
#include <vector>

#include "web/Html.h"
#include "workbench/actions/UserAction.h"

namespace cordboard::web {

// What "next" stands for: "next: DIR=100&&109".
std::string InWords(const workbench::Assignment& taken);

// All of them, each with a link to the field of its parameter where the page has one.
Html ProblemList(const std::string& heading, const std::string& kind, const std::vector<workbench::Problem>& problems,
                 bool withFields);

}  // namespace cordboard::web
