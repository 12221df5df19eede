// Makes objects of the class CScript.
#pragma once

#include <atomic>

#include "com/InUse.h"
#include "com/Platform.h"

namespace cordboard::com {

class ClassFactory final : public IClassFactory {
 public:
  virtual ~ClassFactory() = default;

  STDMETHOD(QueryInterface)(REFIID iid, void** object) override;
  STDMETHOD_(ULONG, AddRef)() override;
  STDMETHOD_(ULONG, Release)() override;
  STDMETHOD(CreateInstance)(IUnknown* outer, REFIID iid, void** object) override;
  STDMETHOD(LockServer)(BOOL lock) override;

 private:
  InUse in_use_;
  std::atomic<ULONG> references_ = 0;
};

}  // namespace cordboard::com
