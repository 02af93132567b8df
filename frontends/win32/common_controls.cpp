#include "frontends/win32/common_controls.h"

#include <array>

namespace fiscalon::win32 {
namespace {

/// The manifest's resource, as common_controls.rc has it.
constexpr int kManifest = 2;

class Context {
 public:
  Context() {
    std::array<wchar_t, MAX_PATH> path = {};
    ::GetModuleFileNameW(OwnModule(), path.data(), static_cast<DWORD>(path.size()));
    ACTCTXW request = {};
    request.cbSize = sizeof(request);
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    request.lpSource = path.data();
    request.lpResourceName = reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(kManifest));
    request.hModule = OwnModule();
    handle_ = ::CreateActCtxW(&request);
  }
  ~Context() {
    if (IsThere())
      ::ReleaseActCtx(handle_);
  }
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  bool IsThere() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Handle() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace

CommonControls::CommonControls() {
  static const Context context;
  if (!context.IsThere())
    return;
  active_ = ::ActivateActCtx(context.Handle(), &cookie_) != FALSE;
  // Their classes are known once the library is loaded by that context.
  static const HMODULE library = ::LoadLibraryW(L"comctl32.dll");
  static_cast<void>(library);
}

CommonControls::~CommonControls() {
  if (active_)
    ::DeactivateActCtx(0, cookie_);
}

}  // namespace fiscalon::win32
