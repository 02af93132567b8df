#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

class AccessibleWindow;

/// What assistive programs are told of a window by the form, or of a row of a list box. The rest, such as its place, is
/// the system's to say.
struct ToldWindow {
  /// ROLE_SYSTEM_DIALOG and the like.
  LONG role = 0;
  std::wstring name = {};
  std::wstring description = {};
  /// The capital of the access key, or 0.
  int accessKey = 0;
  /// STATE_SYSTEM_CHECKED and the like: which of them the form decides, and those of them that hold.
  LONG decided = 0;
  LONG states = 0;
  /// Nothing where the system has it.
  std::optional<std::wstring> value = {};
};

/// The rows that are parts of a window.
struct ToldRows {
  int count = 0;
  /// Counted from 0; negative for none.
  int chosen = -1;
};

/// Whoever has a window of a form, for the object that assistive programs get of it.
class AccessibleSource {
 public:
  virtual ToldWindow Told() const = 0;
  // Without any its parts are the system's to tell.
  /// Those within that have objects of their own, in the order that a reader meets them.
  virtual std::vector<HWND> ToldWindows() const { return {}; }
  virtual std::optional<ToldRows> ToldOfRows() const { return std::nullopt; }
  /// Counted from 0.
  virtual std::optional<ToldWindow> ToldOfRow(int /*row*/) const { return std::nullopt; }

  /// What a program is answered that asks for an act; nothing where the system is to answer.
  using Answer = std::optional<HRESULT>;
  // The acts are done later on: the call of a program would not come back before a box is answered that came of it.
  // What can't be done is refused at once.
  /// The mouse button goes down and comes up.
  virtual Answer ClickLater() { return std::nullopt; }
  virtual Answer FocusLater() { return std::nullopt; }
  /// A text, or the words of a row.
  virtual Answer EnterLater(const std::wstring& /*value*/) { return std::nullopt; }
  /// A row that is a part of the window, counted from 0.
  virtual Answer PickLater(int /*row*/) { return std::nullopt; }

 protected:
  ~AccessibleSource() = default;
};

/// What a window answers programs that ask for its accessible object, which is made for the first of them. All happens
/// on the window's thread; where that has no messages of other programs' calls, the system answers.
class AccessibleObject {
 public:
  explicit AccessibleObject(AccessibleSource& source) : source_(source) {}
  ~AccessibleObject();
  AccessibleObject(const AccessibleObject&) = delete;
  AccessibleObject& operator=(const AccessibleObject&) = delete;

  /// To WM_GETOBJECT; nothing where the system is to answer.
  std::optional<LRESULT> AnswerTo(HWND window, WPARAM wide, LPARAM extra);

 private:
  AccessibleSource& source_;
  AccessibleWindow* object_ = nullptr;
};

}  // namespace fiscalon::win32
