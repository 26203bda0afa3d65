// The condition builder: rows of field, operator and value, which give the clause of a statement.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/where/SavedConditions.h"
#include "platform/where/WhereRow.h"

class QScrollArea;
class QVBoxLayout;

namespace tevra {

/// What a builder offers.
struct WhereDescription {
  std::string connection;  ///< the connection string, for the lists of values
  std::vector<WhereField> fields;
  std::string first;        ///< the field that a new row has
  std::string settingsKey;  ///< of the user's saved sets; empty: sets cannot be saved
};

/// A condition without a value counts as none. Alt+A adds a row, Alt+Delete removes the one with
/// the focus, Enter asks for the search.
class WhereBuilder : public QGroupBox {
  Q_OBJECT

 public:
  explicit WhereBuilder(const char* name, QWidget* parent);
  ~WhereBuilder() override;

  /// To be called once. Throws Failure when the list of the first field cannot be read.
  void SetUp(WhereDescription description);

  /// The clause of the rows. When a condition makes no sense, shows why, gives the focus to its box
  /// and returns nothing; what was typed stays.
  std::optional<WhereClause> Clause();

  /// The conditions in the rows, those without a value left out.
  std::vector<Condition> Conditions() const;
  /// Shows these conditions, or one row without a value when there are none.
  void SetConditions(const std::vector<Condition>& conditions);

  /// The box for the value of the first condition.
  QWidget* FirstBox() { return rows_.empty() ? this : rows_.front()->FirstBox(); }
  int RowCount() const { return static_cast<int>(rows_.size()); }

 signals:
  void SearchWanted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildRows();
  void BuildSets();
  WhereRow* AddRow(const Condition& condition);
  void RemoveRow(WhereRow* row);
  void Discard(WhereRow* row);
  void AddAndEnter();
  void RemoveFocused();
  void Arrange();
  void FitHeight();
  void ShowNames(const std::string& chosen);
  void LoadSet();
  void SaveSet();
  void RemoveSet();
  template <class Work>
  void Told(Work work);

  WhereDescription description_;
  ValueLists lists_;
  std::unique_ptr<SavedConditions> sets_;
  std::vector<WhereRow*> rows_;
  QScrollArea* area_ = nullptr;
  QWidget* inside_ = nullptr;
  QVBoxLayout* column_ = nullptr;
  QPushButton* cmdAdauga_ = nullptr;
  QComboBox* cboSeturi_ = nullptr;
  QPushButton* cmdSalveazaSet_ = nullptr;
  QPushButton* cmdStergeSet_ = nullptr;
};

}  // namespace tevra
