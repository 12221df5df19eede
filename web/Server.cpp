#include "web/Server.h"

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <memory>
#include <optional>

namespace cordboard::web {

namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
using Serve = std::function<Answer(const Request&)>;
using boost::system::error_code;

// What every answer says: it belongs to this site alone, and nothing of it is kept.
constexpr std::pair<const char*, const char*> headers[] = {
    {"Content-Security-Policy",
     "default-src 'none'; style-src 'self'; script-src 'self'; connect-src 'self'; img-src 'self'; form-action 'self'; "
     "base-uri 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"X-Frame-Options", "DENY"},
    {"Referrer-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cache-Control", "no-store"},
};

using Message = http::request<http::string_body>;

// The value of a header that stands there once: one that is given twice is given by nobody honest.
std::optional<std::string> Header(const Message& message, http::field name) {
  return message.count(name) == 1 ? std::optional<std::string>(message[name]) : std::nullopt;
}

// Nothing where the message cannot be read as a request of ours.
std::optional<Request> Read(const Message& message) {
  const std::string target(message.target());
  const std::size_t mark = target.find('?');
  auto query = Fields::Read(mark == target.npos ? "" : target.substr(mark + 1));
  if (!query || !target.starts_with('/')) return std::nullopt;
  Request request{.method = std::string(message.method_string()),
                  .path = target.substr(0, mark),
                  .query = std::move(*query),
                  .host = Header(message, http::field::host),
                  .origin = Header(message, http::field::origin),
                  .cookie = Header(message, http::field::cookie),
                  .contentType = Header(message, http::field::content_type),
                  .wantsPart = message["X-Part"] == "1"};
  if (request.method != "POST") return request;
  auto form = Fields::Read(message.body());
  if (!form) return std::nullopt;
  request.form = std::move(*form);
  return request;
}

Answer Plain(Status status, const char* why) {
  return {.status = status, .body = std::string(why) + "\n", .type = "text/plain; charset=utf-8"};
}

http::response<http::string_body> Written(Answer answer, bool keepAlive) {
  http::response<http::string_body> response(static_cast<http::status>(answer.status), 11, std::move(answer.body));
  for (const auto& [name, value] : headers) response.set(name, value);
  if (!answer.type.empty()) response.set(http::field::content_type, answer.type);
  for (const auto& [name, value] : answer.headers) response.set(name, value);
  response.keep_alive(keepAlive);
  response.prepare_payload();
  return response;
}

// One browser's connection: a request, its answer, the next request. It lives as long as something is awaited on it.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  Connection(asio::ip::tcp::socket socket, const Serve& serve, const Bounds& bounds, std::size_t& open)
      : stream_(std::move(socket)), serve_(serve), bounds_(bounds), open_(open) {
    ++open_;
  }
  ~Connection() { --open_; }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  void AwaitRequest() {
    parser_.emplace();
    parser_->header_limit(static_cast<std::uint32_t>(bounds_.head));
    parser_->body_limit(bounds_.body);
    stream_.expires_after(std::chrono::seconds(bounds_.seconds));
    http::async_read(stream_, buffer_, *parser_,
                     [self = shared_from_this()](error_code error, std::size_t) { self->Take(error); });
  }

  void Refuse(Answer answer) { Send(std::move(answer), false); }

 private:
  void Take(error_code error) {
    if (error == http::error::body_limit || error == http::error::header_limit)
      return Refuse(Plain(TooLarge, "The request is too large."));
    // Gone, or too slow: nobody waits for an answer.
    if (error == http::error::end_of_stream || error == beast::error::timeout ||
        error == asio::error::operation_aborted || error == asio::error::connection_reset ||
        error == http::error::partial_message)
      return;
    if (error) return Refuse(Plain(BadRequest, "This is no request of HTTP/1.1."));
    const Message& message = parser_->get();
    const auto request = Read(message);
    if (!request) return Refuse(Plain(BadRequest, "The request cannot be read."));
    Send(serve_(*request), message.keep_alive());
  }

  void Send(Answer answer, bool keepAlive) {
    response_.emplace(Written(std::move(answer), keepAlive));
    stream_.expires_after(std::chrono::seconds(bounds_.seconds));
    http::async_write(stream_, *response_, [self = shared_from_this(), keepAlive](error_code error, std::size_t) {
      if (!error && keepAlive) return self->AwaitRequest();
      error_code ignored;
      self->stream_.socket().shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
    });
  }

  beast::tcp_stream stream_;
  beast::flat_buffer buffer_;
  std::optional<http::request_parser<http::string_body>> parser_;
  std::optional<http::response<http::string_body>> response_;
  const Serve& serve_;
  const Bounds& bounds_;
  std::size_t& open_;
};

}  // namespace

struct Server::Wire {
  Bounds bounds;
  std::size_t open = 0;  // connections; they go with the context
  asio::io_context context{1};
  asio::ip::tcp::acceptor acceptor{context};

  void Accept(const Serve& serve) {
    acceptor.async_accept([this, &serve](error_code error, asio::ip::tcp::socket socket) {
      if (!acceptor.is_open()) return;
      if (!error) {
        const bool full = open >= bounds.connections;
        const auto connection = std::make_shared<Connection>(std::move(socket), serve, bounds, open);
        full ? connection->Refuse(Plain(Busy, "Too many connections at the same time.")) : connection->AwaitRequest();
      }
      Accept(serve);
    });
  }
};

Server::Server(const std::string& address, unsigned short port, Bounds bounds) : wire_(std::make_unique<Wire>()) {
  wire_->bounds = bounds;
  error_code error;
  const auto where = asio::ip::make_address(address, error);
  if (error) throw ServerError(address + " is no address of a machine, such as 127.0.0.1");
  const asio::ip::tcp::endpoint endpoint(where, port);
  asio::ip::tcp::acceptor& acceptor = wire_->acceptor;
  acceptor.open(endpoint.protocol(), error);
  if (!error) acceptor.set_option(asio::socket_base::reuse_address(true), error);
  if (!error) acceptor.bind(endpoint, error);
  if (!error) acceptor.listen(asio::socket_base::max_listen_connections, error);
  if (error)
    throw ServerError(address + ", port " + std::to_string(port) + ", cannot be listened on: " + error.message());
}

Server::~Server() = default;

unsigned short Server::port() const { return wire_->acceptor.local_endpoint().port(); }

int Server::Run(const Serve& serve) {
  int ended = 0;
  asio::signal_set signals(wire_->context, SIGINT, SIGTERM, SIGHUP);
  signals.async_wait([&](error_code error, int signal) {
    if (error) return;
    ended = signal;
    wire_->context.stop();
  });
  wire_->Accept(serve);
  wire_->context.run();
  return ended;
}

}  // namespace cordboard::web
