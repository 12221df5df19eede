// A conversation with the remote host on string streams: what the peer writes is written beforehand, since the ids of
// the library are known (h1, h2, ...).
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace cordboard::remote {

struct Conversation {
  std::vector<std::string> lines;  // what the library wrote
  std::string out;                 // the same, as it stood on the output
  std::string diagnostics;
  int status = -1;
};

// Serves the lines of the peer, each with a line end after it.
Conversation Converse(const std::vector<std::string>& input);
// Serves the bytes as they are.
Conversation ConverseBytes(const std::string& input);

// The peer's messages.
inline const std::string addObject = R"({"jsonrpc":"2.0","id":"add","method":"AddObject","params":[]})";
inline const std::string destroy = R"({"jsonrpc":"2.0","id":"destroy","method":"Destroy"})";
std::string RunNANSI(const std::string& id, const std::string& function, const std::string& parameters);
// A Run of the command PROBE, which does what `probe` does. It has no other life than in these tests.
std::string RunProbe(const std::string& id, const std::string& parameters = "[]");
std::string AnswerTo(const std::string& id, const std::string& result);

// The library's messages.
std::string Call(const std::string& id, const std::string& method, const std::string& params);
std::string Result(const std::string& id, const std::string& result);
std::string Failure(const std::string& id, int code, const std::string& message, const std::string& cause = "");

// What a Run of PROBE does.
extern std::function<bool()> probe;

}  // namespace cordboard::remote
