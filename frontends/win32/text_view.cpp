#include "frontends/win32/text_view.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/scoped_value.h"
#include "core/forms/usual_sizes.h"
#include "core/forms/watched_acts.h"
#include "core/platform/windows/wide_text.h"
#include "frontends/win32/form_window.h"

namespace fiscalon::win32 {
namespace {

/// A key that the editor has a message for.
struct Command {
  int shift;
  int keyCode;
  UINT message;
};
constexpr std::array kCommands = {
    Command{shift_state::kControl, 'C', WM_COPY},
    Command{shift_state::kControl, key::kInsert, WM_COPY},
    Command{shift_state::kControl, 'X', WM_CUT},
    Command{shift_state::kShift, key::kDelete, WM_CUT},
    Command{shift_state::kControl, 'V', WM_PASTE},
    Command{shift_state::kShift, key::kInsert, WM_PASTE},
    Command{shift_state::kControl, 'Z', static_cast<UINT>(EM_UNDO)},
};

bool EndsLine(char character) {
  return character == '\r' || character == '\n';
}

bool IsSecondOfPair(std::string_view text, size_t i) {
  return i > 0 && text[i] == '\n' && text[i - 1] == '\r';
}

/// With CR LF for each line end, as editors of several lines want it.
std::string WithWholeLineEnds(std::string_view text) {
  std::string whole;
  for (size_t i = 0; i < text.size(); ++i) {
    if (IsSecondOfPair(text, i))
      continue;
    if (EndsLine(text[i]))
      whole += "\r\n";
    else
      whole += text[i];
  }
  return whole;
}

/// The place in a text whose line ends may be of any kind, by that among whole ones.
int PositionInText(std::string_view text, int amongWhole) {
  size_t i = 0;
  for (int whole = 0; i < text.size() && whole < amongWhole; ++i)
    if (!IsSecondOfPair(text, i))
      whole += EndsLine(text[i]) ? 2 : 1;
  return static_cast<int>(i < text.size() && IsSecondOfPair(text, i) ? i + 1 : i);
}

int PositionAmongWhole(std::string_view text, int inText) {
  return static_cast<int>(WithWholeLineEnds(text.substr(0, static_cast<size_t>(inText))).size());
}

/// Whether the editor may have another text or selection after a message.
bool MayEdit(UINT message, WPARAM wide) {
  constexpr std::array kMessages = {WM_SETTEXT,
                                    WM_KEYDOWN,
                                    WM_CHAR,
                                    WM_LBUTTONDOWN,
                                    WM_LBUTTONDBLCLK,
                                    WM_LBUTTONUP,
                                    WM_RBUTTONUP,
                                    WM_CONTEXTMENU,
                                    WM_CUT,
                                    WM_PASTE,
                                    WM_CLEAR,
                                    WM_UNDO,
                                    WM_IME_CHAR,
                                    static_cast<int>(EM_UNDO),
                                    static_cast<int>(EM_SETSEL),
                                    static_cast<int>(EM_REPLACESEL)};
  if (message == WM_MOUSEMOVE)
    return (wide & MK_LBUTTON) != 0;
  return std::find(kMessages.begin(), kMessages.end(), static_cast<int>(message)) != kMessages.end();
}

/// The first character of the text on the clipboard, or 0.
wchar_t FirstOnClipboard() {
  if (::IsClipboardFormatAvailable(CF_UNICODETEXT) == FALSE || ::OpenClipboard(nullptr) == FALSE)
    return L'\0';
  const HANDLE handle = ::GetClipboardData(CF_UNICODETEXT);
  const auto* text = handle == nullptr ? nullptr : static_cast<const wchar_t*>(::GlobalLock(handle));
  const wchar_t first = text == nullptr ? L'\0' : *text;
  if (text != nullptr)
    ::GlobalUnlock(handle);
  ::CloseClipboard();
  return first;
}

/// Whether another program leaves it. The editor would cut what it can't put there.
bool IsClipboardFree() {
  return ::OpenClipboard(nullptr) != FALSE && ::CloseClipboard() != FALSE;
}

}  // namespace

ControlView::Design TextView::Designed() const {
  const FieldDesign& design = field_.Designed();
  DWORD style = ES_AUTOHSCROLL;
  if (field_.IsMultiLine())
    style = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
  if (design.alignment == Alignment::Right)
    style |= ES_RIGHT;
  if (field_.Locked())
    style |= ES_READONLY;
  return {.windowClass = L"EDIT", .style = style, .extendedStyle = WS_EX_CLIENTEDGE};
}

SIZE TextView::Wanted(const DialogFonts& fonts) const {
  constexpr int kBesideText = 6, kAroundLines = 4;
  // A total is as wide as the amounts above it, though it stands out.
  const int width = fonts.DigitsWidth(CharactersOf(field_), FontKind::Plain) + fonts.X(kBesideText);
  if (!field_.IsMultiLine())
    return {width, fonts.FieldHeight()};
  return {width + ::GetSystemMetrics(SM_CXVSCROLL), fonts.LineHeight(Font()) * kLinesOfText + fonts.Y(kAroundLines)};
}

void TextView::SetLimit() {
  // Code may set a longer text than can be typed.
  const size_t least = std::max(static_cast<size_t>(field_.MaxLength()), WantedText().size());
  const size_t limit = field_.MaxLength() == FieldDesign::kNoLimit ? 0 : least;
  if (std::exchange(limit_, limit) != limit)
    Native(EM_SETLIMITTEXT, limit, 0);
}

void TextView::Refresh() {
  const ScopedValue refreshing(refreshing_, true);
  ControlView::Refresh();
  const bool isLocked = (::GetWindowLongPtrW(Window(), GWL_STYLE) & ES_READONLY) != 0;
  if (isLocked != field_.Locked())
    Native(EM_SETREADONLY, field_.Locked() ? TRUE : FALSE, 0);
  SetLimit();
  ShowText(WantedText());
  ShowBeginning();
  const Selection selection = field_.Selected();
  if (!ShowsSelection() || FieldSelection() == selection)
    return;
  const int start = PositionAmongWhole(field_.Text(), selection.start);
  SetNativeSelection({.start = start, .length = PositionAmongWhole(field_.Text(), selection.End()) - start});
}

bool TextView::ShowsSelection() const {
  // A field that was left shows none. Where the focus can't go, there is no caret either.
  const bool selects = field_.Selected().length > 0 || FieldSelection().length > 0;
  return IsActive() || (selects && !field_.CanTakeFocus());
}

void TextView::ShowBeginning() {
  std::wstring hint;
  if (field_.Locked() && !field_.IsMultiLine()) {
    RECT room = {};
    Native(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
    if (std::wstring text = WantedText(); Owner().Fonts().Extent(text, Font()).cx > room.right - room.left)
      hint = std::move(text);
  }
  if (!hint.empty() && !IsActive())
    SetNativeSelection({});
  if (hint != hint_)
    Owner().SetHint(*this, hint_ = hint);
}

bool TextView::DoCommand(const KeyStroke& stroke) {
  if (stroke.shift == shift_state::kControl && stroke.keyCode == 'A') {
    Native(EM_SETSEL, 0, -1);
    return true;
  }
  for (const Command& command : kCommands)
    if (command.shift == stroke.shift && command.keyCode == stroke.keyCode) {
      Message(command.message, 0, 0);
      return true;
    }
  return IsEditorCommand(stroke);
}

bool TextView::CollapseSelection(const KeyStroke& stroke) {
  const Selection selection = NativeSelection();
  const bool arrow = stroke.keyCode == key::kLeft || stroke.keyCode == key::kRight;
  if (!arrow || stroke.shift != shift_state::kNone || selection.length == 0)
    return false;
  SetNativeSelection({.start = stroke.keyCode == key::kLeft ? selection.start : selection.End()});
  return true;
}

void TextView::Edit(const KeyOutcome& outcome, const KeyStroke& stroke, LPARAM extra) {
  // Alt makes commands of keys, never text. Up and Down would go to the left and right in a field of one line.
  const bool upOrDown = stroke.keyCode == key::kUp || stroke.keyCode == key::kDown;
  if (outcome.character == 0 && ((stroke.shift & shift_state::kAlt) != 0 || (upOrDown && !field_.IsMultiLine())))
    return;
  EditWith(EditAct::Origin::Key, [&] {
    if (outcome.character == 0 && (DoCommand(stroke) || CollapseSelection(stroke)))
      return;
    if (outcome.character == 0) {
      Native(WM_KEYDOWN, static_cast<WPARAM>(stroke.keyCode), extra);
      return;
    }
    const std::wstring typed = ToWide(std::string(1, static_cast<char>(outcome.character)));
    Native(WM_CHAR, typed.front(), extra);
  });
}

template <class Editing>
void TextView::EditWith(EditAct::Origin origin, Editing&& editing) {
  {
    const ScopedValue running(editing_, editing_ + 1);
    editing();
  }
  if (editing_ > 0 || refreshing_ || !field_.Owner().IsUp())
    return;
  if (!std::exchange(edited_, false) || IsAligned())
    return SelectionMoved();
  const EditAct edit = {.field = &field_, .text = FieldText(), .selection = FieldSelection(), .origin = origin};
  // Another program sets texts wherever it likes: the focus comes first, as it does before all other editing.
  if (!IsActive() && !field_.Locked())
    Acts().BringFocus(field_);
  if (IsActive())
    Acts().EditText(edit);
  if (field_.Owner().IsUp())
    Refresh();
}

LRESULT TextView::Message(UINT message, WPARAM wide, LPARAM extra) {
  if (!MayEdit(message, wide))
    return Native(message, wide, extra);
  if (message == WM_PASTE && PastesNothing())
    return 0;
  if (message == WM_CUT && !IsClipboardFree())
    return 0;
  LRESULT result = 0;
  EditWith(EditAct::Origin::Elsewhere, [&] {
    result = Native(message, wide, extra);
    // An editor of several lines does not tell of this one. What was put in ends at the caret.
    if (message == WM_SETTEXT && !refreshing_) {
      edited_ = true;
      const WPARAM end = TextOfWindow(Window()).size();
      Native(EM_SETSEL, end, static_cast<LPARAM>(end));
    }
  });
  return result;
}

bool TextView::PastesNothing() const {
  // A line is pasted up to its first end. The editor would take the selection away all the same.
  const wchar_t first = FirstOnClipboard();
  return first == L'\0' || (!field_.IsMultiLine() && (first == L'\r' || first == L'\n'));
}

void TextView::Notified(int code) {
  if (code != EN_CHANGE || refreshing_)
    return;
  edited_ = true;
  // Within a message of its own the editor is let finish first.
  EditWith(EditAct::Origin::Elsewhere, [] {});
}

bool TextView::MousePressed(UINT /*message*/, POINT /*place*/) {
  // Any button brings the focus, as it does natively; where it stays, the editor places its caret, unless checks have
  // taken the focus and given it back.
  return Press() != AfterPress::Goes || Acts().IsFocusGiven();
}

AccessibleSource::Answer TextView::EnterLater(const std::wstring& value) {
  if (field_.Locked())
    return E_ACCESSDENIED;
  // Who types is stopped at the limit, and a program is told: it would be cut in silence.
  const bool isLimited = field_.MaxLength() != FieldDesign::kNoLimit;
  if (isLimited && static_cast<int>(FromWide(value).size()) > field_.MaxLength())
    return E_INVALIDARG;
  return DoLater([this, value] {
    if (!field_.Locked())
      ::SendMessageW(Window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(value.c_str()));
  });
}

void TextView::SelectionMoved() {
  if (Acts().Acting() || !IsActive())
    return;
  const Selection selection = FieldSelection();
  if (selection != field_.Selected())
    Acts().SelectText(field_, selection);
}

ShownControl TextView::Content() const {
  const std::wstring native = TextOfWindow(Window());
  const Selection selection = NativeSelection();
  return {.text = FromWide(native),
          .selection = FromWide(std::wstring_view(native).substr(static_cast<size_t>(selection.start),
                                                                 static_cast<size_t>(selection.length))),
          .locked = (::GetWindowLongPtrW(Window(), GWL_STYLE) & ES_READONLY) != 0};
}

std::wstring TextView::WantedText() const {
  return ToWide(field_.IsMultiLine() ? WithWholeLineEnds(field_.Text()) : field_.Text());
}

std::string TextView::FieldText() const {
  // Code may have set line ends of another kind.
  const std::wstring native = TextOfWindow(Window());
  return native == WantedText() ? field_.Text() : FromWide(native);
}

Selection TextView::NativeSelection() const {
  DWORD start = 0, end = 0;
  Native(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  return {.start = static_cast<int>(start), .length = static_cast<int>(end - start)};
}

void TextView::SetNativeSelection(Selection selection) {
  Native(EM_SETSEL, static_cast<WPARAM>(selection.start), selection.End());
  Native(EM_SCROLLCARET, 0, 0);
}

Selection TextView::FieldSelection() const {
  const std::wstring native = TextOfWindow(Window());
  const Selection selection = NativeSelection();
  const bool aligned = native == WantedText();
  const auto positionOf = [&](int inEditor) {
    // What takes two units there may be one character here.
    const auto units = std::min(native.size(), static_cast<size_t>(inEditor));
    const auto position = static_cast<int>(FromWide(std::wstring_view(native).substr(0, units)).size());
    return aligned && field_.IsMultiLine() ? PositionInText(field_.Text(), position) : position;
  };
  const int start = positionOf(selection.start);
  return {.start = start, .length = positionOf(selection.End()) - start};
}

}  // namespace fiscalon::win32
