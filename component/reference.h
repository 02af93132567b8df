#pragma once

#include <ole2.h>

#include <utility>

namespace fiscalon::component {

/// A pointer that holds a reference to an object of the component model.
template <typename Interface>
class Reference {
 public:
  Reference() = default;
  /// Takes a reference of its own.
  explicit Reference(Interface* object) : object_(object) {
    if (object_ != nullptr)
      object_->AddRef();
  }
  Reference(const Reference& other) : Reference(other.object_) {}
  Reference(Reference&& other) noexcept : object_(other.Detach()) {}
  template <typename Derived>
  Reference(Reference<Derived>&& other) : object_(other.Detach()) {}
  Reference& operator=(Reference other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Reference() {
    if (object_ != nullptr)
      object_->Release();
  }

  /// Takes over the reference that the caller has.
  static Reference Adopt(Interface* object) {
    Reference adopted;
    adopted.object_ = object;
    return adopted;
  }
  /// Gives the reference to the caller.
  Interface* Detach() { return std::exchange(object_, nullptr); }
  /// A place for a call to put a reference in, which this takes over.
  Interface** Place() {
    *this = {};
    return &object_;
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  Interface* object_ = nullptr;
};

}  // namespace fiscalon::component
