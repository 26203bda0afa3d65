// The window for choosing the columns of a list and their order.
#pragma once

#include <QListWidget>
#include <QPushButton>
#include <optional>
#include <vector>

#include "platform/forms/Form.h"

namespace tevra {

struct ColumnChoice {
  int column;  ///< in the grid's numbering
  QString caption;
  bool shown;
};

/// Asks the user; returns the chosen columns in their order, or nothing when the user cancelled. At
/// least one column is always visible.
std::optional<std::vector<ColumnChoice>> ChooseFrom(const std::vector<ColumnChoice>& choices,
                                                    const QString& title, QWidget* parent);

class frmColoane : public Form {
 public:
  frmColoane(const std::vector<ColumnChoice>& choices, const QString& title);

  std::vector<ColumnChoice> Choices() const;
  bool Accepted() const { return accepted_; }

  QListWidget* lstColoane;
  QPushButton* cmdSus;
  QPushButton* cmdJos;
  QPushButton* cmdToate;
  QPushButton* cmdNiciuna;
  QPushButton* cmdAccept;
  QPushButton* cmdRenunta;

 private:
  void Build();
  void Move(int by);
  void SetAll(Qt::CheckState state);
  void FollowChoice();

  bool accepted_ = false;
};

}  // namespace tevra
