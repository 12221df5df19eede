#include "workbench/data/Resources.h"

namespace cordboard::workbench {

std::string_view Resource(std::string_view path) { return Resources().at(path); }

std::vector<std::string_view> ResourcesIn(std::string_view folder) {
  std::vector<std::string_view> paths;
  for (auto at = Resources().lower_bound(folder); at != Resources().end() && at->first.starts_with(folder); ++at)
    paths.push_back(at->first);
  return paths;
}

}  // namespace cordboard::workbench
