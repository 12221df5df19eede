// What keeps the module loaded: its living objects, and the locks of its class factories.
#pragma once

#include <atomic>

namespace cordboard::com {

class InUse {
 public:
  InUse() { ++count_; }
  ~InUse() { --count_; }
  InUse(const InUse&) = delete;
  InUse& operator=(const InUse&) = delete;

  static void Lock() { ++count_; }
  static void Unlock() { --count_; }
  static bool Any() { return count_ != 0; }

 private:
  inline static std::atomic<long> count_ = 0;
};

}  // namespace cordboard::com
