// Writes the files under some folders, but for pictures, into one C++ source, so that the program carries them with it:
// each by its path in its folder. Usage: embed OUTPUT FOLDER...
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>

namespace fs = std::filesystem;

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: embed OUTPUT FOLDER...\n";
    return 2;
  }
  std::map<std::string, fs::path> files;
  for (int i = 2; i < argc; ++i) {
    for (const auto& entry : fs::recursive_directory_iterator(argv[i])) {
      if (!entry.is_regular_file() || entry.path().extension() == ".png") continue;
      const std::string name = fs::relative(entry.path(), argv[i]).generic_string();
      if (files.emplace(name, entry.path()).second) continue;
      std::cerr << "embed: there are two files " << name << '\n';
      return 1;
    }
  }
  std::ofstream out(argv[1]);
  out << "#include \"workbench/data/Resources.h\"\n\nnamespace cordboard::workbench {\n\n"
         "const std::map<std::string_view, std::string_view>& Resources() {\n"
         "  static const std::map<std::string_view, std::string_view> resources = {\n";
  for (const auto& [name, file] : files) {
    std::ifstream in(file, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    out << "    {\"" << name << "\", std::string_view(R\"~embed~(" << text << ")~embed~\", " << text.size() << ")},\n";
  }
  out << "  };\n  return resources;\n}\n\n}  // namespace cordboard::workbench\n";
  return out.good() ? 0 : 1;
}
