#include "register/TransferPreview.h"

#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/data/MoneySum.h"
#include "platform/text/Numbers.h"

namespace tevra {

namespace {

enum Column { kCode, kName, kValue, kRemaining, kColumns };

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

QString Amount(double amount) {
  return Text(Format(amount, "#.##0,00"));
}

std::string NotedAgainText(int assets) {
  if (assets == 0) return {};
  return assets == 1
             ? "\nAtentie: o imobilizare iesita, cu valoare ramasa, primeste din nou nota "
               "contabila."
             : "\nAtentie: " + std::to_string(assets) +
                   " imobilizari iesite, cu valoare ramasa, primesc din nou note contabile.";
}

}  // namespace

std::string TransferPreviewText(const TransferSelection& selection) {
  const std::size_t count = selection.assets.size();
  const std::string limit = Format(selection.limit, "#.##0,00") + " lei";
  if (count == 0) return "Nici o imobilizare nu are acum valoarea pana la " + limit + ".";
  MoneySum value;
  for (const SmallAsset& asset : selection.assets) value.Add(asset.value);
  const std::string found =
      count == 1 ? "O imobilizare are" : std::to_string(count) + " imobilizari au";
  return found + " acum valoarea pana la " + limit + ", in total " +
         Format(value.Total(), "#.##0,00") + " lei:" + NotedAgainText(selection.notedAgain);
}

TransferPreview::TransferPreview(const TransferSelection& selection, QWidget* parent)
    : QWidget(parent),
      lblActive(new QLabel(Text(TransferPreviewText(selection)), this)),
      tblActive(new QTableWidget(static_cast<int>(selection.assets.size()), kColumns, this)) {
  lblActive->setObjectName("lblActive");
  lblActive->setWordWrap(true);
  tblActive->setObjectName("tblActive");
  tblActive->setAccessibleName("Imobilizarile care trec in inventar");
  tblActive->setHorizontalHeaderLabels({"Nr. inv.", "Denumire", "Valoare", "Ramas"});
  tblActive->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tblActive->setSelectionMode(QAbstractItemView::NoSelection);
  tblActive->setTabKeyNavigation(false);
  tblActive->verticalHeader()->hide();
  tblActive->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  tblActive->horizontalHeader()->setSectionResizeMode(kName, QHeaderView::Stretch);
  Fill(selection);
  tblActive->resizeColumnToContents(kCode);
  tblActive->setVisible(!selection.assets.empty());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lblActive);
  layout->addWidget(tblActive, 1);
  if (!selection.assets.empty()) FitSize();
}

// Room for the names, and for a dozen assets at once.
void TransferPreview::FitSize() {
  constexpr int kWide = 620;
  constexpr int kMostRows = 12;
  setMinimumWidth(kWide);
  const int rows = std::min(tblActive->rowCount(), kMostRows);
  int height = tblActive->horizontalHeader()->sizeHint().height() + 2 * tblActive->frameWidth();
  for (int row = 0; row < rows; ++row) height += tblActive->rowHeight(row);
  tblActive->setMinimumHeight(height);
}

void TransferPreview::Fill(const TransferSelection& selection) {
  for (int row = 0; row < tblActive->rowCount(); ++row) {
    const SmallAsset& asset = selection.assets[static_cast<std::size_t>(row)];
    const QString texts[] = {Text(asset.code), Text(asset.name), Amount(asset.value),
                             Amount(asset.remaining)};
    for (int column = 0; column < kColumns; ++column) {
      auto* item = new QTableWidgetItem(texts[column]);
      const bool number = column >= kValue;
      item->setTextAlignment(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
      tblActive->setItem(row, column, item);
    }
  }
}

}  // namespace tevra
