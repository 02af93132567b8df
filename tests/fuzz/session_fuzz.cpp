// Sessions from arbitrary bytes: a host sets anything and shows any screens, one after the other, on a disk that may
// fail, and a user does anything at them. Whatever they do, each act leaves a form in order, and OK leaves records that
// agree with their tables.

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/host_setup.h"
#include "core/module_to_change.h"
#include "core/records/placed_fields.h"
#include "core/records/record_line.h"
#include "core/records/record_reader.h"
#include "core/values/text.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/fuzz/law.h"
#include "tests/support/arbitrary_user.h"
#include "tests/support/memory_files.h"

namespace fiscalon {
namespace {

/// Watches a form for what a front end's editing makes of its fields.
class Watch final : public FormObserver {
 public:
  /// Takes the place of the front end, until the show ends.
  explicit Watch(Form& form) { form.Observe(this); }

  /// The next change of the field is the user's, if no handler comes between.
  void ExpectEdit(const TextField& field) {
    edited_ = &field;
    longest_ = std::max(static_cast<int>(field.Text().size()), field.MaxLength());
  }
  void ExpectNoEdit() { edited_ = nullptr; }

  size_t Handlers() const { return handlers_; }

 private:
  void HandlerRuns(std::string_view /*object*/, std::string_view /*event*/) override {
    ++handlers_;
    edited_ = nullptr;
  }
  void ControlChanged(const Control& control) override {
    if (&control != edited_)
      return;
    Law(edited_->MaxLength() == FieldDesign::kNoLimit || static_cast<int>(edited_->Text().size()) <= longest_,
        "no text is made longer than its field by the user's hand");
    edited_ = nullptr;
  }

  const TextField* edited_ = nullptr;
  int longest_ = 0;
  size_t handlers_ = 0;
};

/// A user who also does what no keyboard can do, as a front end of another make might pass it on.
class WildUser {
 public:
  WildUser(Choices& choices, Watch& watch) : choices_(choices), watch_(watch) {}

  void Act(Form& form, UserDriver& user) {
    Control& control = *form.Controls()[static_cast<size_t>(choices_.Below(static_cast<int>(form.Controls().size())))];
    UserActs& acts = form.Acts();
    switch (choices_.Below(6)) {
      case 0:
        return acts.BringFocus(control);
      case 1:
        return user.PressKey(
            {.keyCode = choices_.Below(256), .shift = choices_.Below(8), .character = choices_.Below(256)});
      case 2:
        return user.Type(static_cast<char>(choices_.Below(256)));
      case 3:
        if (acts.KeyDown(choices_.Below(256), choices_.Below(8)).characterFollows)
          acts.Character(choices_.Below(256));
        return;
      case 4:
        if (auto* const field = dynamic_cast<TextField*>(&control))
          acts.SelectText(*field, AnySelection());
        return;
      default:
        if (auto* const field = dynamic_cast<TextField*>(&control))
          Edit(*field, acts);
    }
  }

 private:
  Selection AnySelection() { return {.start = choices_.Below(64) - 2, .length = choices_.Below(64)}; }

  void Edit(TextField& field, UserActs& acts) {
    watch_.ExpectEdit(field);
    const std::string_view text = choices_.AnyText();
    acts.EditText(field, text, AnySelection());
    watch_.ExpectNoEdit();
  }

  Choices& choices_;
  Watch& watch_;
};

/// Hosts and users as the bytes have them.
class Sessions {
 public:
  explicit Sessions(std::string_view bytes) : choices_(bytes) {
    ResetModule();
    UseFixedClock({.date = {2026, 6, 15}});
    UseLocale(EnglishCanada());
    ModuleToChange().files = files_;
    UseToolkit(&toolkit_);
    toolkit_.onMessage = [this](const BoxRequest& box) {
      return box.buttons == MessageButtons::YesNo && choices_.Below(2) == 0 ? MessageAnswer::No : box.DefaultAnswer();
    };
  }
  ~Sessions() { ResetModule(); }
  Sessions(const Sessions&) = delete;
  Sessions& operator=(const Sessions&) = delete;

  void Play() {
    Levyra session;
    for (int launches = 4; launches > 0 && !choices_.AreUsedUp(); --launches) {
      const GoodSession& good = choices_.OneOf(kGoodSessions);
      SetUpSomehow(choices_, good, session);
      sequences_.push_back(session.SeqNumber());
      // Most disks are in order.
      files_->printsLeft = choices_.Below(8) == 7 ? choices_.Below(8) : 1'000'000;
      files_->deletingFails = choices_.Below(8) == 7;
      Launch(good, session);
    }
  }

 private:
  void Launch(const GoodSession& good, Levyra& session) {
    toolkit_.onForm = [&](Form& form, UserDriver& user) { Attend(good, form, user); };
    try {
      if (session.ShowLevyraScreen(good.code))
        CheckRecords(session);
    } catch (const RuntimeError& error) {
      static constexpr int32_t kNumbers[] = {5, 6, 9, 13, 53, 61, 70, 75, 76, 91, 457};
      Law(std::find(std::begin(kNumbers), std::end(kNumbers), error.Number()) != std::end(kNumbers),
          "an error is one that the host can expect");
      Law(error.Source() == "Fiscalon.ShowLevyraScreen", "an error comes from the front door");
    }
  }

  void Attend(const GoodSession& good, Form& form, UserDriver& user) {
    Watch watch(form);
    WildUser wild(choices_, watch);
    ArbitraryUser arbitrary(choices_, [](const std::string&) {});
    arbitrary.Begin(good, form, user);
    while (form.IsUp() && !choices_.AreUsedUp()) {
      CheckOrder(form, watch);
      if (choices_.Below(16) == 1)
        user.Click(form.ControlNamed(good.ok));
      else if (choices_.Below(4) == 3)
        wild.Act(form, user);
      else
        arbitrary.Act(form, user);
    }
    // A form that is still up ends its show where the front end returns, without the watch.
    form.Observe(nullptr);
  }

  static void CheckOrder(Form& form, const Watch& watch) {
    const Control* const active = form.ActiveControl();
    Law(active == nullptr || active->CanTakeFocus(), "the focus is on a control that can have it, or nowhere");
    // An act that does nothing runs what was left over.
    const auto label = std::find_if(form.Controls().begin(), form.Controls().end(),
                                    [](const Control* control) { return control->Kind() == ControlKind::Label; });
    const size_t before = watch.Handlers();
    form.Acts().BringFocus(**label);
    Law(watch.Handlers() == before && form.ActiveControl() == active, "an act leaves no posted event");
  }

  void CheckRecords(const Levyra& session) const {
    if (session.WriteFile() != kTrue) {
      Law(session.PC4Records() != nullptr, "OK without a file hands records over");
      for (const PC4& member : *session.PC4Records()) CheckMember(member);
      return;
    }
    // The file goes only where a screen is told to accept a statement of account, or closed as it was once accepted.
    const auto file = files_->contents.find(session.GovFilename());
    if (file == files_->contents.end())
      return;
    for (const RecordLine& line : RecordLinesOf(file->second)) {
      Law(line.IsAsWritten(), "a line of the file is framed");
      Law(AgreesWithItsTable(line.record), "a record in the file agrees with its table");
    }
  }

  void CheckMember(const PC4& member) const {
    if (member.TheDate().empty() && member.Amount().empty())
      return Law(AgreesWithItsTable(member.Description()), "a record in the collection agrees with its table");
    const std::string amount = member.Amount();
    Law(member.TheDate().size() == 8, "an invoice's date has 8 characters");
    Law(amount.size() == 10 || (amount.size() > 10 && amount.front() == '-'), "an invoice's amount has 10 characters");
    Law((amount.front() == ' ' || amount.front() == '-') && AreDigits(std::string_view(amount).substr(1)),
        "an amount is a number");
    Law(member.Description().size() == 27, "an invoice's text has 27 characters");
  }

  /// A record of an earlier launch may be found again where a window closes, so any sequence of the session will do.
  bool AgreesWithItsTable(std::string_view record) const {
    return std::any_of(sequences_.begin(), sequences_.end(), [&](std::string sequence) {
      // It stands as the host gave it, of any length, on one line.
      std::replace_if(
          sequence.begin(), sequence.end(), [](char character) { return static_cast<unsigned char>(character) < ' '; },
          ' ');
      const std::string head = std::string(kRecordMark) + sequence;
      return record.starts_with(head) &&
             FieldsAgree(std::string(kRecordMark) + "0001" + std::string(record.substr(head.size())));
    });
  }

  static bool FieldsAgree(const std::string& record) {
    const PlacedFields placed = PlaceFields(record);
    return placed.Length() == record.size() &&
           std::none_of(record.begin(), record.end(),
                        [](char character) { return static_cast<unsigned char>(character) < ' '; }) &&
           std::all_of(placed.fields.begin(), placed.fields.end(),
                       [&](const RecordField& field) { return Agrees(field, TextIn(record, field)); });
  }

  static bool Agrees(const RecordField& field, std::string_view text) {
    if (field.name == "FieldNum")
      return AreBlanks(text) || AreDigits(text);
    if (field.name == "InvoiceAmount")
      return AreBlanks(text) || ((text.front() == ' ' || text.front() == '-') && AreDigits(text.substr(1)));
    switch (field.fill) {
      case Fill::Blank:
        return AreBlanks(text);
      case Fill::Trimmed:
      case Fill::Fitted:
        return AreBlanks(text) || text.front() != ' ';
      default:
        return true;
    }
  }

  Choices choices_;
  const std::shared_ptr<MemoryFiles> files_ = std::make_shared<MemoryFiles>();
  ScriptedToolkit toolkit_;
  std::vector<std::string> sequences_;
};

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fiscalon::Sessions(fiscalon::TextOf(data, size)).Play();
  return 0;
}
