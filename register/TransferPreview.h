// The assets that a transfer to the inventory objects would move, shown before it.
#pragma once

#include <QLabel>
#include <QTableWidget>

#include "register/InventoryTransfer.h"

namespace tevra {

/// How many assets there are with their values, and a table of them. It changes nothing.
class TransferPreview : public QWidget {
 public:
  explicit TransferPreview(const TransferSelection& selection, QWidget* parent = nullptr);

  QLabel* lblActive;
  QTableWidget* tblActive;  ///< hidden while there are no assets

 private:
  void Fill(const TransferSelection& selection);
  void FitSize();
};

/// The words above the table.
std::string TransferPreviewText(const TransferSelection& selection);

}  // namespace tevra
