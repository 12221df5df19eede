// A host as a caller of the platform brings it: an object that is called by name, and answers as the test says.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "com/Pointer.h"
#include "com/Variant.h"
#include "script/List.h"

namespace cordboard::com {

struct ObjectCall {
  std::string name;
  std::vector<VARIANT*> arguments;  // in their own order
  VARIANT* result;
  EXCEPINFO* failure;

  // The call as a trace writes it: references are "out", and what is not given is left off.
  std::string Text() const;
  // Puts a value where the reference at this place refers to.
  void Give(std::size_t place, Variant value) const;
  void Answer(Variant value) const;
};

class AutomationHost final : public IDispatch {
 public:
  using Answering = std::function<HRESULT(const ObjectCall&)>;

  // Without an answer it knows no name.
  static Pointer<AutomationHost> Make(Answering answering);
  virtual ~AutomationHost() = default;

  // How many hold it.
  ULONG references() const { return references_; }

  STDMETHOD(QueryInterface)(REFIID iid, void** object) override;
  STDMETHOD_(ULONG, AddRef)() override;
  STDMETHOD_(ULONG, Release)() override;
  STDMETHOD(GetTypeInfoCount)(UINT* count) override;
  STDMETHOD(GetTypeInfo)(UINT index, LCID locale, ITypeInfo** type) override;
  STDMETHOD(GetIDsOfNames)(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHOD(Invoke)
  (DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* given, VARIANT* result, EXCEPINFO* failure,
   UINT* wrong) override;

 private:
  explicit AutomationHost(Answering answering) : answering_(std::move(answering)) {}

  ULONG references_ = 0;
  Answering answering_;
  std::vector<std::string> names_;  // by their numbers
};

// A host that answers True to everything.
Pointer<AutomationHost> AgreeingHost();

// Rows as an array of variants [column][row], each dimension from its own lower bound.
Variant Rows(const std::vector<std::vector<Value>>& columns, LONG lower_column = 0, LONG lower_row = 0);

}  // namespace cordboard::com
