#pragma once

#include <ole2.h>

namespace fiscalon::component {

/// The factory of a class that hosts may create. CLASS_E_CLASSNOTAVAILABLE for any other, also for the records that
/// only a collection makes.
HRESULT FindClassFactory(REFCLSID classId, REFIID interfaceId, void** factory);

}  // namespace fiscalon::component
