// What a browser asks, and what it is answered, without the wire between.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "web/Fields.h"
#include "web/Html.h"

namespace cordboard::web {

enum Status {
  Ok = 200,
  SeeOther = 303,
  BadRequest = 400,
  Forbidden = 403,
  NotFound = 404,
  NoSuchMethod = 405,
  Conflict = 409,  // the exchange refuses, or is another than the page shows
  TooLarge = 413,
  NoSuchType = 415,
  Misdirected = 421,
  Fault = 500,
  Busy = 503,  // the file cannot be used now
};

struct Request {
  std::string method = "GET";
  std::string path = "/";
  Fields query = {};
  Fields form = {};  // of a POST
  // Headers; nothing where there is none.
  std::optional<std::string> host = {};
  std::optional<std::string> origin = {};
  std::optional<std::string> cookie = {};
  std::optional<std::string> contentType = {};
  bool wantsPart = false;  // asked by the script of a page: a part of the page is enough
};

struct Answer {
  int status = Ok;
  std::string body = {};
  std::string type = "text/html; charset=utf-8";
  Fields headers = {};  // besides those that every answer has

  static Answer Elsewhere(const std::string& address) {
    return {.status = SeeOther, .headers = {{"Location", address}}};
  }
};

// Ends a page: the browser gets the status and reads why.
class Failed : public std::runtime_error {
 public:
  Failed(Status status, const std::string& message) : std::runtime_error(message), status_(status) {}
  Status status() const { return status_; }

 private:
  Status status_;
};

// An address of this site: "/records?command=KSEXI".
std::string Address(const std::string& path, const Fields& query = {});

}  // namespace cordboard::web
