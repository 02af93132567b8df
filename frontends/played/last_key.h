#pragma once

#include <string>
#include <vector>

#include "core/forms/text_field.h"
#include "frontends/played/player_caret.h"

namespace fiscalon {

/// The key that was recorded last, where it says itself what is made of the text. It may replace a selection that no
/// player has: a player takes it away by keys before this one. Not before that is known, since a form may drop the key
/// and leave the selection alone.
class LastKey {
 public:
  enum class Effect { Types, Erases };

  /// None, or one that says nothing of the text.
  LastKey() = default;
  explicit LastKey(Effect effect) : edits_(true), erases_(effect == Effect::Erases) {}
  /// One that meets the selection of that field, which no player has.
  LastKey(Effect effect, const TextField& field)
      : edits_(true),
        erases_(effect == Effect::Erases),
        field_(&field),
        text_(field.Text()),
        selection_(field.Selected()) {}

  /// Whether it says itself what is made of the text.
  bool Edits() const { return edits_; }
  /// Whether it meets a selection of that field which no player has.
  bool Meets(const TextField* field) const { return field_ != nullptr && field_ == field; }
  /// Whether it typed a character over the same one, which left the field's text as it was, but not the selection.
  bool RetypedIn(const TextField* field) const;

  /// What a player does before the key, to have no selection any more.
  std::vector<std::string> KeysBefore(PlayerCaret& caret) const;
  /// Whether the last character of the selection goes by the key itself, which then is Backspace.
  bool TakesLastCharacter() const { return erases_ && selection_.length > 0; }

 private:
  bool edits_ = false;
  bool erases_ = false;
  /// Its field, where it meets a selection that a player has not, with what it held then.
  const TextField* field_ = nullptr;
  std::string text_ = {};
  Selection selection_ = {};
};

}  // namespace fiscalon
