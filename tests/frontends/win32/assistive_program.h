#pragma once

#include <functional>
#include <map>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "frontends/win32/windows_api.h"

#include <oleacc.h>

namespace fiscalon::win32 {

/// What an accessible object tells of itself.
struct AccessibleThing {
  std::wstring name = {};
  std::wstring description = {};
  std::wstring value = {};
  std::wstring key = {};
  LONG role = 0;
  LONG states = 0;

  bool Is(LONG state) const { return (states & state) != 0; }
};

/// An assistive program: a thread of its own, which reaches the form's windows by accessible objects alone, as Windows
/// brings them there, and hears what windows tell. The thread that asks serves its messages meanwhile by `serve`.
class AssistiveProgram {
 public:
  explicit AssistiveProgram(std::function<void()> serve);
  ~AssistiveProgram();
  AssistiveProgram(const AssistiveProgram&) = delete;
  AssistiveProgram& operator=(const AssistiveProgram&) = delete;

  /// The window's and of all windows in it, in their order.
  std::vector<HWND> Within(HWND window);
  AccessibleThing Told(HWND window);
  /// Roles and names of the objects that are parts of the window's own.
  std::vector<std::pair<LONG, std::wstring>> PartsOf(HWND window);
  bool HasFocus(HWND window);
  /// The names of the rows that a list has as its parts.
  std::vector<std::wstring> RowsOf(HWND list);
  /// Windows' answers to these are success or not.
  bool DoDefaultAction(HWND window);
  bool PutValue(HWND window, const std::wstring& value);
  bool TakeFocus(HWND window);
  bool SelectRow(HWND list, LONG number);
  /// For what is served while the program calls: whether the call comes back all the same.
  bool IsBack() const;

  struct Event {
    DWORD kind = 0;
    HWND window = nullptr;
  };
  /// Waits for an event that is looked for, of those since the last call of `Forget`. False where none comes.
  bool Hears(const std::function<bool(const Event&)>& wanted);
  /// The window of the last event of a kind.
  HWND LastOf(DWORD kind);
  void Forget();

 private:
  struct Job;
  /// The window's object, which stays as long as this. Only on the thread.
  IAccessible* ObjectOf(HWND window);
  void Run(HANDLE ready);
  void Do(const std::function<void()>& job);
  bool Select(HWND window, LONG how, LONG part);
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);

  std::function<void()> serve_;
  HWND inbox_ = nullptr;
  std::vector<Event> events_;
  std::map<HWND, IAccessible*> objects_;
  /// Set when the call comes back that is the last one.
  HANDLE called_ = nullptr;
  std::thread thread_;
};

}  // namespace fiscalon::win32
