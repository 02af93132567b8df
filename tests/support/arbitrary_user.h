#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/forms/text_field.h"
#include "core/module_state.h"
#include "core/module_to_change.h"
#include "frontends/played/user_driver.h"
#include "tests/support/good_sessions.h"

namespace fiscalon {

/// Choices that bytes decide: a fuzzer's input, or random bytes. Where they are used up all choices are the first one.
class Choices {
 public:
  explicit Choices(std::string_view bytes) : bytes_(bytes) {}

  bool AreUsedUp() const { return bytes_.empty(); }

  int Below(int limit) {
    const int byte = Byte();
    return (limit <= 256 ? byte : byte * 256 + Byte()) % limit;
  }

  template <class Choice, size_t N>
  const Choice& OneOf(const Choice (&choices)[N]) {
    return choices[Below(static_cast<int>(N))];
  }

  /// A short text of any bytes at all.
  std::string_view AnyText() {
    const std::string_view text = bytes_.substr(0, static_cast<size_t>(Below(48)));
    bytes_.remove_prefix(text.size());
    return text;
  }

 private:
  int Byte() {
    if (bytes_.empty())
      return 0;
    const int byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
  }

  std::string_view bytes_;
};

/// As many random bytes, the same again for the same seed.
inline std::string RandomBytes(unsigned seed, size_t count) {
  std::mt19937 random(seed);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random() >> 24);
  return bytes;
}

/// A host that sets anything, where a good payment is the likeliest. Errors of its own properties are caught.
inline void SetUpSomehow(Choices& choices, const GoodSession& good, Levyra& session) {
  static constexpr std::string_view kBillers[] = {"001051", "001052", "001053", "001055", "", "1053"};
  static constexpr std::string_view kCents[] = {"12345", "0", "-12345", "5", "", "99", "1E14", "1E25", "abc", "12.5"};
  static constexpr std::string_view kDates[] = {"02292024", "", "0615", "13452026", "06152O26", "12311999", "02302026"};
  static constexpr std::string_view kCounts[] = {"1", "12", "13", "0", "", "2.5", "-1", "x", "40000"};
  static constexpr std::string_view kNames[] = {"", "abcdefghijklmnopqrstuvwxyz1234", "abcdefghijklmnopqrstuvwxyz12345",
                                                "H\xE9l\xE8ne\r\nC\xF4t\xE9"};
  static constexpr std::string_view kTitles[] = {"", "ABCDEFGHIJKLMNOPQRST", "ABCDEFGHIJKLMNOPQRSTU"};
  static constexpr Boolean kDestinations[] = {kTrue, kFalse, int16_t{1}};

  SetUp(good, session);
  session.GovFilename("payment.pc4");
  session.WriteFile(choices.OneOf(kDestinations));
  for (int changes = choices.Below(4); changes > 0; --changes) {
    switch (choices.Below(12)) {
      case 0:
        session.CompCode(choices.OneOf(kBillers));
        break;
      case 1:
        session.PaidAmount(choices.OneOf(kCents));
        break;
      case 2:
        session.PaidDate(choices.OneOf(kDates));
        break;
      case 3:
        session.NumberOfInfoCollect(choices.OneOf(kCounts));
        break;
      case 4:
        session.EnterName(choices.OneOf(kNames));
        break;
      case 5:
        session.EnterTitle(choices.OneOf(kTitles));
        break;
      case 6:
        session.APHoldFlg(static_cast<uint8_t>(choices.Below(3)));
        break;
      case 7:
        session.CompName(choices.AnyText());
        break;
      case 8:
        session.BusinessName(choices.AnyText());
        break;
      case 9:
        session.ZelmorNumber(choices.AnyText());
        break;
      case 10:
        session.SeqNumber(choices.AnyText());
        break;
      default:
        UseLocale(choices.Below(2) == 0 ? FrenchCanada() : EnglishUnitedStates());
    }
  }
}

/// What an arbitrary user types and pastes: what people do, or any bytes too.
enum class Texts { OfPeople, Any };

/// A user with no plan at a form that is up, who does what choices decide. Each act is told before it is done.
class ArbitraryUser {
 public:
  ArbitraryUser(Choices& choices, std::function<void(const std::string& act)> tell, Texts texts = Texts::Any)
      : choices_(choices), tell_(std::move(tell)), texts_(texts) {}

  /// What the screen wants, as far as this user goes along with it.
  void Begin(const GoodSession& good, Form& form, UserDriver& user) {
    switch (choices_.Below(4)) {
      case 0:
        tell_("fill in");
        FillIn(good, form, user);
        return;
      case 1: {
        const int keys = choices_.Below(static_cast<int>(good.typed.size()));
        tell_("fill in by " + std::to_string(keys) + " keys");
        return FillIn(good, form, user, static_cast<size_t>(keys));
      }
      default:
        return;
    }
  }

  void Act(Form& form, UserDriver& user) {
    switch (choices_.Below(16)) {
      case 0:
        return Press(AnyControl(form), user);
      case 1:
      case 2:
        return Click(AnyControl(form), user);
      case 3:
        return Choose(AnyControl(form), user);
      case 4:
        return Paste(texts_ == Texts::Any && choices_.Below(3) == 0 ? choices_.AnyText() : choices_.OneOf(kPasted),
                     user);
      case 5:
        return Type(texts_ == Texts::Any ? OfKeyboards(choices_.AnyText()) : choices_.OneOf(kTyped), form, user);
      case 6:
        return PressEditorKey(user);
      case 7:
        // It ends the walk, or cancels it on most screens.
        return choices_.Below(16) == 0 ? Close(user) : PressKey(form, user);
      case 8:
      case 9:
      case 10:
      case 11:
        return PressKey(form, user);
      default:
        return Type(choices_.OneOf(kTyped), form, user);
    }
  }

 private:
  /// The characters that keyboards have keys for. Those of other keys are told by the keys' names; and the code page
  /// has a soft hyphen, and five places that mean nothing.
  static std::string OfKeyboards(std::string_view text) {
    constexpr std::string_view kOthers = "\x7F\x81\x8D\x8F\x90\x9D\xAD";
    std::string typed(text);
    std::erase_if(typed, [&](char character) {
      return static_cast<unsigned char>(character) < ' ' || kOthers.find(character) != kOthers.npos;
    });
    return typed;
  }

  static constexpr std::string_view kTyped[] = {"202612", "20261231", "12345", "123.45", "1",   "0",
                                                "x",      ",",        "-",     "\xE9",   "0.0", "5",
                                                "inv",    "INV-2 ",   "qu",    "m",      "\r",  "\t"};
  static constexpr std::string_view kPasted[] = {"",      "2026", "202612",     "20261231", "123.45",
                                                 "12345", "1a",   "C\xF4t\xE9", "1\n2",     "99999999999999",
                                                 "-5",    " 7 ",  "99991301",   "1E20",     "\r\nx"};

  Control& AnyControl(const Form& form) {
    return *form.Controls()[static_cast<size_t>(choices_.Below(static_cast<int>(form.Controls().size())))];
  }

  void Press(Control& control, UserDriver& user) {
    tell_("press " + control.Name());
    user.PressMouse(control);
  }

  void Click(Control& control, UserDriver& user) {
    tell_("click " + control.Name());
    user.Click(control);
  }

  void Choose(Control& control, UserDriver& user) {
    auto* const list = dynamic_cast<ListControl*>(&control);
    if (list == nullptr || list->ListCount() == 0)
      return;
    const int row = choices_.Below(list->ListCount());
    tell_("choose " + control.Name() + " " + std::to_string(row));
    user.Choose(*list, row);
  }

  void Paste(std::string_view text, UserDriver& user) {
    tell_("paste " + std::string(text));
    user.Paste(text);
  }

  void Type(std::string_view text, const Form& form, UserDriver& user) {
    tell_("type " + std::string(text));
    for (const char character : text)
      if (form.IsUp())
        user.Type(character);
  }

  void Close(UserDriver& user) {
    const int reason = choices_.Below(6);
    tell_("close " + std::to_string(reason));
    user.CloseWindow(static_cast<CloseReason>(reason));
  }

  /// Up and down in a text of several lines, and the ends of its lines, depend on where a widget breaks them.
  static bool GoesByLines(const Form& form, std::string_view key) {
    const auto* field = dynamic_cast<const TextField*>(form.ActiveControl());
    return field != nullptr && field->IsMultiLine() && (key == "Up" || key == "Down" || key == "Home" || key == "End");
  }

  void PressEditorKey(UserDriver& user) {
    static constexpr KeyStroke kStrokes[] = {{.keyCode = 'A', .shift = shift_state::kControl},
                                             {.keyCode = 'C', .shift = shift_state::kControl},
                                             {.keyCode = key::kInsert, .shift = shift_state::kControl}};
    const KeyStroke& stroke = choices_.OneOf(kStrokes);
    tell_("editor key " + std::to_string(stroke.keyCode));
    user.PressKey(stroke);
  }

  void PressKey(const Form& form, UserDriver& user) {
    static constexpr std::string_view kNames[] = {"Tab",    "Shift+Tab", "Enter", "Escape",      "Backspace", "Delete",
                                                  "Space",  "Left",      "Right", "Up",          "Down",      "Home",
                                                  "End",    "Alt+O",     "Alt+Z", "Tab",         "Tab",       "Enter",
                                                  "Delete", "Backspace", "Alt+F", "Shift+Enter", "Ctrl+Enter"};
    const std::string_view name = choices_.OneOf(kNames);
    // Escape and Alt+O would end most walks at once.
    if (((name == "Escape" || name == "Alt+O") && choices_.Below(4) != 0) || GoesByLines(form, name))
      return;
    tell_("key " + std::string(name));
    user.PressKey(*StrokeNamed(name));
  }

  Choices& choices_;
  std::function<void(const std::string& act)> tell_;
  Texts texts_;
};

}  // namespace fiscalon
