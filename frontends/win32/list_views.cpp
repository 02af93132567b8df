#include "frontends/win32/list_views.h"

#include <oleacc.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "core/forms/form.h"
#include "core/forms/scoped_value.h"
#include "core/forms/usual_sizes.h"
#include "core/forms/watched_acts.h"
#include "core/platform/windows/wide_text.h"

namespace fiscalon::win32 {
namespace {

/// Posted by a drop-down list to itself: a row was picked, and Windows is done with the list.
constexpr UINT kPicked = WM_APP + 1;

constexpr ListMessages kOfDropDown = {CB_GETCOUNT,     CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL,
                                      CB_SETCURSEL,    CB_SELECTSTRING, CB_ADDSTRING, CB_INSERTSTRING,
                                      CB_DELETESTRING, CB_RESETCONTENT};
constexpr ListMessages kOfListBox = {LB_GETCOUNT,     LB_GETTEXTLEN, LB_GETTEXT,      LB_GETCURSEL,    LB_SETCURSEL,
                                     LB_SELECTSTRING, LB_ADDSTRING,  LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT};

std::vector<std::wstring> RowsOf(const ListControl& list) {
  std::vector<std::wstring> rows;
  for (int row = 0; row < list.ListCount(); ++row) rows.push_back(ToWide(list.ShownRow(row)));
  return rows;
}

bool Changes(const ListMessages& messages, UINT message) {
  const std::array changing = {messages.select, messages.find,   messages.add,
                               messages.insert, messages.remove, messages.clear};
  return std::find(changing.begin(), changing.end(), message) != changing.end();
}

}  // namespace

std::vector<std::wstring> AnyListView::NativeRows() const {
  std::vector<std::wstring> rows;
  const auto count = static_cast<WPARAM>(RowCount());
  for (WPARAM row = 0; row < count; ++row) {
    std::wstring text(static_cast<size_t>(Native(messages_.length, row, 0)) + 1, L'\0');
    Native(messages_.text, row, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    rows.push_back(std::move(text));
  }
  return rows;
}

int AnyListView::NativeRow() const {
  return static_cast<int>(Native(messages_.selected, 0, 0));
}

int AnyListView::RowCount() const {
  return static_cast<int>(Native(messages_.count, 0, 0));
}

ShownControl AnyListView::Content() const {
  const std::vector<std::wstring> rows = NativeRows();
  const int selected = NativeRow();
  const bool isThere = selected >= 0 && static_cast<size_t>(selected) < rows.size();
  return {.text = isThere ? FromWide(rows[static_cast<size_t>(selected)]) : std::string(),
          .items = static_cast<int>(rows.size())};
}

ToldWindow AnyListView::Told() const {
  ToldWindow told = ControlView::Told();
  told.value = ToWide(Content().text);
  return told;
}

AccessibleSource::Answer AnyListView::EnterLater(const std::wstring& value) {
  const std::vector<std::wstring> rows = NativeRows();
  return PickRowLater(static_cast<size_t>(std::find(rows.begin(), rows.end(), value) - rows.begin()));
}

HRESULT AnyListView::PickRowLater(size_t row) {
  const std::vector<std::wstring> rows = NativeRows();
  if (row >= rows.size())
    return E_INVALIDARG;
  // Rows may have come and gone by then.
  return DoLater([this, row, words = rows[row]] {
    if (const std::vector<std::wstring> now = NativeRows(); row < now.size() && now[row] == words)
      ::SendMessageW(Window(), messages_.select, row, 0);
  });
}

FontKind AnyListView::Font() const {
  return list_.Designed().fixedPitch ? FontKind::FixedPitch : ControlView::Font();
}

void AnyListView::Refresh() {
  const ScopedValue refreshing(refreshing_, true);
  ControlView::Refresh();
  const std::vector<std::wstring> rows = RowsOf(list_);
  if (rows != NativeRows()) {
    Native(messages_.clear, 0, 0);
    for (const std::wstring& row : rows) Native(messages_.add, 0, reinterpret_cast<LPARAM>(row.c_str()));
  }
  if (NativeRow() != list_.ListIndex())
    Native(messages_.select, static_cast<WPARAM>(list_.ListIndex()), 0);
}

LRESULT AnyListView::Message(UINT message, WPARAM wide, LPARAM extra) {
  const LRESULT result = Native(message, wide, extra);
  // The form's own go to the window past this.
  if (Changes(messages_, message))
    ChangedByProgram();
  return result;
}

void AnyListView::ChangedByProgram() {
  if (refreshing_ || !list_.Owner().IsUp())
    return;
  const int row = NativeRow();
  if (row >= 0 && row != list_.ListIndex() && NativeRows() == RowsOf(list_))
    Picked(row);
  if (list_.Owner().IsUp())
    Refresh();
}

void AnyListView::Picked(int row) {
  Acts().Choose(list_, row);
  if (list_.Owner().IsUp())
    Refresh();
}

DropDownView::DropDownView(DropDownList& list, WatchedActs& acts) : AnyListView(list, kOfDropDown, acts) {}

ControlView::Design DropDownView::Designed() const {
  return {.windowClass = L"COMBOBOX", .style = CBS_DROPDOWNLIST | WS_VSCROLL};
}

SIZE DropDownView::Wanted(const DialogFonts& fonts) const {
  constexpr int kLeast = 60, kBesideText = 8;
  LONG widest = 0;
  for (const std::wstring& row : RowsOf(List())) widest = std::max(widest, fonts.Extent(row, Font()).cx);
  return {std::max<LONG>(fonts.X(kLeast), widest + ::GetSystemMetrics(SM_CXVSCROLL) + fonts.X(kBesideText)),
          fonts.FieldHeight()};
}

RECT DropDownView::RoomFor(const RECT& place, const DialogFonts& fonts) const {
  constexpr int kRowsDropped = 2 * kRowsOfList;
  RECT room = place;
  room.bottom += fonts.LineHeight(Font()) * kRowsDropped;
  return room;
}

void DropDownView::Restyle(const DialogFonts& fonts) {
  ControlView::Restyle(fonts);
  // As high as a text field; without this a drop-down list has a height of its own.
  constexpr auto kClosed = static_cast<WPARAM>(-1);
  constexpr int kEdges = 6;
  Native(CB_SETITEMHEIGHT, kClosed, Wanted(fonts).cy - kEdges);
}

COMBOBOXINFO DropDownView::Info() const {
  COMBOBOXINFO info = {};
  info.cbSize = sizeof(info);
  ::GetComboBoxInfo(Window(), &info);
  return info;
}

HWND DropDownView::Rows() const {
  return IsOpen() ? Info().hwndList : nullptr;
}

void DropDownView::Made() {
  const HWND rows = Info().hwndList;
  if (rows == nullptr)
    return;
  ::SetWindowLongPtrW(rows, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  nativeRows_ = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(rows, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DropDownView::RowsProcedure)));
}

LRESULT CALLBACK DropDownView::RowsProcedure(HWND rows, UINT message, WPARAM wide, LPARAM extra) {
  auto& view = *reinterpret_cast<DropDownView*>(::GetWindowLongPtrW(rows, GWLP_USERDATA));
  const LRESULT result = ::CallWindowProcW(view.nativeRows_, rows, message, wide, extra);
  // The form's own changes tell it nothing.
  if (Changes(kOfListBox, message) && !view.busy_ && !view.Refreshing() && !view.IsOpen())
    view.ChangedByProgram();
  return result;
}

bool DropDownView::IsOpen() const {
  return Native(CB_GETDROPPEDSTATE, 0, 0) != 0;
}

bool DropDownView::KeepsKey(int keyCode, int shift) const {
  if (IsOpen())
    return keyCode != key::kTab;
  const bool arrow = keyCode == key::kDown || keyCode == key::kUp;
  return keyCode == VK_F4 || (arrow && (shift & shift_state::kAlt) != 0);
}

bool DropDownView::MousePressed(UINT message, POINT /*place*/) {
  if (IsOpen())
    return false;
  const bool left = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  const AfterPress after = left ? Press() : AfterPress::Over;
  // A check has shown a box and let the focus go: the user has asked for the rows and gets them.
  if (after == AfterPress::Interrupted)
    Native(CB_SHOWDROPDOWN, TRUE, 0);
  return after != AfterPress::Goes;
}

void DropDownView::Notified(int code) {
  if (Refreshing())
    return;
  // The form hears of it when the list has closed: a handler may show a box, or hide the list. A row that is gone to
  // in a closed list was set by an assistive program.
  if (code == CBN_SELENDOK || (code == CBN_SELCHANGE && !IsOpen() && NativeRow() != List().ListIndex()))
    ::PostMessageW(Window(), kPicked, 0, 0);
  else if (code == CBN_SELENDCANCEL && List().Owner().IsUp())
    Refresh();
}

LRESULT DropDownView::Message(UINT message, WPARAM wide, LPARAM extra) {
  if (message != kPicked) {
    const ScopedValue busy(busy_, true);
    return IsOpen() ? ControlView::Message(message, wide, extra) : AnyListView::Message(message, wide, extra);
  }
  // Windows may tell the same row twice.
  MSG same = {};
  while (::PeekMessageW(&same, Window(), kPicked, kPicked, PM_REMOVE) != FALSE) continue;
  if (const int row = NativeRow(); List().Owner().IsUp() && row >= 0)
    Picked(row);
  return 0;
}

void DropDownView::Picked(int row) {
  if (!IsActive())
    return AnyListView::Picked(row);
  Acts().Pick(List(), row);
  if (List().Owner().IsUp())
    Refresh();
}

ListBoxView::ListBoxView(ListBox& list, WatchedActs& acts) : AnyListView(list, kOfListBox, acts) {}

ControlView::Design ListBoxView::Designed() const {
  return {.windowClass = L"LISTBOX",
          .style = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL,
          .extendedStyle = WS_EX_CLIENTEDGE};
}

SIZE ListBoxView::Wanted(const DialogFonts& fonts) const {
  const int edges = 2 * ::GetSystemMetrics(SM_CXEDGE);
  return {fonts.DigitsWidth(kCharactersOfList, Font()) + ::GetSystemMetrics(SM_CXVSCROLL) + edges,
          fonts.LineHeight(Font()) * kRowsOfList + edges};
}

std::optional<ToldRows> ListBoxView::ToldOfRows() const {
  return ToldRows{.count = RowCount(), .chosen = NativeRow()};
}

std::optional<ToldWindow> ListBoxView::ToldOfRow(int row) const {
  const std::vector<std::wstring> rows = NativeRows();
  if (row < 0 || static_cast<size_t>(row) >= rows.size())
    return std::nullopt;
  const ToldWindow list = Told();
  // Where a user can come to the list, its rows can be chosen; the chosen one has the focus of the list.
  constexpr LONG kOfList = STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_FOCUSABLE;
  constexpr LONG kOfChosen = STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;
  LONG states = STATE_SYSTEM_SELECTABLE | (list.states & kOfList);
  if (row == NativeRow())
    states |= STATE_SYSTEM_SELECTED | (list.states & STATE_SYSTEM_FOCUSED);
  return ToldWindow{.role = ROLE_SYSTEM_LISTITEM,
                    .name = rows[static_cast<size_t>(row)],
                    .decided = STATE_SYSTEM_SELECTABLE | kOfList | kOfChosen,
                    .states = states};
}

int ListBoxView::RowAt(POINT place) {
  const LRESULT row = Native(LB_ITEMFROMPOINT, 0, MAKELPARAM(place.x, place.y));
  const bool outside = HIWORD(row) != 0;
  return outside || LOWORD(row) >= List().ListCount() ? ListControl::kNothingSelected : LOWORD(row);
}

bool ListBoxView::MousePressed(UINT message, POINT place) {
  pressedRow_ = ListControl::kNothingSelected;
  const bool left = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  const AfterPress after = left ? Press() : AfterPress::Over;
  if (after == AfterPress::Over)
    return true;
  pressedRow_ = RowAt(place);
  if (pressedRow_ >= 0)
    Native(LB_SETCURSEL, static_cast<WPARAM>(pressedRow_), 0);
  if (after == AfterPress::Interrupted)
    return MouseReleased(place);
  ::SetCapture(Window());
  return true;
}

bool ListBoxView::MouseReleased(POINT place) {
  if (::GetCapture() == Window())
    ::ReleaseCapture();
  const int pressed = std::exchange(pressedRow_, ListControl::kNothingSelected);
  if (pressed >= 0 && pressed == RowAt(place))
    Acts().Pick(List(), pressed);
  if (List().Owner().IsUp())
    Refresh();
  return true;
}

void ListBoxView::Notified(int code) {
  // The mouse and the keyboard go past the window: what is left is an assistive program.
  const int row = NativeRow();
  if (!Refreshing() && code == LBN_SELCHANGE && row >= 0 && row != List().ListIndex() && List().Owner().IsUp())
    Picked(row);
}

}  // namespace fiscalon::win32
