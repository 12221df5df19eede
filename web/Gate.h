// Who may come in: requests of the browser to which the address with the token was given, sent by a page of this site.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "web/Request.h"

namespace cordboard::web {

class Gate {
 public:
  // Under which names the site is reached ("127.0.0.1:8080"); every other Host is refused, so that no name that
  // somebody else has given this machine leads here.
  explicit Gate(std::vector<std::string> hosts);

  // The path and the query by which a browser comes in.
  std::string Entrance() const { return Address("/", {{"token", token_}}); }
  // What every form of a page sends along as "proof": no page of another site knows it.
  const std::string& proof() const { return proof_; }

  // The answer to a request that goes no further: one that is refused, or that has just come in; nothing for any other.
  std::optional<Answer> Stop(const Request& request) const;

 private:
  bool IsOurs(const Request& request) const;
  std::string CookieOf(const std::string& host) const;

  std::vector<std::string> hosts_;
  std::string token_;
  std::string proof_;
};

}  // namespace cordboard::web
