#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "bindings/c/failure.h"

namespace fiscalon::c {

/// What a handle stands for, by its type in the interface: `Object` is what the library keeps for one.
template <typename Handle>
struct HandleOf;

/// The objects that hosts hold. A handle is no address but a number: of a place, and of the how-manieth object that
/// stands there. So a copy of one that was destroyed is noticed, whatever has come to its place since.
class Handles {
 public:
  void* Add(std::shared_ptr<void> object, const void* kind);
  /// Throws 91 for none, FISCALON_ERROR_NO_HANDLE for one that was destroyed or is of another kind.
  std::shared_ptr<void> Find(const void* handle, const void* kind) const;
  void Remove(const void* handle, const void* kind);

 private:
  struct Place {
    std::shared_ptr<void> object = {};
    const void* kind = nullptr;
    uintptr_t round = 1;
    size_t nextFree = 0;
  };

  size_t IndexOf(const void* handle, const void* kind) const;

  std::vector<Place> places_;
  /// From 1; 0 for none.
  size_t firstFree_ = 0;
};

/// Those of the process, for any thread at any time: whoever collects a host's garbage does so beside an open screen.
Handles& TheHandles();

/// Tells the kinds of handles from each other by its address.
template <typename Handle>
inline constexpr char kKind = 0;

template <typename Handle>
Handle* NewHandle(std::shared_ptr<typename HandleOf<Handle>::Object> object) {
  return static_cast<Handle*>(TheHandles().Add(std::move(object), &kKind<Handle>));
}

/// What stands behind a handle, kept alive whatever becomes of that.
template <typename Handle>
std::shared_ptr<typename HandleOf<Handle>::Object> Of(Handle* handle) {
  return std::static_pointer_cast<typename HandleOf<Handle>::Object>(TheHandles().Find(handle, &kKind<Handle>));
}

}  // namespace fiscalon::c
