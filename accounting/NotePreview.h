// The table in which a screen shows the notes that it is about to write.
#pragma once

#include <QLabel>
#include <QTableWidget>
#include <string>
#include <vector>

#include "accounting/Note.h"

namespace tevra {

/// Account, debit and credit of each line, a note after the other; the currency amounts follow
/// where a line has one. It takes no focus and changes nothing.
class NotePreview : public QWidget {
 public:
  explicit NotePreview(const char* name, QWidget* parent = nullptr);

  /// Shows these notes. When they have no lines, shows `otherwise`, such as the reason.
  void Show(const std::vector<Note>& notes, const std::string& otherwise);

  /// The table, named `name`; hidden while there are no lines.
  QTableWidget* Table() const { return table_; }
  /// The text that is shown instead of the table.
  QLabel* Reason() const { return reason_; }

 private:
  void AddLine(const NoteLine& line, bool first);
  void FitSize();

  QTableWidget* table_;
  QLabel* reason_;
};

}  // namespace tevra
