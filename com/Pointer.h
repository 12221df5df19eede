// A counted reference to an object of the component object model.
#pragma once

#include <utility>

#include "com/Platform.h"

namespace cordboard::com {

template <typename Interface>
class Pointer {
 public:
  Pointer() = default;
  // Takes a reference of its own: the caller keeps what it has.
  explicit Pointer(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  Pointer(const Pointer& other) : Pointer(other.object_) {}
  Pointer(Pointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Pointer& operator=(Pointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Pointer() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // The place of an out-argument. What was held is released.
  Interface** Receive() {
    *this = Pointer();
    return &object_;
  }
  void** ReceiveAny() { return reinterpret_cast<void**>(Receive()); }

  // Another interface of the same object; holds nothing where there is none.
  template <typename Other>
  Pointer<Other> As() const {
    Pointer<Other> other;
    if (object_ != nullptr && FAILED(object_->QueryInterface(__uuidof(Other), other.ReceiveAny())))
      other = Pointer<Other>();
    return other;
  }

 private:
  Interface* object_ = nullptr;
};

}  // namespace cordboard::com
