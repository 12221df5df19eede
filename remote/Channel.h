// JSON-RPC 2.0 over two streams, one message a line: the library asks the peer, and the peer asks the library, also
// while the library waits for an answer.
#pragma once

#include <cstddef>
#include <functional>
#include <istream>
#include <map>
#include <optional>
#include <ostream>
#include <string>

#include "remote/Json.h"
#include "remote/RequestError.h"

namespace cordboard::remote {

// A longer line is refused.
inline constexpr std::size_t MaximumLine = std::size_t{64} << 20;

class Channel {
 public:
  // Serves a request of the peer and gives its result. `params` is nullptr where the request has none.
  using Server = std::function<Message(const std::string& method, const Json* params)>;

  Channel(std::istream& in, std::ostream& out, std::ostream& diagnostics, Server serve);

  // Takes one message of the peer, and answers where it is a request. False once the input has ended, or the output is
  // broken: from then on nothing is written any more.
  bool TakeMessage();

  // Sends a request and gives the peer's answer, the whole message. What the peer asks meanwhile is served first; an
  // answer to a request further out is kept for it. Fails with HostFailure where the input ends before the answer.
  Json Ask(const std::string& method, Message params);

 private:
  std::optional<std::string> ReadLine();
  void Write(const Message& message);
  void WriteError(const Json& id, ErrorCode code, const std::string& message);

  void Take(Json message);
  void TakeRequest(const Json& request);
  bool TakeAnswer(Json& answer);
  Message Outcome(const std::string& method, const Json* params);

  std::istream& in_;
  std::ostream& out_;
  std::ostream& diagnostics_;
  Server serve_;
  bool ended_ = false;
  std::size_t lastId_ = 0;
  std::map<std::string, std::optional<Json>> asked_;  // by id, with the answer once it has come
};

}  // namespace cordboard::remote
