#pragma once

#include <fiscalon_component.h>

#include "component/automation.h"

namespace fiscalon::component {

/// What a host sets once, for all objects of the process. It holds nothing itself: each says the same.
class SetupObject final : public Automation<::Setup, ::_Setup> {
 public:
  static Reference<SetupObject> Make();

  HRESULT STDMETHODCALLTYPE get_Language(BSTR* name) override;
  HRESULT STDMETHODCALLTYPE put_Language(BSTR name) override;
};

}  // namespace fiscalon::component
