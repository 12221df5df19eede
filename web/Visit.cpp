#include "web/Visit.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "web/Request.h"
#include "workbench/history/History.h"

namespace cordboard::web {

using workbench::Exchange;
using workbench::History;
using workbench::State;

Visit::Visit(std::string file, bool readOnly, unsigned wait)
    : file_(std::move(file)), readOnly_(readOnly || access(file_.c_str(), W_OK) != 0), wait_(wait) {
  const auto exchange = Read();
  const History history(exchange->Dynamic());
  if (!history.states().empty()) firstState_ = history.states().back().number;
}

std::string Visit::Name() const { return std::filesystem::path(file_).filename().string(); }

std::unique_ptr<Exchange> Visit::Read() const { return Exchange::OpenForReading(file_); }

std::unique_ptr<Exchange> Visit::ReadAsOf(int state) const { return Exchange::OpenAsOf(file_, state); }

std::unique_ptr<Exchange> Visit::Write() const {
  if (readOnly_) throw Failed(Forbidden, "This exchange is only read here: nothing can be changed.");
  return Exchange::OpenForWriting(file_, std::chrono::seconds(wait_));
}

Answer Visit::Keep(Answer page) const {
  constexpr std::size_t most = 30;
  const std::size_t number = ++kept_->count;
  kept_->last.emplace(number, std::move(page));
  if (kept_->last.size() > most) kept_->last.erase(kept_->last.begin());
  return Answer::Elsewhere(Address("/kept", {{"page", std::to_string(number)}}));
}

std::optional<Answer> Visit::Kept(std::size_t number) const {
  const auto found = kept_->last.find(number);
  return found == kept_->last.end() ? std::nullopt : std::optional(found->second);
}

std::vector<State> Visit::Own(Exchange& exchange) const {
  std::vector<State> states = History(exchange.Dynamic()).states();
  std::erase_if(states, [this](const State& state) {
    const bool isOurs = std::ranges::find(state.plans, planOfPage) != state.plans.end();
    return state.number <= firstState_ || state.takenBackBy != 0 || !isOurs;
  });
  return states;
}

}  // namespace cordboard::web
