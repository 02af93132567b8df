#pragma once

#include <memory>
#include <utility>
#include <variant>

#include "component/index_key.h"
#include "component/member_enumerator.h"
#include "component/own_object.h"
#include "component/texts.h"

namespace fiscalon::component {

/// What the three collections do alike: all but `Add`, which takes the fields of their members.
template <typename Object, typename CoClass, typename Interface, typename Core, typename MemberObject,
          typename MemberInterface>
class CollectionObject : public Carrier<Object, CoClass, Interface, Core> {
 public:
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vntIndexKey, MemberInterface** member) override {
    return this->Answer(member, [&] {
      return std::visit([&](const auto& key) { return MemberObject::Of(this->core().Kept(key)).Detach(); },
                        ReadIndexKey(vntIndexKey));
    });
  }
  HRESULT STDMETHODCALLTYPE get_Count(LONG* number) override {
    return this->Answer(number, [&] { return this->core().Count(); });
  }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT vntIndexKey) override {
    return this->Answer(
        [&] { std::visit([&](const auto& key) { this->core().Remove(key); }, ReadIndexKey(vntIndexKey)); });
  }
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** enumerator) override {
    return this->Answer(enumerator, [&] {
      using Enumerator = MemberEnumerator<MemberObject, typename Core::value_type>;
      auto members = std::make_shared<typename Enumerator::Members>();
      for (int32_t position = 1; position <= this->core().Count(); ++position)
        members->push_back(this->core().Kept(position));
      return new Enumerator(std::move(members));
    });
  }
  HRESULT STDMETHODCALLTYPE Clear() override {
    return this->Answer([&] { this->core().Clear(); });
  }

 protected:
  using Carrier<Object, CoClass, Interface, Core>::Carrier;

  /// Appends a member of those fields, the last of which is the key.
  template <typename... Fields>
  HRESULT Append(MemberInterface** member, Fields... fields) {
    return this->Answer(member, [&] {
      this->core().Add(FromHost(fields)...);
      return MemberObject::Of(this->core().Kept(this->core().Count())).Detach();
    });
  }
};

}  // namespace fiscalon::component
