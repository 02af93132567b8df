// A host in C++ that knows nothing but the header of the type library: it shows a screen for a payment and prints the
// records, or checks the records of a batch.
//   payment CODE [RECORDFILE]
//   payment BATCH.csv BATCH.pc4
// Ends with 0 when all went well, 1 for a cancelled screen or an invalid payment, 2 for an error.

#include <fiscalon_component.h>
#include <windows.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

// What an error of the component says of itself.
struct HostError {
  HRESULT code = S_OK;
  std::wstring source = {};
  std::wstring description = {};
};

// A text of the component model.
class Text {
 public:
  Text() = default;
  Text(const std::wstring& text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(text_); }

  operator BSTR() const { return text_; }
  BSTR* Place() { return &text_; }
  std::wstring String() const { return {text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

// A reference to an object of the component model.
template <typename Interface>
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  ~Object() {
    if (object_ != nullptr)
      object_->Release();
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  Interface** Place() { return &object_; }

 private:
  Interface* object_ = nullptr;
};

void Check(HRESULT result) {
  if (SUCCEEDED(result))
    return;
  HostError error{.code = result};
  Object<IErrorInfo> information;
  if (GetErrorInfo(0, information.Place()) == S_OK) {
    Text source;
    Text description;
    information->GetSource(source.Place());
    information->GetDescription(description.Place());
    error.source = source.String();
    error.description = description.String();
  }
  throw error;
}

// A new object of a class, by its name.
template <typename Interface>
void Create(const wchar_t* name, Object<Interface>& object) {
  CLSID id = {};
  Check(CLSIDFromProgID(name, &id));
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                         reinterpret_cast<void**>(object.Place())));
}

std::string Utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string utf8(text.size() * 3, '\0');
  utf8.resize(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(),
                                                      static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
}

// The texts of this example's files are plain ASCII.
std::wstring Wide(const std::string& text) {
  return {text.begin(), text.end()};
}

void PrintRecords(_PC4s* records) {
  LONG count = 0;
  Check(records->get_Count(&count));
  for (LONG position = 1; position <= count; ++position) {
    VARIANT key = {};
    key.vt = VT_I4;
    key.lVal = position;
    Object<_PC4> record;
    Check(records->get_Item(key, record.Place()));
    Text description;
    Check(record->get_Description(description.Place()));
    std::cout << Utf8(description.String()) << '\n';
  }
}

int CollectRecords(const std::wstring& code, const std::wstring& file) {
  Object<_Levyra> payment;
  Create(L"Fiscalon.Levyra", payment);
  Check(payment->put_CompName(Text(L"Summit Levies")));
  Check(payment->put_PaidAmount(Text(L"12345")));   // cents
  Check(payment->put_PaidDate(Text(L"06152026")));  // month, day, year
  Check(payment->put_EnterName(Text(L"H\u00E9l\u00E8ne C\u00F4t\u00E9")));
  Check(payment->put_EnterTitle(Text(L"Clerk")));
  Check(payment->put_SeqNumber(Text(L"0001")));
  if (!file.empty()) {
    Check(payment->put_GovFilename(Text(file)));
    Check(payment->put_WriteFile(VARIANT_TRUE));
  }
  VARIANT_BOOL chosen = VARIANT_FALSE;
  Check(payment->ShowLevyraScreen(Text(code), &chosen));
  if (chosen == VARIANT_FALSE) {
    std::cout << "Cancelled.\n";
    return 1;
  }
  Object<_PC4s> records;
  Check(payment->get_PC4Records(records.Place()));
  if (!file.empty())
    std::cout << "Written to " << Utf8(file) << '\n';
  else if (records.Get() != nullptr)
    PrintRecords(records.Get());
  return 0;
}

std::vector<std::string> LinesOf(const std::wstring& name) {
  std::ifstream file{name.c_str()};
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> FieldsOf(const std::string& row) {
  std::istringstream text(row);
  std::vector<std::string> fields;
  for (std::string field; std::getline(text, field, ',');) fields.push_back(field);
  fields.resize(4);
  return fields;
}

// A row for each payment, with its number, screen, biller and amount in cents; the records of all payments, a line
// each.
int CheckBatch(const std::wstring& rowsName, const std::wstring& recordsName) {
  Object<_clsValidateAddInfo> check;
  Create(L"Fiscalon.clsValidateAddInfo", check);
  std::vector<std::string> rows = LinesOf(rowsName);
  const std::vector<std::string> lines = LinesOf(recordsName);
  bool allValid = true;
  for (size_t row = 1; row < rows.size(); ++row) {
    const std::vector<std::string> fields = FieldsOf(rows[row]);
    Check(check->put_ScreenCode(Text(Wide(fields[1]))));
    Check(check->put_BillerCode(Text(Wide(fields[2]))));
    Check(check->put_PaymentAmount(Text(Wide(fields[3]))));
    Object<_PC4s> records;
    Create(L"Fiscalon.PC4s", records);
    for (const std::string& line : lines) {
      Object<_PC4> record;
      if (line.size() > 7 && line.substr(3, 4) == fields[0])
        Check(records->Add(nullptr, nullptr, Text(Wide(line)), nullptr, record.Place()));
    }
    Check(check->putref_PC4Records(records.Get()));
    VARIANT_BOOL valid = VARIANT_FALSE;
    Check(check->IsInfoValid(&valid));
    Text reason;
    Check(check->get_InvalidReason(reason.Place()));
    allValid = allValid && valid != VARIANT_FALSE;
    std::cout << fields[0] << (valid != VARIANT_FALSE ? ": valid" : ": invalid: " + Utf8(reason.String())) << '\n';
  }
  return allValid ? 0 : 1;
}

bool IsTable(const std::wstring& name) {
  return name.size() > 4 && _wcsicmp(name.c_str() + name.size() - 4, L".csv") == 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count < 2 || count > 3) {
    std::cerr << "payment CODE [RECORDFILE], or payment BATCH.csv BATCH.pc4\n";
    return 2;
  }
  const std::wstring first = arguments[1];
  const std::wstring second = count == 3 ? arguments[2] : L"";
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  int result = 2;
  try {
    result = IsTable(first) ? CheckBatch(first, second) : CollectRecords(first, second);
  } catch (const HostError& error) {
    std::cout << "Error " << error.code << " from " << Utf8(error.source) << ": " << Utf8(error.description) << '\n';
  }
  CoUninitialize();
  return result;
}
