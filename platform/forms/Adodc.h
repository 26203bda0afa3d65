// The data source of a screen: a recordset to which boxes and grids are bound, with a navigation
// strip.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Recordset.h"

namespace tevra {

/// Bound controls show the current row, and their contents are collected when the row is written.
/// The strip (first, previous, "3 din 120", next, last) is visible only when a screen puts it into
/// its layout.
class Adodc : public QWidget {
  Q_OBJECT

 public:
  Adodc(const char* name, QWidget* parent);
  ~Adodc() override;

  void SetConnectionString(const std::string& connectionString);
  /// Uses a connection that is open already, so that one transaction can cover the rows of several
  /// sources.
  void SetConnection(const Connection& connection);
  /// The statement of the rows, with `params` for its "?". Takes effect at Refresh.
  void SetRecordSource(const std::string& sql, const Values& params = {});
  const std::string& RecordSource() const { return sql_; }
  /// Fields that are added up while the rows are read: their sums are the recordset's Total.
  void SetTotalledFields(std::vector<std::string> fields) { totalled_ = std::move(fields); }

  /// Runs the statement on a connection that stays open; rows are read when they become visible.
  /// The first row becomes the current one. Unwritten edits are dropped. `arrange`: sorts the rows
  /// and finds a place in them before they are shown. Throws Failure and then keeps the previous
  /// rows.
  void Refresh(const std::function<void(tevra::Recordset& rows)>& arrange = {});

  /// Uses an existing recordset, such as one in memory.
  void SetRecordset(const tevra::Recordset& recordset);

  /// The rows with their position; closed before the first Refresh. After changing rows or position
  /// through it, call Notify.
  tevra::Recordset& Recordset() { return recordset_; }
  /// The connection of the rows; not open before the first Refresh.
  Connection& GetConnection() { return connection_; }

  /// Updates bound controls from the recordset's rows and position.
  void Notify();
  /// The same where only values of the current row changed.
  void NotifyRow();

  bool HasRow() const;  ///< false at the markers before the first and after the last row
  void MoveFirst();
  void MovePrevious();
  void MoveNext();
  void MoveLast();
  /// To the row at a place of the recordset, from 0, as sorted.
  void MoveTo(std::size_t position);

  /// Collects the bound boxes' contents and writes the current row; a table without rows gets its
  /// first one. Throws Failure and then keeps what was typed in the boxes.
  void UpdateRow();
  /// Drops the edits; the boxes show the row again.
  void CancelRow();

  /// Drops the rows and the connection; bound controls become empty.
  void Close();

  /// The collected contents of the boxes, and the first failure.
  class Collected {
   public:
    explicit Collected(Adodc& source) : source_(source) {}
    /// Sets a field of the current row, or of the first one that a table gets.
    void Set(const std::string& field, const Value& value);
    /// Runs the collecting of a box; stores a failure instead of throwing it.
    template <class HandIn>
    void Try(HandIn handIn) {
      try {
        handIn();
      } catch (const Failure& failure) {
        if (!failure_) failure_ = std::make_unique<Failure>(failure);
      }
    }
    bool any = false;

   private:
    friend class Adodc;
    Adodc& source_;
    std::unique_ptr<Failure> failure_;
  };

 signals:
  void RowsChanged();   ///< other rows, or another recordset; a MoveComplete follows
  void MoveComplete();  ///< another current row, or other values in it
  void MovedByUser();   ///< by the strip; emitted after MoveComplete
  void Collecting(tevra::Adodc::Collected& collected);  ///< asks bound boxes for their contents

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  class Strip;

  std::string connectionString_;
  std::string sql_;
  Values params_;
  std::vector<std::string> totalled_;
  Connection shared_;
  Connection connection_;
  tevra::Recordset recordset_;
  std::unique_ptr<Strip> strip_;  // once it is shown
};

}  // namespace tevra
