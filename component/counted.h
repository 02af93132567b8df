#pragma once

#include "component/module.h"
#include "frontends/win32/counted.h"

namespace fiscalon::component {

/// An object that hosts can hold, which keeps the component loaded.
template <typename... Interfaces>
class Counted : public win32::Counted<Interfaces...> {
 private:
  const Needed needed_;
};

}  // namespace fiscalon::component
