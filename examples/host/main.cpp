// A host program: it knows a payment, lets screen "15" ask for the rest, and takes the records over.
// A script stands in for the user here, so it needs no display; an operator's program installs a desktop
// front end in the same place.

#include <fiscalon/fiscalon.h>

#include <iostream>
#include <string_view>

namespace {

// What a user would do: a taxation year end, the amount in cents, OK.
void FillAndConfirm(fiscalon::Form& form, fiscalon::UserDriver& user) {
  for (char key : std::string_view("202412"))  // the sixth digit moves on to the amount
    user.Type(key);
  for (char key : std::string_view("12345")) user.Type(key);
  user.Click(form.ControlNamed("cmdOK"));
}

}  // namespace

int main() {
  fiscalon::ScriptedToolkit toolkit;
  toolkit.onForm = FillAndConfirm;
  toolkit.onMessage = [](const fiscalon::BoxRequest& box) {
    std::cerr << "The screen says: " << fiscalon::ToUtf8(box.text) << '\n';
    return box.DefaultAnswer();
  };
  fiscalon::UseToolkit(&toolkit);

  fiscalon::Levyra payment;
  payment.CompName("Summit Levies");
  payment.PaidAmount("12345");  // cents
  payment.PaidDate("06152026");
  payment.EnterName(fiscalon::FromUtf8("Hélène Côté"));
  payment.EnterTitle("Clerk");
  payment.SeqNumber("0001");

  try {
    if (!payment.ShowLevyraScreen("15")) {
      std::cerr << "Cancelled.\n";
      return 1;
    }
  } catch (const fiscalon::RuntimeError& error) {
    std::cerr << error.Source() << ": " << error.Description() << '\n';
    return 2;
  }

  for (const auto& record : *payment.PC4Records()) std::cout << fiscalon::ToUtf8(record.Description()) << '\n';
  return 0;
}
