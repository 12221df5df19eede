// The site on the wire: HTTP/1.1 on a port of this machine. Requests are served one after the other, since the library
// has one host for the process; slow and idle browsers keep nobody waiting. What is too large, too slow or too much is
// refused before it is read.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "web/Request.h"

namespace cordboard::web {

// The address cannot be listened on.
class ServerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Bounds {
  std::size_t head = 16'384;     // bytes of a request's first line and headers
  std::size_t body = 1'048'576;  // bytes behind them
  std::size_t connections = 64;  // at the same time
  unsigned seconds = 10;         // for a request to come in whole, and for an answer to be taken
};

class Server {
 public:
  // Listens from now on. Port 0 stands for any free one.
  Server(const std::string& address, unsigned short port, Bounds bounds = {});
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  unsigned short port() const;

  // Serves until a signal comes by which a user ends a process, and gives it.
  int Run(const std::function<Answer(const Request&)>& serve);

 private:
  struct Wire;
  std::unique_ptr<Wire> wire_;
};

}  // namespace cordboard::web
