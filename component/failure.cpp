#include "component/failure.h"

#include <new>

#include "component/reference.h"
#include "core/platform/runtime_error.h"
#include "core/platform/windows/wide_text.h"

namespace fiscalon::component {

namespace {

constexpr std::string_view kSource = "Fiscalon";

HRESULT CodeOf(const RuntimeError& error) {
  constexpr uint32_t kRunTimeErrors = 0x800A0000;
  const auto number = static_cast<uint32_t>(error.Number());
  return static_cast<HRESULT>(error.Number() < 0 ? number : kRunTimeErrors + number);
}

void SetInformation(REFIID interfaceId, std::string_view source, std::string_view description) {
  Reference<ICreateErrorInfo> made;
  if (FAILED(CreateErrorInfo(made.Place())))
    return;
  made->SetGUID(interfaceId);
  made->SetSource(ToWide(source).data());
  made->SetDescription(ToWide(description).data());
  Reference<IErrorInfo> information;
  if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(information.Place()))))
    SetErrorInfo(0, information.Get());
}

HRESULT Report(REFIID interfaceId) {
  try {
    throw;
  } catch (const RuntimeError& error) {
    SetInformation(interfaceId, error.Source(), error.Description());
    return CodeOf(error);
  } catch (const ComponentError& error) {
    SetInformation(interfaceId, kSource, error.what());
    return error.Code();
  } catch (const std::bad_alloc&) {
    SetInformation(interfaceId, kSource, "Out of memory");
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    SetInformation(interfaceId, kSource, std::string("An unforeseen failure: ") + error.what());
    return E_FAIL;
  } catch (...) {
    SetInformation(interfaceId, kSource, "An unforeseen failure");
    return E_FAIL;
  }
}

}  // namespace

HRESULT ReportFailure(REFIID interfaceId) noexcept {
  try {
    return Report(interfaceId);
  } catch (...) {
    // Only memory for the words themselves can have been missing.
    return E_OUTOFMEMORY;
  }
}

}  // namespace fiscalon::component
