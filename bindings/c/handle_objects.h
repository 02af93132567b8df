#pragma once

#include <memory>
#include <string>

#include "bindings/c/handles.h"
#include "core/records/pc4_records.h"
#include "core/session.h"
#include "validation/validate_add_info.h"

/// What stands behind each kind of handle: an object of the library, and the text that was last read of it.
namespace fiscalon::c {

/// One that others may hold too.
template <typename Core>
struct Shared {
  std::shared_ptr<Core> core = {};
  std::string text = {};
};

/// One of the host alone.
template <typename Core>
struct Owned {
  Core core = {};
  std::string text = {};
};

template <>
struct HandleOf<fiscalon_record> {
  using Object = Shared<PC4>;
};
template <>
struct HandleOf<fiscalon_records> {
  using Object = Shared<PC4s>;
  using Member = fiscalon_record;
};
template <>
struct HandleOf<fiscalon_gov_format> {
  using Object = Shared<clsPC4GovFormat>;
};
template <>
struct HandleOf<fiscalon_gov_formats> {
  using Object = Shared<clsPC4GovFormats>;
  using Member = fiscalon_gov_format;
};
template <>
struct HandleOf<fiscalon_free_format> {
  using Object = Shared<clsPC4FreeFormat>;
};
template <>
struct HandleOf<fiscalon_free_formats> {
  using Object = Shared<clsPC4FreeFormats>;
  using Member = fiscalon_free_format;
};
template <>
struct HandleOf<fiscalon_payment> {
  using Object = Owned<Levyra>;
};
template <>
struct HandleOf<fiscalon_check> {
  using Object = Owned<clsValidateAddInfo>;
};

/// A handle of the host's own to what is shared; NULL for none.
template <typename Handle, typename Core>
Handle* NewHandleTo(std::shared_ptr<Core> core) {
  if (!core)
    return nullptr;
  return NewHandle<Handle>(std::make_shared<Shared<Core>>(Shared<Core>{.core = std::move(core)}));
}

/// What a handle shares; nothing for NULL.
template <typename Handle>
auto SharedBy(Handle* handle) {
  return handle == nullptr ? decltype(Of(handle)->core){} : Of(handle)->core;
}

}  // namespace fiscalon::c
