// The data files under data/, which the program carries in itself: "forms/NANSI.json", "messages.json", ...
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/data/DataTree.h"

namespace cordboard::workbench {

// All data files by their path under data/.
const std::map<std::string_view, std::string_view>& Resources();
// The trees of those that are JSON, by the same paths.
const std::map<std::string_view, DataTree>& ResourceTrees();

// One data file. A missing one is a fault of the build, and throws std::out_of_range.
std::string_view Resource(std::string_view path);
// The paths in one folder, such as "forms/", in their alphabetical order.
std::vector<std::string_view> ResourcesIn(std::string_view folder);

}  // namespace cordboard::workbench
