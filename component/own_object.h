#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>

#include "component/automation.h"
#include "core/platform/runtime_error.h"

namespace fiscalon::component {

/// An object that stands for one of the library's, which others may hold too: a screen its records, a collection its
/// members. Who asks twice gets the same object as long as one is held.
template <typename Object, typename CoClass, typename Interface, typename Core>
class Carrier : public Automation<CoClass, Interface> {
 public:
  /// What stands for that one; nothing for none.
  static Reference<Object> Of(std::shared_ptr<Core> core) {
    if (!core)
      return {};
    const std::lock_guard lock(lock_);
    Object*& known = all_[core.get()];
    if (known == nullptr || !known->AddRefIfAlive())
      known = new Object(std::move(core));
    return Reference<Object>::Adopt(known);
  }

  /// A new one.
  static Reference<Object> Make() { return Of(std::make_shared<Core>()); }

  const std::shared_ptr<Core>& Carried() const { return core_; }

 protected:
  explicit Carrier(std::shared_ptr<Core> core) : core_(std::move(core)) {}
  ~Carrier() override {
    const std::lock_guard lock(lock_);
    // Another one may have taken its place since its last reference went.
    if (const auto known = all_.find(core_.get()); known != all_.end() && known->second == this)
      all_.erase(known);
  }

  Core& core() const { return *core_; }

 private:
  inline static std::mutex lock_;
  inline static std::map<const Core*, Object*> all_;

  const std::shared_ptr<Core> core_;
};

/// What one of our objects, given back by a host, stands for; none for NULL. Error 13 for an object of somebody else's,
/// whatever interfaces it has.
template <typename Object, typename CoClass, typename Interface>
auto CarriedBy(Interface* given) {
  using Carried = std::remove_cvref_t<decltype(std::declval<Object>().Carried())>;
  if (given == nullptr)
    return Carried();
  void* ours = nullptr;
  if (FAILED(given->QueryInterface(__uuidof(CoClass), &ours)))
    Raise(error_number::kTypeMismatch);
  const auto object = Reference<Interface>::Adopt(static_cast<Interface*>(ours));
  return static_cast<Object*>(object.Get())->Carried();
}

}  // namespace fiscalon::component
