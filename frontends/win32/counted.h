#pragma once

#include <ole2.h>

#include <atomic>
#include <tuple>

namespace fiscalon::win32 {

/// An object that other programs can hold: it has those interfaces, and lives until its last reference goes. Made with
/// one reference, which is the maker's.
template <typename... Interfaces>
class Counted : public Interfaces... {
 public:
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr)
      return E_POINTER;
    *object = Find(id);
    if (*object == nullptr)
      return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0)
      delete this;
    return left;
  }

  /// A reference more, unless the last one has just gone.
  bool AddRefIfAlive() {
    ULONG references = references_;
    while (references != 0)
      if (references_.compare_exchange_weak(references, references + 1))
        return true;
    return false;
  }

 protected:
  Counted() = default;
  virtual ~Counted() = default;

  /// The interface of that identifier; null where the object has none.
  virtual void* Find(REFIID id) {
    using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;
    void* found = id == __uuidof(IUnknown) ? static_cast<First*>(this) : nullptr;
    ((id == __uuidof(Interfaces) ? void(found = static_cast<Interfaces*>(this)) : void()), ...);
    return found;
  }

 private:
  std::atomic<ULONG> references_ = 1;
};

}  // namespace fiscalon::win32
