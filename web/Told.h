// What stands in the way of an action, or what its user should know, as a page tells it.
#pragma once

#include <string>
#include <vector>

#include "web/Html.h"
#include "workbench/actions/UserAction.h"

namespace cordboard::web {

// "this value is not possible here: 300 is used by the key extension DIR=300 (KSEXI). Possible: 301, 302"
std::string InWords(const workbench::Problem& problem);

// What "next" stands for: "next: DIR=100&&109".
std::string InWords(const workbench::Assignment& taken);

// All of them, each with a link to the field of its parameter where the page has one.
Html ProblemList(const std::string& heading, const std::string& kind, const std::vector<workbench::Problem>& problems,
                 bool withFields);

}  // namespace cordboard::web
