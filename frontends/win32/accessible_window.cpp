#include "frontends/win32/accessible_window.h"

#include <oleacc.h>

#include <new>

#include "frontends/win32/counted.h"

namespace fiscalon::win32 {
namespace {

bool IsSelf(const VARIANT& child) {
  return child.vt == VT_I4 && child.lVal == CHILDID_SELF;
}

bool IsPart(const VARIANT& child) {
  return child.vt == VT_I4 && child.lVal > CHILDID_SELF;
}

/// Counted from 0, as programs do not.
int PartOf(const VARIANT& child) {
  return child.lVal - 1;
}

HRESULT GiveText(const std::wstring& text, BSTR* to) {
  if (to == nullptr)
    return E_INVALIDARG;
  *to = text.empty() ? nullptr : ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (text.empty())
    return S_FALSE;
  return *to == nullptr ? E_OUTOFMEMORY : S_OK;
}

}  // namespace

/// The system's own object of a window, with what the form tells. It may outlive the window in another program, and
/// then says so.
class AccessibleWindow final : public Counted<IAccessible> {
 public:
  AccessibleWindow(HWND window, AccessibleSource& source, IAccessible& standard)
      : window_(window), source_(&source), standard_(standard) {}

  void WindowGoes() { source_ = nullptr; }

  // What the form tells.
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
    return Tell(
        child, [&](const ToldWindow& told) { return GiveText(told.name, name); },
        [&] { return standard_.get_accName(child, name); });
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
    return Tell(
        child, [&](const ToldWindow& told) { return GiveText(told.description, description); },
        [&] { return standard_.get_accDescription(child, description); });
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* key) override {
    const auto tell = [&](const ToldWindow& told) {
      const auto letter = static_cast<wchar_t>(told.accessKey);
      return GiveText(letter == 0 ? std::wstring() : std::wstring(L"Alt+") + letter, key);
    };
    return Tell(child, tell, [&] { return standard_.get_accKeyboardShortcut(child, key); });
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
    const auto tell = [&](const ToldWindow& told) {
      role->vt = VT_I4;
      role->lVal = told.role;
      return S_OK;
    };
    return Tell(child, tell, [&] { return standard_.get_accRole(child, role); });
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
    const auto standard = [&] { return standard_.get_accState(child, state); };
    const auto tell = [&](const ToldWindow& told) {
      // Wine knows no rows.
      const LONG before = SUCCEEDED(standard()) ? state->lVal : 0;
      state->vt = VT_I4;
      state->lVal = (before & ~told.decided) | told.states;
      return S_OK;
    };
    return Tell(child, tell, standard);
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
    const auto standard = [&] { return standard_.get_accValue(child, value); };
    const auto tell = [&](const ToldWindow& told) { return told.value ? GiveText(*told.value, value) : standard(); };
    return Tell(child, tell, standard);
  }

  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
    const auto tell = [&]() -> AccessibleSource::Answer {
      const auto rows = source_->ToldOfRows();
      const auto parts = rows ? rows->count : static_cast<int>(source_->ToldWindows().size());
      if (!rows && parts == 0)
        return std::nullopt;
      *count = parts;
      return S_OK;
    };
    return Ask(tell, [&] { return standard_.get_accChildCount(count); });
  }
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
    const auto tell = [&]() -> AccessibleSource::Answer {
      if (!IsPart(child))
        return std::nullopt;
      // A row has no object of its own.
      *object = nullptr;
      if (source_->ToldOfRow(PartOf(child)))
        return S_FALSE;
      const std::vector<HWND> windows = source_->ToldWindows();
      const auto part = static_cast<size_t>(PartOf(child));
      if (part >= windows.size())
        return std::nullopt;
      return ::AccessibleObjectFromWindow(windows[part], static_cast<DWORD>(OBJID_CLIENT), __uuidof(IDispatch),
                                          reinterpret_cast<void**>(object));
    };
    return Ask(tell, [&] { return standard_.get_accChild(child, object); });
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
    const auto tell = [&]() -> AccessibleSource::Answer {
      const auto rows = source_->ToldOfRows();
      if (!rows)
        return std::nullopt;
      children->vt = rows->chosen < 0 ? VT_EMPTY : VT_I4;
      children->lVal = rows->chosen + 1;
      return S_OK;
    };
    return Ask(tell, [&] { return standard_.get_accSelection(children); });
  }

  // What it does.
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
    return Ask([&] { return IsSelf(child) ? source_->ClickLater() : PickLater(child); },
               [&] { return standard_.accDoDefaultAction(child); });
  }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
    const auto enter = [&]() -> AccessibleSource::Answer {
      if (!IsSelf(child))
        return std::nullopt;
      return source_->EnterLater({value, ::SysStringLen(value)});
    };
    return Ask(enter, [&] { return standard_.put_accValue(child, value); });
  }
  HRESULT STDMETHODCALLTYPE accSelect(LONG how, VARIANT child) override {
    const auto select = [&]() -> AccessibleSource::Answer {
      if (how == SELFLAG_TAKEFOCUS)
        return IsSelf(child) || IsRow(child) ? source_->FocusLater() : std::nullopt;
      const bool picks = how == SELFLAG_TAKESELECTION || how == (SELFLAG_TAKESELECTION | SELFLAG_TAKEFOCUS);
      return picks ? PickLater(child) : std::nullopt;
    };
    return Ask(select, [&] { return standard_.accSelect(how, child); });
  }

  // What the system tells and does.
  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override { return standard_.get_accParent(parent); }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
    return standard_.get_accHelp(child, help);
  }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    return standard_.get_accHelpTopic(file, child, topic);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override { return standard_.get_accFocus(child); }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
    return standard_.get_accDefaultAction(child, action);
  }
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
    return standard_.accLocation(left, top, width, height, child);
  }
  HRESULT STDMETHODCALLTYPE accNavigate(LONG way, VARIANT from, VARIANT* to) override {
    return standard_.accNavigate(way, from, to);
  }
  HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* child) override {
    return standard_.accHitTest(x, y, child);
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
    return standard_.put_accName(child, name);
  }

  // IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return standard_.GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override {
    return standard_.GetTypeInfo(index, locale, information);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    return standard_.GetIDsOfNames(id, names, count, locale, ids);
  }
  // That of the system would call itself, and tell nothing of the form's.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

 private:
  ~AccessibleWindow() override { standard_.Release(); }

  void* Find(REFIID id) override {
    return id == __uuidof(IDispatch) ? static_cast<IDispatch*>(this) : Counted::Find(id);
  }

  bool IsRow(const VARIANT& child) const { return IsPart(child) && source_->ToldOfRow(PartOf(child)); }

  AccessibleSource::Answer PickLater(const VARIANT& child) {
    return IsPart(child) ? source_->PickLater(PartOf(child)) : std::nullopt;
  }

  /// Of the window itself the form tells, and of its rows, of all other parts the system.
  template <class Form, class Standard>
  HRESULT Tell(const VARIANT& child, Form&& form, Standard&& standard) {
    const auto tell = [&]() -> AccessibleSource::Answer {
      if (IsSelf(child))
        return form(source_->Told());
      const auto row = IsPart(child) ? source_->ToldOfRow(PartOf(child)) : std::nullopt;
      return row ? AccessibleSource::Answer(form(*row)) : std::nullopt;
    };
    return Ask(tell, standard);
  }

  template <class Form, class Standard>
  HRESULT Ask(Form&& form, Standard&& standard) {
    // A window may go before the view that tells of it.
    if (source_ == nullptr || ::IsWindow(window_) == FALSE)
      return CO_E_OBJNOTCONNECTED;
    try {
      const AccessibleSource::Answer answer = form();
      return answer ? *answer : standard();
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  const HWND window_;
  AccessibleSource* source_;
  IAccessible& standard_;
};

AccessibleObject::~AccessibleObject() {
  if (object_ == nullptr)
    return;
  object_->WindowGoes();
  ::CoDisconnectObject(object_, 0);
  object_->Release();
  ::CoUninitialize();
}

std::optional<LRESULT> AccessibleObject::AnswerTo(HWND window, WPARAM wide, LPARAM extra) {
  if (static_cast<DWORD>(extra) != static_cast<DWORD>(OBJID_CLIENT))
    return std::nullopt;
  if (object_ == nullptr) {
    // Elsewhere than in an apartment of its own a thread's objects are called by any other thread.
    if (FAILED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
      return std::nullopt;
    IAccessible* standard = nullptr;
    if (SUCCEEDED(::CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible),
                                              reinterpret_cast<void**>(&standard))))
      object_ = new (std::nothrow) AccessibleWindow(window, source_, *standard);
    if (object_ == nullptr) {
      if (standard != nullptr)
        standard->Release();
      ::CoUninitialize();
      return std::nullopt;
    }
  }
  return ::LresultFromObject(__uuidof(IAccessible), wide, object_);
}

}  // namespace fiscalon::win32
