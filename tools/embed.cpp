// Writes the files under some folders, but for pictures, into one C++ source, so that the program carries them with it:
// each by its path in its folder, and those in JSON as trees besides. Usage: embed OUTPUT FOLDER...
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/data/DataTree.h"

namespace fs = std::filesystem;
using namespace cordboard::workbench;

namespace {

using Texts = std::map<std::string, std::string>;

Texts ReadFolders(const std::vector<std::string>& folders) {
  Texts files;
  for (const std::string& folder : folders) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (!entry.is_regular_file() || entry.path().extension() == ".png") continue;
      const std::string name = fs::relative(entry.path(), folder).generic_string();
      std::ifstream in(entry.path(), std::ios::binary);
      const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
      if (!files.emplace(name, text).second) throw std::runtime_error("there are two files " + name);
    }
  }
  return files;
}

// The nodes of all trees, and their texts, each of which stands there once.
struct Trees {
  struct Part {
    std::string file;
    std::size_t first;
    std::size_t size;
  };

  TextPlace Keep(std::string_view text) {
    const auto [found, isNew] = places.try_emplace(std::string(text));
    if (isNew) {
      found->second = {static_cast<std::uint32_t>(texts.size()), static_cast<std::uint32_t>(text.size())};
      texts += text;
    }
    return found->second;
  }

  void Add(const std::string& file, const DataTree& tree) {
    parts.push_back({file, nodes.size(), tree.nodes.size()});
    for (DataNode node : tree.nodes) {
      node.key = Keep(tree.Text(node.key));
      node.text = Keep(tree.Text(node.text));
      nodes.push_back(node);
    }
  }

  std::vector<Part> parts = {};
  std::vector<DataNode> nodes = {};
  std::string texts = {};
  std::map<std::string, TextPlace, std::less<>> places = {};
};

Trees ReadTrees(const Texts& files) {
  Trees trees;
  for (const auto& [name, text] : files) {
    if (!name.ends_with(".json")) continue;
    try {
      trees.Add(name, ParseData(text));
    } catch (const std::runtime_error& error) {
      throw std::runtime_error(name + ": " + error.what());
    }
  }
  return trees;
}

std::string Literal(std::string_view text) {
  return "std::string_view(R\"~embed~(" + std::string(text) + ")~embed~\", " + std::to_string(text.size()) + ")";
}

void WriteTexts(std::ostream& out, const Texts& files) {
  out << "const std::map<std::string_view, std::string_view>& Resources() {\n"
         "  static const std::map<std::string_view, std::string_view> resources = {\n";
  for (const auto& [name, text] : files) out << "    {\"" << name << "\", " << Literal(text) << "},\n";
  out << "  };\n  return resources;\n}\n\n";
}

void WriteTrees(std::ostream& out, const Trees& trees) {
  out << "namespace {\n\nconstexpr std::string_view texts = " << Literal(trees.texts)
      << ";\n\nconstexpr DataNode nodes[] = {\n";
  for (const DataNode& node : trees.nodes)
    out << "{DataNode::Kind(" << static_cast<int>(node.kind) << ")," << node.size << ",{" << node.key.at << ','
        << node.key.length << "},{" << node.text.at << ',' << node.text.length << "}},\n";
  out << "};\n\n}  // namespace\n\n"
         "const std::map<std::string_view, DataTree>& ResourceTrees() {\n"
         "  static const std::map<std::string_view, DataTree> trees = {\n";
  for (const auto& [file, first, size] : trees.parts)
    out << "    {\"" << file << "\", {{nodes + " << first << ", " << size << "}, texts}},\n";
  out << "  };\n  return trees;\n}\n\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: embed OUTPUT FOLDER...\n";
    return 2;
  }
  try {
    const Texts files = ReadFolders({argv + 2, argv + argc});
    const Trees trees = ReadTrees(files);
    std::ofstream out(argv[1]);
    out << "#include \"workbench/data/Resources.h\"\n\nnamespace cordboard::workbench {\n\n";
    WriteTexts(out, files);
    WriteTrees(out, trees);
    out << "}  // namespace cordboard::workbench\n";
    return out.good() ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "embed: " << error.what() << '\n';
    return 1;
  }
}
