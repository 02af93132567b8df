#include "bindings/c/failure.h"

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>

#include "core/forms/form_misuse.h"
#include "core/platform/code_page.h"
#include "core/platform/runtime_error.h"
#include "validation/batch_error.h"

namespace fiscalon::c {

namespace {

/// A text that has its place beforehand, and is cut where that is too small.
template <size_t N>
class KeptText {
 public:
  void Keep(std::string_view text) noexcept {
    size_t size = std::min(text.size(), N - 1);
    // No character is cut in two.
    while (size < text.size() && size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) --size;
    std::copy_n(text.data(), size, text_.data());
    text_[size] = '\0';
  }
  const char* Get() const { return text_.data(); }

 private:
  std::array<char, N> text_ = {};
};

struct KeptFailure {
  int32_t number = 0;
  /// A batch tells up to twenty problems, each in a line.
  KeptText<4096> description = {};
  KeptText<64> source = {};
  uint64_t failures = 0;
};

thread_local constinit KeptFailure last;

void Keep(int32_t number, std::string_view source, std::string_view description) noexcept {
  last.number = number;
  last.source.Keep(source);
  last.description.Keep(description);
  ++last.failures;
}

/// A line for each problem. Files have the names that the host gave them, in the bytes of the system's paths.
std::string TextOf(const BatchError& error) {
  std::string text;
  for (const BatchProblem& problem : error.Problems()) {
    text += text.empty() ? "" : "\n";
    text += BatchProblem{.file = problem.file, .line = problem.line, .reason = ToUtf8(problem.reason)}.Text();
  }
  return text;
}

void KeepCurrent(std::string_view source) {
  try {
    throw;
  } catch (const RuntimeError& error) {
    Keep(error.Number(), error.Source() == kSource ? source : error.Source(), ToUtf8(error.Description()));
  } catch (const Failure& error) {
    Keep(error.Number(), source, error.what());
  } catch (const BatchError& error) {
    Keep(FISCALON_ERROR_BATCH, source, TextOf(error));
  } catch (const std::bad_alloc&) {
    Keep(FISCALON_ERROR_OUT_OF_MEMORY, source, "Out of memory");
  } catch (const FormMisuse& error) {
    Keep(FISCALON_ERROR_INVALID_PROCEDURE_CALL, source, ToUtf8(error.what()));
  } catch (const std::exception& error) {
    Keep(FISCALON_ERROR_UNFORESEEN, source, std::string("An unforeseen failure: ") + error.what());
  } catch (...) {
    Keep(FISCALON_ERROR_UNFORESEEN, source, "An unforeseen failure");
  }
}

}  // namespace

void Fail(int32_t number, std::string_view description) {
  throw Failure(number, description);
}

void KeepFailure(std::string_view source) noexcept {
  try {
    KeepCurrent(source);
  } catch (...) {
    // Only memory for the words themselves can have been missing.
    Keep(FISCALON_ERROR_OUT_OF_MEMORY, source, "Out of memory");
  }
}

fiscalon_error LastFailure() {
  return {.size = sizeof(fiscalon_error),
          .number = last.number,
          .source = last.source.Get(),
          .description = last.description.Get()};
}

uint64_t Failures() {
  return last.failures;
}

void FailCallback(std::string_view name, int answer, uint64_t failuresBefore) {
  std::string description(name);
  description.append(" of the host answered ").append(std::to_string(answer));
  if (Failures() != failuresBefore)
    description.append(" after error ").append(std::to_string(last.number)).append(": ").append(last.description.Get());
  Fail(FISCALON_ERROR_CALLBACK, description);
}

}  // namespace fiscalon::c
