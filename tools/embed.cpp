// Writes the files under a folder into one C++ source, so that the program carries its data files with it.
// Usage: embed FOLDER OUTPUT
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: embed FOLDER OUTPUT\n";
    return 2;
  }
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(argv[1])) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  std::ofstream out(argv[2]);
  out << "#include \"workbench/data/Resources.h\"\n\nnamespace cordboard::workbench {\n\n"
         "const std::map<std::string_view, std::string_view>& Resources() {\n"
         "  static const std::map<std::string_view, std::string_view> resources = {\n";
  for (const fs::path& file : files) {
    std::ifstream in(file, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    out << "    {\"" << fs::relative(file, argv[1]).generic_string() << "\", std::string_view(R\"~embed~(" << text
        << ")~embed~\", " << text.size() << ")},\n";
  }
  out << "  };\n  return resources;\n}\n\n}  // namespace cordboard::workbench\n";
  return out.good() ? 0 : 1;
}
