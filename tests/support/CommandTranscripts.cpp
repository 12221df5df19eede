#include "support/CommandTranscripts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "entry/Registry.h"
#include "support/SourceFolder.h"

namespace cordboard {

namespace {

constexpr char folder[] = "tests/commands/";
constexpr char commonName[] = "common.transcript";

TranscriptSource Source(const std::string& file) {
  std::ifstream in(SourceFile(file), std::ios::binary);
  if (!in) throw TranscriptError({file, 0}, "the file cannot be read");
  return {file, {std::istreambuf_iterator<char>(in), {}}};
}

}  // namespace

std::vector<std::string> TranscriptFiles() {
  std::vector<std::string> files;
  for (const auto& family : std::filesystem::directory_iterator(SourceFile(folder))) {
    if (!family.is_directory()) continue;
    for (const auto& entry : std::filesystem::directory_iterator(family)) {
      if (entry.path().extension() == ".transcript" && entry.path().filename() != commonName)
        files.push_back(folder + family.path().filename().string() + "/" + entry.path().filename().string());
    }
  }
  std::ranges::sort(files);
  return files;
}

const Transcript& TranscriptOf(const std::string& file) {
  static std::map<std::string, Transcript> read;
  const auto found = read.find(file);
  if (found != read.end()) return found->second;
  std::vector<TranscriptSource> common;
  for (const std::string& path : {std::string(folder) + commonName, file.substr(0, file.rfind('/') + 1) + commonName}) {
    if (std::filesystem::exists(SourceFile(path))) common.push_back(Source(path));
  }
  return read.emplace(file, ReadTranscript(Source(file), common)).first->second;
}

const Transcript& TranscriptOfCommand(const std::string& command) {
  const auto known = std::ranges::find(Registry(), command, &Command::name);
  const std::string family = known == Registry().end() ? "" : folder + std::string(known->family) + "/";
  for (const std::string& file : TranscriptFiles()) {
    if (file.starts_with(family) && TranscriptOf(file).command == command) return TranscriptOf(file);
  }
  throw TranscriptError({folder, 0}, "there is no transcript of " + command);
}

}  // namespace cordboard
