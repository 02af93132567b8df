#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "core/forms/act_watcher.h"
#include "core/forms/text_field.h"
#include "frontends/qt/control_view.h"

namespace fiscalon::qt {

/// A text field. The editor is native; the form hears what it makes of the text, and may change that.
class TextView : public ControlView {
 public:
  void Refresh() override;
  void Edit(const KeyOutcome& outcome, QKeyEvent& event) override;
  void Insert(char character) override;
  bool MousePressed(QMouseEvent& event) override;
  bool MouseMoved() override { return pressIsOver_; }
  bool MouseReleased(QMouseEvent& event) override;
  QPoint PointToPress() const override;

  // The native editor's text and selection. Positions count its own characters.
  virtual QString NativeText() const = 0;
  virtual Selection NativeSelection() const = 0;
  virtual void SetNativeSelection(Selection selection) = 0;

 protected:
  TextView(TextField& field, QWidget& native, WatchedActs& acts) : ControlView(field, native, acts), field_(field) {}

  TextField& Field() const { return field_; }
  /// Signals of the native editor: its text has changed, its caret or selection moved.
  void TextChanged();
  void SelectionMoved();
  /// The palette of the editor: shaded where the field is locked.
  QPalette Shades() const;

  // The native editor.
  virtual void SetNativeText(const QString& text) = 0;
  virtual void InsertNatively(const QString& text) = 0;
  virtual bool IsLocked() const = 0;
  virtual void SetLocked(bool locked) = 0;

 private:
  ShownControl Content() const override;
  /// Runs native editing, and tells the form what came of it afterwards.
  template <class Editing>
  void EditWith(Editing&& editing);
  void Report(EditAct::Origin origin);
  /// Left and Right leave a selection at its end, on every desktop.
  bool CollapseSelection(const QKeyEvent& event);
  /// The editor shows the field's text.
  bool IsAligned() const;
  /// Whether the editor is to have the field's selection.
  bool ShowsSelection() const;
  // What the editor holds, as a field holds it.
  std::string FieldText() const;
  Selection FieldSelection() const;

  TextField& field_;
  bool refreshing_ = false;
  bool editing_ = false;
  /// Of a press that was none of the editor's nothing more is its own.
  bool pressIsOver_ = false;
};

class LineView final : public TextView {
 public:
  LineView(TextField& field, QWidget& parent, WatchedActs& acts);

  void Restyle() override;
  QString NativeText() const override { return native_.text(); }
  Selection NativeSelection() const override;
  void SetNativeSelection(Selection selection) override;

 private:
  void SetNativeText(const QString& text) override;
  void InsertNatively(const QString& text) override { native_.insert(text); }
  bool IsLocked() const override { return native_.isReadOnly(); }
  void SetLocked(bool locked) override;
  /// A text that is too long for a field that can't be edited: how it begins, and all of it as a hint.
  void ShowBeginning();
  /// What stands around the text.
  int Chrome() const;

  QLineEdit& native_;
};

class MultiLineView final : public TextView {
 public:
  MultiLineView(TextField& field, QWidget& parent, WatchedActs& acts);

  QWidget& MouseArea() const override { return *native_.viewport(); }
  void Restyle() override;
  QString NativeText() const override;
  Selection NativeSelection() const override;
  void SetNativeSelection(Selection selection) override;

 private:
  void SetNativeText(const QString& text) override { native_.setPlainText(text); }
  void InsertNatively(const QString& text) override { native_.insertPlainText(text); }
  bool IsLocked() const override { return native_.isReadOnly(); }
  void SetLocked(bool locked) override;

  QPlainTextEdit& native_;
};

}  // namespace fiscalon::qt
