#pragma once

#include <ole2.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "component/counted.h"
#include "component/failure.h"

namespace fiscalon::component {

/// A for-each loop over members as they were when it began, so that a loop may take away what it visits.
template <typename MemberObject, typename Member>
class MemberEnumerator final : public Counted<IEnumVARIANT> {
 public:
  using Members = std::vector<std::shared_ptr<Member>>;

  explicit MemberEnumerator(std::shared_ptr<const Members> members, size_t next = 0)
      : members_(std::move(members)), next_(next) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* items, ULONG* given) override {
    if (given != nullptr)
      *given = 0;
    if (items == nullptr || (given == nullptr && wanted != 1))
      return E_POINTER;
    ULONG filled = 0;
    const HRESULT answered = Answer(IID_IEnumVARIANT, [&] {
      for (; filled < wanted && next_ < members_->size(); ++filled) {
        IDispatch* const member = MemberObject::Of((*members_)[next_]).Detach();
        VariantInit(&items[filled]);
        items[filled].vt = VT_DISPATCH;
        items[filled].pdispVal = member;
        ++next_;
      }
    });
    if (FAILED(answered)) {
      next_ -= filled;
      while (filled > 0) VariantClear(&items[--filled]);
      return answered;
    }
    if (given != nullptr)
      *given = filled;
    return filled == wanted ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const size_t left = members_->size() - next_;
    next_ += std::min<size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
    return Answer(IID_IEnumVARIANT, copy, [&] { return new MemberEnumerator(members_, next_); });
  }

 private:
  const std::shared_ptr<const Members> members_;
  size_t next_ = 0;
};

}  // namespace fiscalon::component
