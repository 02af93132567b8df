#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/forms/act_watcher.h"
#include "core/platform/date.h"
#include "core/platform/runtime_error.h"
#include "core/records/pc4_records.h"
#include "frontends/played/last_key.h"
#include "frontends/played/player_caret.h"
#include "frontends/played/scenario_text.h"

namespace fiscalon {

/// Writes a session down as a scenario that plays back to the same boxes and records: what is typed key by key, what is
/// pasted as a paste, boxes with their answers. What a scenario has no words for, such as an undo, becomes the keys
/// that come to the same text.
class SessionRecorder final : public ActWatcher {
 public:
  // The lines before the acts, in UTF-8.
  void Today(const DateTime& now);
  void UsesLocale(std::string_view name);
  void UsesLanguage(std::string_view name);
  /// A property that the host has set. Whoever plays the scenario writes files of its own: paths become ones in $TMP.
  void Host(std::string_view property, std::string_view value);
  void Shows(std::string_view code);

  // How the show ended, as the host finds it.
  void Result(bool result);
  void Error(const RuntimeError& error);
  void Records(const std::vector<std::string>& records);
  /// A member of the collection whose date and amount stand apart.
  void Invoice(int32_t position, const PC4& member);

  /// The scenario so far.
  std::string Text() const { return text_.Text(); }

  void Opened(Form& form) override;
  void ActBegins(const UserAct& act) override;
  void ActEnded() override;
  void BoxAnswered(const BoxRequest& box, MessageAnswer answer) override;
  void Beeped() override;
  void HelpOpened(std::string_view file, int32_t context) override;

 private:
  void Key(const KeyAct& act);
  void Stroke(KeyStroke stroke);
  void Edit(const EditAct& act);
  /// Brings a player's caret to the end of a selection in that text and takes so many characters before it away.
  void Erase(std::string_view text, Selection selection, int characters);
  /// The key that was recorded last has replaced a selection that no player has.
  void BringPlayerToLastKey();
  /// It may have done so without an edit of the text.
  void SettleLastKey();
  TextField* ActiveField() const;

  ScenarioText text_;
  PlayerCaret caret_;
  /// Where a player's screens look for the help file.
  std::string helpFolder_;
  Form* form_ = nullptr;
  LastKey lastKey_;
  /// The character of this key, if it makes one, is part of what was recorded for the key.
  std::optional<KeyStroke> halfKey_ = {};
};

}  // namespace fiscalon
