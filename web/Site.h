// The site: which page answers which address.
#pragma once

#include "web/Gate.h"
#include "web/Request.h"
#include "web/Visit.h"

namespace cordboard::web {

class Site {
 public:
  Site(Visit visit, Gate gate);

  const Visit& visit() const { return visit_; }
  const Gate& gate() const { return gate_; }

  // Whatever is asked has an answer.
  Answer Serve(const Request& request) const;

 private:
  Visit visit_;
  Gate gate_;
};

}  // namespace cordboard::web
