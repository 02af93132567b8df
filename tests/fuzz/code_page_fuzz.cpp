#include <string>

#include "core/platform/code_page.h"
#include "tests/fuzz/law.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace fiscalon;
  const std::string_view bytes = TextOf(data, size);
  Law(FromUtf8(ToUtf8(bytes)) == bytes, "every text survives there and back");
  const std::string read = FromUtf8(bytes);
  Law(read.size() <= bytes.size(), "a character is one byte");
  Law(FromUtf8(ToUtf8(read)) == read, "what was read survives there and back");
  return 0;
}
