#pragma once

#include <memory>
#include <string>

namespace fiscalon::qt {

class FormDialog;

/// Pictures of forms for documents: the dialog under a plain title bar, in Qt's own style, so that they look the same
/// on every desktop. To be made before the dialog that is pictured.
class FormPicture {
 public:
  enum class Theme { Light, Dark };

  /// `scale`: pixels for each of a usual screen.
  FormPicture(Theme theme, double scale);
  ~FormPicture();
  FormPicture(const FormPicture&) = delete;
  FormPicture& operator=(const FormPicture&) = delete;

  void Take(FormDialog& dialog);
  /// The last picture as the bytes of a PNG file; none where none was taken.
  std::string Png() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace fiscalon::qt
