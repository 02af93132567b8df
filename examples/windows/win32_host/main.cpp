// A host in C++ that links the library and its native forms, without the component: it shows a screen for a payment and
// prints the records.
//   win32_host CODE
// Ends with 0 for records, 1 for a cancelled screen, 2 for an error.

#include <fiscalon/fiscalon.h>
#include <fiscalon/win32.h>

#include <iostream>

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "win32_host CODE\n";
    return 2;
  }
  fiscalon::Win32Toolkit toolkit;
  fiscalon::UseToolkit(&toolkit);

  int status = 2;
  try {
    fiscalon::Levyra payment;
    payment.CompName("Summit Levies");
    payment.PaidAmount("12345");   // cents
    payment.PaidDate("06152026");  // month, day, year
    payment.EnterName("Ann Walker");
    payment.EnterTitle("Clerk");
    payment.SeqNumber("0001");
    status = payment.ShowLevyraScreen(arguments[1]) ? 0 : 1;
    if (status == 0)
      for (const auto& record : *payment.PC4Records()) std::cout << fiscalon::ToUtf8(record.Description()) << '\n';
    else
      std::cout << "Cancelled.\n";
  } catch (const fiscalon::RuntimeError& error) {
    std::cout << "Error " << error.Number() << ": " << fiscalon::ToUtf8(error.Description()) << '\n';
  }

  fiscalon::UseToolkit(nullptr);
  return status;
}
