#include "bindings/c/handles.h"

#include <limits>
#include <new>
#include <utility>

#include "bindings/c/turn.h"

namespace fiscalon::c {

namespace {

// Half of a handle is its place, from 1; the other half is the round.
constexpr int kPlaceBits = std::numeric_limits<uintptr_t>::digits / 2;
constexpr uintptr_t kMostPlaces = (uintptr_t{1} << kPlaceBits) - 1;

}  // namespace

void* Handles::Add(std::shared_ptr<void> object, const void* kind) {
  const std::lock_guard lock(TheLock());
  if (firstFree_ == 0) {
    if (places_.size() == kMostPlaces)
      throw std::bad_alloc();
    places_.emplace_back();
    firstFree_ = places_.size();
  }
  const size_t number = firstFree_;
  Place& place = places_[number - 1];
  firstFree_ = place.nextFree;
  place.object = std::move(object);
  place.kind = kind;
  return reinterpret_cast<void*>(place.round << kPlaceBits | number);
}

size_t Handles::IndexOf(const void* handle, const void* kind) const {
  if (handle == nullptr)
    Fail(FISCALON_ERROR_OBJECT_NOT_SET, "NULL was given for a handle.");
  const auto value = reinterpret_cast<uintptr_t>(handle);
  const uintptr_t number = value & kMostPlaces;
  if (number == 0 || number > places_.size() || places_[number - 1].round != value >> kPlaceBits ||
      !places_[number - 1].object)
    Fail(FISCALON_ERROR_NO_HANDLE, "The handle was destroyed, or is none.");
  if (places_[number - 1].kind != kind)
    Fail(FISCALON_ERROR_NO_HANDLE, "The handle is of another kind.");
  return number - 1;
}

std::shared_ptr<void> Handles::Find(const void* handle, const void* kind) const {
  const std::lock_guard lock(TheLock());
  return places_[IndexOf(handle, kind)].object;
}

void Handles::Remove(const void* handle, const void* kind) {
  // The object goes last, when the lock is free again.
  std::shared_ptr<void> object;
  const std::lock_guard lock(TheLock());
  const size_t index = IndexOf(handle, kind);
  Place& place = places_[index];
  object = std::exchange(place.object, nullptr);
  place.round = (place.round & (kMostPlaces >> 1)) + 1;
  place.nextFree = std::exchange(firstFree_, index + 1);
}

Handles& TheHandles() {
  static Handles& handles = *new Handles;
  return handles;
}

}  // namespace fiscalon::c
