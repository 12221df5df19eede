// The transcripts of the commands: one test for each block, named after its command and its title.
#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "support/CommandTranscripts.h"
#include "support/Replayer.h"

namespace cordboard {
namespace {

class PlayedBlock : public testing::Test {
 public:
  explicit PlayedBlock(const TranscriptBlock& block) : block_(block) {}

  void TestBody() override {
    const std::string difference = Replay(block_);
    if (!difference.empty()) ADD_FAILURE() << block_.title << "\n" << difference;
  }

 private:
  const TranscriptBlock& block_;
};

// A file that cannot be read is a test that fails.
class UnreadFile : public testing::Test {
 public:
  explicit UnreadFile(std::string reason) : reason_(std::move(reason)) {}
  void TestBody() override { FAIL() << reason_; }

 private:
  std::string reason_;
};

// The title as a name: its words with capitals, without blanks and signs.
std::string NameOf(const std::string& title) {
  std::string name;
  bool begins = true;
  for (const char c : title) {
    const auto letter = static_cast<unsigned char>(c);
    if (std::isalnum(letter) != 0 || c == '_') name += begins ? static_cast<char>(std::toupper(letter)) : c;
    begins = c == ' ';
  }
  return name;
}

void Register(const std::string& command, const std::string& name, const Place& place, auto make) {
  testing::RegisterTest(command.c_str(), name.c_str(), nullptr, nullptr, place.file.c_str(), place.line,
                        [make]() -> testing::Test* { return make(); });
}

const bool registered = [] {
  for (const std::string& file : TranscriptFiles()) {
    try {
      const Transcript& transcript = TranscriptOf(file);
      for (const TranscriptBlock& block : transcript.blocks)
        Register(transcript.command, NameOf(block.title), block.place, [&block] { return new PlayedBlock(block); });
    } catch (const TranscriptError& error) {
      Register("Transcripts", NameOf(file), {file, 0},
               [what = std::string(error.what())] { return new UnreadFile(what); });
    }
  }
  return true;
}();

TEST(Transcripts, AreThere) { EXPECT_TRUE(registered && !TranscriptFiles().empty()); }

}  // namespace
}  // namespace cordboard
