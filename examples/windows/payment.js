// A host in JScript: it shows a screen for a payment and prints the records, or checks the records of a batch.
//   cscript //nologo payment.js CODE [RECORDFILE]
//   cscript //nologo payment.js BATCH.csv BATCH.pc4
// Ends with 0 when all went well, 1 for a cancelled screen or an invalid payment, 2 for an error.

// The platform's own run-time errors come as 0x800A and their number; all others are as they are.
function NumberOf(error) {
  return (error.number >>> 16) === 0x800A ? error.number & 0xFFFF : error.number;
}

function CollectRecords(code, file) {
  var payment = new ActiveXObject("Fiscalon.Levyra");
  payment.CompName = "Summit Levies";
  payment.PaidAmount = "12345";  // cents
  payment.PaidDate = "06152026";  // month, day, year
  payment.EnterName = "Ann Walker";
  payment.EnterTitle = "Clerk";
  payment.SeqNumber = "0001";
  if (file) {
    payment.GovFilename = file;
    payment.WriteFile = true;
  }
  try {
    if (!payment.ShowLevyraScreen(code)) {
      WScript.Echo("Cancelled.");
      return 1;
    }
  } catch (error) {
    WScript.Echo("Error " + NumberOf(error) + ": " + error.description);
    return 2;
  }
  if (payment.WriteFile)
    WScript.Echo("Written to " + payment.GovFilename);
  else if (payment.PC4Records !== null)
    for (var records = new Enumerator(payment.PC4Records); !records.atEnd(); records.moveNext())
      WScript.Echo(records.item().Description);
  return 0;
}

// A row for each payment, with its number, screen, biller and amount in cents; the records of all payments, a line
// each.
function CheckBatch(rowsName, recordsName) {
  var files = new ActiveXObject("Scripting.FileSystemObject");
  var lines = files.OpenTextFile(recordsName).ReadAll().split("\r\n");
  var rows = files.OpenTextFile(rowsName).ReadAll().split("\r\n");
  var check = new ActiveXObject("Fiscalon.clsValidateAddInfo");
  var allValid = true;
  for (var row = 1; row < rows.length - 1; ++row) {  // behind the headings, up to the last line's end
    var fields = rows[row].split(",");
    check.ScreenCode = fields[1];
    check.BillerCode = fields[2];
    check.PaymentAmount = fields[3];
    check.PC4Records = new ActiveXObject("Fiscalon.PC4s");
    for (var index = 0; index < lines.length; ++index)
      if (lines[index].substr(3, 4) === fields[0])
        check.PC4Records.Add("", "", lines[index]);
    var valid = check.IsInfoValid();
    WScript.Echo(fields[0] + (valid ? ": valid" : ": invalid: " + check.InvalidReason));
    allValid = allValid && valid;
  }
  return allValid ? 0 : 1;
}

function Main(first, second) {
  return /\.csv$/i.test(first) ? CheckBatch(first, second) : CollectRecords(first, second);
}

if (WScript.Arguments.length < 1 || WScript.Arguments.length > 2) {
  WScript.Echo("payment.js CODE [RECORDFILE], or payment.js BATCH.csv BATCH.pc4");
  WScript.Quit(2);
}
WScript.Quit(Main(WScript.Arguments(0), WScript.Arguments.length === 2 ? WScript.Arguments(1) : ""));
