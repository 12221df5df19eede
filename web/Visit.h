// A visit: the exchange that the site shows, from when it was opened until it is closed.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "web/Request.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/history/State.h"

namespace cordboard::web {

// What the history calls the plan of an action that was taken on a page.
inline constexpr const char* planOfPage = "the page";

class Visit {
 public:
  // A file that may not be written, or whose user does not want it to be, is only read. One that another process holds
  // is waited for that many seconds. Fails as Exchange::OpenForReading does.
  Visit(std::string file, bool readOnly, unsigned wait);

  const std::string& file() const { return file_; }
  std::string Name() const;  // without its folders
  bool readOnly() const { return readOnly_; }
  // What the site's own forms send as "proof".
  const std::string& proof() const { return proof_; }
  void SetProof(std::string proof) { proof_ = std::move(proof); }

  // Each page opens the exchange anew: other programs may write it meanwhile.
  std::unique_ptr<workbench::Exchange> Read() const;
  // As it stood at a state of its history.
  std::unique_ptr<workbench::Exchange> ReadAsOf(int state) const;
  // Fails with Failed where nothing may be changed.
  std::unique_ptr<workbench::Exchange> Write() const;

  // Keeps a page that was made of a form that was sent, and sends the browser there: to load it again sends nothing
  // again. The last ones are kept.
  Answer Keep(Answer page) const;
  // Nothing where it is gone.
  std::optional<Answer> Kept(std::size_t number) const;

  // The number of the newest state when the visit began.
  int firstState() const { return firstState_; }
  // The states that came since, by actions on pages, and that hold.
  std::vector<workbench::State> Own(workbench::Exchange& exchange) const;

 private:
  std::string file_;
  bool readOnly_;
  unsigned wait_;
  std::string proof_;
  int firstState_ = -1;
  struct KeptPages {
    std::size_t count = 0;
    std::map<std::size_t, Answer> last = {};
  };
  std::shared_ptr<KeptPages> kept_ = std::make_shared<KeptPages>();
};

}  // namespace cordboard::web
