#include "web/Gate.h"

#include <gmock/gmock.h>

#include <functional>

namespace cordboard::web {
namespace {

using testing::HasSubstr;

const char* const host = "127.0.0.1:8080";

class GateTest : public testing::Test {
 protected:
  std::string Token() const {
    const std::string entrance = gate_.Entrance();
    return entrance.substr(entrance.find('=') + 1);
  }
  Request Asked() const { return {.path = "/lines", .host = host, .cookie = "cordboard-8080=" + Token()}; }
  Request Sent() const {
    Request request = Asked();
    request.method = "POST";
    request.origin = "http://127.0.0.1:8080";
    request.contentType = "application/x-www-form-urlencoded; charset=UTF-8";
    request.form = {{"proof", gate_.proof()}};
    return request;
  }
  int StatusOf(const Request& request) const {
    const auto answer = gate_.Stop(request);
    return answer ? answer->status : Ok;
  }

  Gate gate_{{host, "localhost:8080"}};
};

TEST_F(GateTest, LetsThroughWhatAPageOfTheSiteSends) {
  EXPECT_EQ(StatusOf(Asked()), Ok);
  EXPECT_EQ(StatusOf(Sent()), Ok);
  Request local = Sent();
  local.host = "localhost:8080";
  local.origin = "http://localhost:8080";
  EXPECT_EQ(StatusOf(local), Ok);
}

TEST_F(GateTest, LetsInByTheTokenAndTakesItOutOfTheAddress) {
  Request entering{.path = "/", .query = {{"token", Token()}}, .host = host};
  const auto answer = gate_.Stop(entering);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, SeeOther);
  EXPECT_EQ(answer->headers["Location"], "/");
  EXPECT_EQ(answer->headers["Set-Cookie"], "cordboard-8080=" + Token() + "; HttpOnly; SameSite=Strict; Path=/");
}

TEST_F(GateTest, StopsEveryAttack) {
  struct Attack {
    const char* name;
    bool sends;
    std::function<void(Request&)> change;
    int status;
  };
  const std::string token = Token();
  const std::string other(token.size(), '0');
  const std::vector<Attack> attacks = {
      {"no host, or one that is given twice", false, [](Request& r) { r.host.reset(); }, Misdirected},
      {"another host", false, [](Request& r) { r.host = "evil.example:8080"; }, Misdirected},
      {"another port", false, [](Request& r) { r.host = "127.0.0.1:8081"; }, Misdirected},
      {"a host without its port", false, [](Request& r) { r.host = "127.0.0.1"; }, Misdirected},
      {"a host with an end", false, [](Request& r) { r.host = "127.0.0.1:8080.evil.example"; }, Misdirected},
      {"an empty host", false, [](Request& r) { r.host = ""; }, Misdirected},
      {"no cookie", false, [](Request& r) { r.cookie.reset(); }, Forbidden},
      {"an empty cookie", false, [](Request& r) { r.cookie = ""; }, Forbidden},
      {"a wrong cookie", false, [&](Request& r) { r.cookie = "cordboard-8080=" + other; }, Forbidden},
      {"a short cookie", false, [&](Request& r) { r.cookie = "cordboard-8080=" + token.substr(1); }, Forbidden},
      {"a long cookie", false, [&](Request& r) { r.cookie = "cordboard-8080=" + token + "0"; }, Forbidden},
      {"the cookie of another site", false, [&](Request& r) { r.cookie = "cordboard-8081=" + token; }, Forbidden},
      {"a cookie with another name", false, [&](Request& r) { r.cookie = "xcordboard-8080=" + token; }, Forbidden},
      {"a wrong cookie before the right one", false,
       [&](Request& r) { r.cookie = "cordboard-8080=" + other + "; cordboard-8080=" + token; }, Forbidden},
      {"the token in the address of another page", false,
       [&](Request& r) {
         r.cookie.reset(), r.query = {{"token", token}};
       },
       Forbidden},
      {"a wrong token at the entrance", false,
       [&](Request& r) {
         r.cookie.reset(), r.path = "/", r.query = {{"token", other}};
       },
       Forbidden},
      {"an empty token at the entrance", false,
       [&](Request& r) {
         r.cookie.reset(), r.path = "/", r.query = {{"token", ""}};
       },
       Forbidden},
      {"the token as proof", true,
       [&](Request& r) {
         r.form = {{"proof", token}};
       },
       Forbidden},
      {"the token sent to the entrance", true,
       [&](Request& r) {
         r.cookie.reset(), r.path = "/", r.query = {{"token", token}};
       },
       Forbidden},
      {"the token in the form", true, [&](Request& r) { r.cookie.reset(), r.form.Add("token", token); }, Forbidden},
      {"no origin", true, [](Request& r) { r.origin.reset(); }, Forbidden},
      {"another origin", true, [](Request& r) { r.origin = "http://evil.example"; }, Forbidden},
      {"an origin that hides", true, [](Request& r) { r.origin = "null"; }, Forbidden},
      {"an origin of another port", true, [](Request& r) { r.origin = "http://127.0.0.1:8081"; }, Forbidden},
      {"an origin with another scheme", true, [](Request& r) { r.origin = "https://127.0.0.1:8080"; }, Forbidden},
      {"the other name of this site", true, [](Request& r) { r.origin = "http://localhost:8080"; }, Forbidden},
      {"no proof", true, [](Request& r) { r.form = {}; }, Forbidden},
      {"an empty proof", true,
       [](Request& r) {
         r.form = {{"proof", ""}};
       },
       Forbidden},
      {"a wrong proof before the right one", true,
       [&](Request& r) {
         r.form = {{"proof", other}, {"proof", gate_.proof()}};
       },
       Forbidden},
      {"the proof in the address", true,
       [&](Request& r) {
         r.form = {}, r.query = {{"proof", gate_.proof()}};
       },
       Forbidden},
      {"no content type", true, [](Request& r) { r.contentType.reset(); }, NoSuchType},
      {"a plain text", true, [](Request& r) { r.contentType = "text/plain"; }, NoSuchType},
      {"a form of several pieces", true, [](Request& r) { r.contentType = "multipart/form-data"; }, NoSuchType},
      {"JSON", true, [](Request& r) { r.contentType = "application/json"; }, NoSuchType},
      {"another method", true, [](Request& r) { r.method = "PUT"; }, NoSuchMethod},
      {"DELETE", true, [](Request& r) { r.method = "DELETE"; }, NoSuchMethod},
      {"OPTIONS", false, [](Request& r) { r.method = "OPTIONS"; }, NoSuchMethod},
      {"a method in small letters", true, [](Request& r) { r.method = "post"; }, NoSuchMethod},
  };
  for (const auto& [name, sends, change, status] : attacks) {
    Request request = sends ? Sent() : Asked();
    change(request);
    EXPECT_EQ(StatusOf(request), status) << name;
  }
}

TEST_F(GateTest, TellsTheTokenToNobody) {
  Request request = Asked();
  request.cookie.reset();
  const auto answer = gate_.Stop(request);
  ASSERT_TRUE(answer);
  EXPECT_THAT(answer->body, testing::Not(HasSubstr(Token())));
  EXPECT_EQ(answer->headers.size(), 0u);
}

TEST_F(GateTest, IsAnotherForEachSite) {
  const Gate other({host});
  EXPECT_NE(other.Entrance(), gate_.Entrance());
  EXPECT_NE(other.proof(), gate_.proof());
  EXPECT_NE(Token(), gate_.proof());
  EXPECT_EQ(Token().size(), 32u);
}

}  // namespace
}  // namespace cordboard::web
