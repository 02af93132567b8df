#pragma once

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeWidget>
#include <vector>

#include "tools/reading/shown_record.h"

namespace fiscalon {

/// How a screen ended: cancelled, an error, or the records taken apart by field, with each raw line above a ruler of
/// its columns.
class ResultPanel final : public QGroupBox {
 public:
  explicit ResultPanel(QWidget* parent = nullptr);

  /// Nothing but words.
  void Say(const QString& words);
  void ShowRecords(const QString& words, const std::vector<ShownRecord>& records);

 private:
  void PrepareWords();
  void PrepareRecords();
  void AddRecord(const ShownRecord& record);
  void AddField(QTreeWidgetItem& top, const ShownRecord& record, const ShownField& field, int line);
  void AddNote(QTreeWidgetItem& record, const QString& heading, const Note& note, int line);
  /// Marks the columns of the chosen field in the raw line.
  void MarkChosen();
  /// All cells of the chosen row, with tabs between.
  void CopyRow() const;
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// The words take as many lines as they need, up to a few.
  void FitWords();

  QWidget* said_;
  QPlainTextEdit* words_;
  QSplitter* records_;
  QTreeWidget* fields_;
  QPlainTextEdit* lines_;
};

}  // namespace fiscalon
