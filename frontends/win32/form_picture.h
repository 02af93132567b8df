#pragma once

#include <string>

#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

/// Pictures of windows as they look on this desktop.
class FormPicture {
 public:
  FormPicture();
  ~FormPicture();
  FormPicture(const FormPicture&) = delete;
  FormPicture& operator=(const FormPicture&) = delete;

  /// Draws the window anew, and takes it with its caption.
  void Take(HWND window);
  /// The last picture as the bytes of a PNG file; none where none was taken.
  const std::string& Png() const { return png_; }

 private:
  ULONG_PTR library_ = 0;
  std::string png_;
};

}  // namespace fiscalon::win32
