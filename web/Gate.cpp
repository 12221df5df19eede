#include "web/Gate.h"

#include <sys/random.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace cordboard::web {

namespace {

// 128 bits that nobody guesses.
std::string Random() {
  std::array<unsigned char, 16> bytes{};
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
    throw std::system_error(errno, std::generic_category(), "no random numbers");
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const unsigned char byte : bytes) text += {digits[byte >> 4], digits[byte & 15]};
  return text;
}

// Takes as long wherever two texts of one length differ, so that nobody finds out letter by letter.
bool IsSame(std::string_view one, std::string_view other) {
  if (one.size() != other.size()) return false;
  unsigned difference = 0;
  for (std::size_t i = 0; i < one.size(); ++i) difference |= static_cast<unsigned char>(one[i] ^ other[i]);
  return difference == 0;
}

// The value of a cookie in "a=1; b=2".
std::string_view CookieIn(std::string_view cookies, const std::string& name) {
  while (!cookies.empty()) {
    std::string_view cookie = cookies.substr(0, cookies.find(';'));
    cookies.remove_prefix(std::min(cookies.size(), cookie.size() + 1));
    cookie.remove_prefix(std::min(cookie.size(), cookie.find_first_not_of(' ')));
    if (cookie.starts_with(name + "=")) return cookie.substr(name.size() + 1);
  }
  return {};
}

Answer Refusal(Status status, const std::string& why) {
  return {.status = status, .body = why + "\n", .type = "text/plain; charset=utf-8"};
}

}  // namespace

std::string Address(const std::string& path, const Fields& query) {
  return query.size() == 0 ? path : path + "?" + query.Encoded();
}

Gate::Gate(std::vector<std::string> hosts) : hosts_(std::move(hosts)), token_(Random()), proof_(Random()) {}

// Cookies do not know ports: each site on this machine has one of its own name.
std::string Gate::CookieOf(const std::string& host) const { return "cordboard-" + host.substr(host.rfind(':') + 1); }

bool Gate::IsOurs(const Request& request) const {
  return request.cookie && IsSame(CookieIn(*request.cookie, CookieOf(*request.host)), token_);
}

std::optional<Answer> Gate::Stop(const Request& request) const {
  if (!request.host || std::ranges::find(hosts_, *request.host) == hosts_.end())
    return Refusal(Misdirected, "This is not the address under which the page is served.");
  if (request.method != "GET" && request.method != "POST")
    return Refusal(NoSuchMethod, "Only GET and POST are served.");
  if (request.method == "GET" && request.path == "/" && IsSame(request.query["token"], token_)) {
    // The token leaves the address, so that it is in no history of the browser and in no picture of its window.
    Answer answer = Answer::Elsewhere("/");
    answer.headers.Add("Set-Cookie", CookieOf(*request.host) + "=" + token_ + "; HttpOnly; SameSite=Strict; Path=/");
    return answer;
  }
  if (!IsOurs(request)) return Refusal(Forbidden, "Open the address that cordboard web has printed.");
  if (request.method == "GET") return std::nullopt;
  if (request.origin != "http://" + *request.host)
    return Refusal(Forbidden, "A change is taken from the page itself alone.");
  // After the type may stand the characters in which it is written.
  if (!request.contentType ||
      request.contentType->substr(0, request.contentType->find(';')) != "application/x-www-form-urlencoded")
    return Refusal(NoSuchType, "What is sent is no form.");
  if (!IsSame(request.form["proof"], proof_))
    return Refusal(Forbidden, "The form is not from this page: open it again.");
  return std::nullopt;
}

}  // namespace cordboard::web
