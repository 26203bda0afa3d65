// The data source of a screen: a recordset that boxes and grids are bound to, with a strip of
// buttons to walk it.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Recordset.h"

namespace tevra {

/// Bound controls show the current row and hand in what was typed when the row is written. The
/// strip (first, previous, "3 din 120", next, last) is shown only where a screen puts it into its
/// layout.
class Adodc : public QWidget {
  Q_OBJECT

 public:
  Adodc(const char* name, QWidget* parent);
  ~Adodc() override;

  void SetConnectionString(const std::string& connectionString);
  /// Takes the rows over a connection that is open already, so that one transaction may span the
  /// rows of several sources.
  void SetConnection(const Connection& connection);
  /// The statement of the rows; "?" in it are `params`. Takes effect at Refresh.
  void SetRecordSource(const std::string& sql, const Values& params = {});
  const std::string& RecordSource() const { return sql_; }
  /// Fields that are added up while the rows are read: their sums are the recordset's Total.
  void SetTotalledFields(std::vector<std::string> fields) { totalled_ = std::move(fields); }

  /// Runs the statement anew on a connection that stays open; the rows are fetched as they come on
  /// show. The first row becomes the current one. What was typed and not written is dropped.
  /// `arrange`: sorts the rows and finds a place in them before they come on show. Throws Failure
  /// and then keeps the rows it had.
  void Refresh(const std::function<void(tevra::Recordset& rows)>& arrange = {});

  /// Takes a recordset made elsewhere, such as one in memory.
  void SetRecordset(const tevra::Recordset& recordset);

  /// The rows with their position; closed before the first Refresh. Who changes rows or position
  /// here calls Notify afterwards.
  tevra::Recordset& Recordset() { return recordset_; }
  /// The connection of the rows; not open before the first Refresh.
  Connection& GetConnection() { return connection_; }

  /// Bound controls show what the recordset now holds, and where it stands.
  void Notify();
  /// The same where only values of the current row changed.
  void NotifyRow();

  bool HasRow() const;  ///< neither at the end nor at the beginning marker
  void MoveFirst();
  void MovePrevious();
  void MoveNext();
  void MoveLast();
  /// To the row at a place of the recordset, from 0, as sorted.
  void MoveTo(std::size_t position);

  /// Takes in what was typed into bound boxes and writes the current row; a table without rows gets
  /// its first one. Throws Failure; what was typed stays in the boxes.
  void UpdateRow();
  /// Drops what was typed: the boxes show the row again.
  void CancelRow();

  /// Drops the rows and the connection; bound controls become empty.
  void Close();

  /// What the boxes hand in, and the first failure among them.
  class Collected {
   public:
    explicit Collected(Adodc& source) : source_(source) {}
    /// Sets a field of the current row, or of the first one that a table gets.
    void Set(const std::string& field, const Value& value);
    /// Runs a box's handing in; a failure is kept, not thrown.
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
  void MovedByUser();   ///< by the strip; behind its MoveComplete
  void Collecting(tevra::Adodc::Collected& collected);  ///< bound boxes hand in what was typed

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
