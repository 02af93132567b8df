#include "tests/frontends/win32/assistive_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "core/forms/scoped_value.h"
#include "tests/frontends/win32/held_object.h"

namespace fiscalon::win32 {
namespace {

constexpr UINT kDo = WM_APP;
constexpr DWORD kPatience = 15'000;

VARIANT Self() {
  return Part(CHILDID_SELF);
}

std::wstring TextOf(IAccessible& object, HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, BSTR*),
                    LONG part = CHILDID_SELF) {
  BSTR text = nullptr;
  if (FAILED((object.*get)(Part(part), &text)) || text == nullptr)
    return {};
  std::wstring said(text, ::SysStringLen(text));
  ::SysFreeString(text);
  return said;
}

LONG NumberOf(IAccessible& object, HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, VARIANT*)) {
  VARIANT number = {};
  return SUCCEEDED((object.*get)(Self(), &number)) && number.vt == VT_I4 ? number.lVal : 0;
}

/// What the thread hears; the only one at a time.
std::vector<AssistiveProgram::Event>* heard = nullptr;

void CALLBACK Hear(HWINEVENTHOOK, DWORD kind, HWND window, LONG, LONG, DWORD, DWORD) {
  heard->push_back({kind, window});
}

/// Serves what comes to this thread until the event is there.
bool ServeUntil(HANDLE event, const std::function<void()>& serve) {
  for (;;) {
    const DWORD woken = ::MsgWaitForMultipleObjects(1, &event, FALSE, kPatience, QS_ALLINPUT);
    if (woken == WAIT_OBJECT_0 || woken == WAIT_TIMEOUT)
      return woken == WAIT_OBJECT_0;
    serve();
  }
}

}  // namespace

struct AssistiveProgram::Job {
  const std::function<void()>& act;
  HANDLE done;
};

AssistiveProgram::AssistiveProgram(std::function<void()> serve) : serve_(std::move(serve)) {
  heard = &events_;
  const HANDLE ready = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  thread_ = std::thread([this, ready] { Run(ready); });
  ::WaitForSingleObject(ready, kPatience);
  ::CloseHandle(ready);
}

AssistiveProgram::~AssistiveProgram() {
  ::PostMessageW(inbox_, WM_CLOSE, 0, 0);
  thread_.join();
}

void AssistiveProgram::Run(HANDLE ready) {
  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  inbox_ = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ::SetWindowLongPtrW(inbox_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AssistiveProgram::Procedure));
  const HWINEVENTHOOK hook =
      ::SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, &Hear, ::GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  ::SetEvent(ready);
  MSG message = {};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
  ::UnhookWinEvent(hook);
  for (const auto& [window, object] : objects_)
    if (object != nullptr)
      object->Release();
  ::CoUninitialize();
}

LRESULT CALLBACK AssistiveProgram::Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra) {
  if (message == kDo) {
    const auto& job = *reinterpret_cast<const Job*>(extra);
    job.act();
    ::SetEvent(job.done);
    return 0;
  }
  if (message == WM_CLOSE) {
    ::DestroyWindow(window);
    ::PostQuitMessage(0);
    return 0;
  }
  return ::DefWindowProcW(window, message, wide, extra);
}

void AssistiveProgram::Do(const std::function<void()>& act) {
  const Job job = {act, ::CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  const ScopedValue called(called_, job.done);
  ::PostMessageW(inbox_, kDo, 0, reinterpret_cast<LPARAM>(&job));
  // Nothing but its end brings the job back.
  if (!ServeUntil(job.done, serve_))
    throw std::runtime_error("the form does not answer an assistive program");
  // What was left to be done later.
  serve_();
  ::CloseHandle(job.done);
}

bool AssistiveProgram::IsBack() const {
  return ::WaitForSingleObject(called_, kPatience) == WAIT_OBJECT_0;
}

std::vector<HWND> AssistiveProgram::Within(HWND window) {
  std::vector<HWND> windows = {window};
  ::EnumChildWindows(
      window,
      [](HWND child, LPARAM list) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  return windows;
}

IAccessible* AssistiveProgram::ObjectOf(HWND window) {
  IAccessible*& object = objects_[window];
  if (object == nullptr)
    ::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                 reinterpret_cast<void**>(&object));
  return object;
}

AccessibleThing AssistiveProgram::Told(HWND window) {
  AccessibleThing told;
  Do([&] {
    if (IAccessible* object = ObjectOf(window))
      told = {.name = TextOf(*object, &IAccessible::get_accName),
              .description = TextOf(*object, &IAccessible::get_accDescription),
              .value = TextOf(*object, &IAccessible::get_accValue),
              .key = TextOf(*object, &IAccessible::get_accKeyboardShortcut),
              .role = NumberOf(*object, &IAccessible::get_accRole),
              .states = NumberOf(*object, &IAccessible::get_accState)};
  });
  return told;
}

bool AssistiveProgram::HasFocus(HWND window) {
  LONG states = 0;
  Do([&] {
    if (IAccessible* object = ObjectOf(window))
      states = NumberOf(*object, &IAccessible::get_accState);
  });
  return (states & STATE_SYSTEM_FOCUSED) != 0;
}

std::vector<std::pair<LONG, std::wstring>> AssistiveProgram::PartsOf(HWND window) {
  std::vector<std::pair<LONG, std::wstring>> parts;
  Do([&] {
    LONG count = 0;
    IAccessible* whole = ObjectOf(window);
    if (whole == nullptr || FAILED(whole->get_accChildCount(&count)))
      return;
    std::vector<VARIANT> children(static_cast<size_t>(count));
    ::AccessibleChildren(whole, 0, count, children.data(), &count);
    for (VARIANT& child : children) {
      IAccessible* part = nullptr;
      if (child.vt == VT_DISPATCH && child.pdispVal != nullptr)
        child.pdispVal->QueryInterface(__uuidof(IAccessible), reinterpret_cast<void**>(&part));
      ::VariantClear(&child);
      if (part == nullptr)
        continue;
      parts.emplace_back(NumberOf(*part, &IAccessible::get_accRole), TextOf(*part, &IAccessible::get_accName));
      part->Release();
    }
  });
  return parts;
}

std::vector<std::wstring> AssistiveProgram::RowsOf(HWND list) {
  std::vector<std::wstring> rows;
  Do([&] {
    LONG count = 0;
    IAccessible* object = ObjectOf(list);
    if (object != nullptr)
      object->get_accChildCount(&count);
    for (LONG row = 1; row <= count; ++row) rows.push_back(TextOf(*object, &IAccessible::get_accName, row));
  });
  return rows;
}

bool AssistiveProgram::DoDefaultAction(HWND window) {
  bool done = false;
  Do([&] {
    IAccessible* object = ObjectOf(window);
    done = object != nullptr && object->accDoDefaultAction(Self()) == S_OK;
  });
  return done;
}

bool AssistiveProgram::PutValue(HWND window, const std::wstring& value) {
  bool done = false;
  Do([&] {
    IAccessible* object = ObjectOf(window);
    const BSTR text = ::SysAllocString(value.c_str());
    done = object != nullptr && object->put_accValue(Self(), text) == S_OK;
    ::SysFreeString(text);
  });
  return done;
}

bool AssistiveProgram::TakeFocus(HWND window) {
  return Select(window, SELFLAG_TAKEFOCUS, CHILDID_SELF);
}

bool AssistiveProgram::SelectRow(HWND list, LONG number) {
  return Select(list, SELFLAG_TAKESELECTION, number);
}

bool AssistiveProgram::Select(HWND window, LONG how, LONG part) {
  bool done = false;
  Do([&] {
    IAccessible* object = ObjectOf(window);
    done = object != nullptr && object->accSelect(how, Part(part)) == S_OK;
  });
  return done;
}

bool AssistiveProgram::Hears(const std::function<bool(const Event&)>& wanted) {
  bool found = false;
  Do([&] {
    // Each message that comes to this thread may be the event.
    const DWORD end = ::GetTickCount() + kPatience / 3;
    while (!(found = std::any_of(events_.begin(), events_.end(), wanted)) && ::GetTickCount() < end) {
      ::MsgWaitForMultipleObjects(0, nullptr, FALSE, end - ::GetTickCount(), QS_ALLINPUT);
      MSG message = {};
      while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
    }
  });
  return found;
}

HWND AssistiveProgram::LastOf(DWORD kind) {
  HWND window = nullptr;
  Do([&] {
    for (const Event& event : events_)
      if (event.kind == kind)
        window = event.window;
  });
  return window;
}

void AssistiveProgram::Forget() {
  Do([this] { events_.clear(); });
}

}  // namespace fiscalon::win32
