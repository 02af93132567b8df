#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <set>
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
    if (known == nullptr || !known->AddRefIfAlive()) {
      known = new Object(std::move(core));
      ours_.insert(known);
    }
    return Reference<Object>::Adopt(known);
  }

  /// A new one.
  static Reference<Object> Make() { return Of(std::make_shared<Core>()); }

  /// What one of ours, given back by a host, stands for; none for NULL. Error 13 for an object of somebody else's,
  /// whatever interfaces it claims to have.
  static std::shared_ptr<Core> CarriedBy(Interface* given) {
    if (given == nullptr)
      return nullptr;
    const std::lock_guard lock(lock_);
    if (!ours_.contains(given))
      Raise(error_number::kTypeMismatch);
    return static_cast<Object*>(given)->core_;
  }

 protected:
  explicit Carrier(std::shared_ptr<Core> core) : core_(std::move(core)) {}
  ~Carrier() override {
    const std::lock_guard lock(lock_);
    ours_.erase(this);
    // Another one may have taken its place since its last reference went.
    if (const auto known = all_.find(core_.get()); known != all_.end() && known->second == this)
      all_.erase(known);
  }

  Core& core() const { return *core_; }

 private:
  inline static std::mutex lock_;
  inline static std::map<const Core*, Object*> all_;
  inline static std::set<const Interface*> ours_;

  const std::shared_ptr<Core> core_;
};

}  // namespace fiscalon::component
