#include "accounting/NotePreview.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

enum Column { kJournal, kAccount, kDebit, kCredit, kForeignDebit, kForeignCredit, kColumns };
constexpr int kMostRows = 6;

// An amount of 0 is left blank, as on paper.
QString Amount(double amount) {
  if (!std::isfinite(amount)) return QStringLiteral("?");
  return amount == 0 ? QString() : QString::fromStdString(Format(amount, "#.##0,00"));
}

bool HasForeign(const std::vector<Note>& notes) {
  const auto foreign = [](const NoteLine& line) {
    return line.DevDebit != 0 || line.DevCredit != 0;
  };
  return std::any_of(notes.begin(), notes.end(), [&](const Note& note) {
    return std::any_of(note.begin(), note.end(), foreign);
  });
}

}  // namespace

NotePreview::NotePreview(const char* name, QWidget* parent)
    : QWidget(parent), table_(new QTableWidget(0, kColumns, this)), reason_(new QLabel(this)) {
  table_->setObjectName(name);
  table_->setAccessibleName(QStringLiteral("Nota contabila"));
  table_->setHorizontalHeaderLabels(
      {QStringLiteral("Jurnal"), QStringLiteral("Cont"), QStringLiteral("Debit"),
       QStringLiteral("Credit"), QStringLiteral("Debit valuta"), QStringLiteral("Credit valuta")});
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionMode(QAbstractItemView::NoSelection);
  table_->setFocusPolicy(Qt::NoFocus);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  // An amount is never cut or broken: a table that is too narrow scrolls.
  table_->setWordWrap(false);
  table_->setTextElideMode(Qt::ElideNone);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  reason_->setWordWrap(true);
  auto* row = new QHBoxLayout;
  row->addWidget(table_, 1);
  row->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(row);
  layout->addWidget(reason_);
  Show({}, {});
}

void NotePreview::Show(const std::vector<Note>& notes, const std::string& otherwise) {
  table_->setRowCount(0);
  for (const Note& note : notes) {
    for (const NoteLine& line : note) AddLine(line, &line == &note.front());
  }
  const bool foreign = HasForeign(notes);
  table_->setColumnHidden(kForeignDebit, !foreign);
  table_->setColumnHidden(kForeignCredit, !foreign);
  table_->setVisible(table_->rowCount() > 0);
  reason_->setText(QString::fromStdString(otherwise));
  reason_->setVisible(table_->rowCount() == 0);
  FitSize();
}

void NotePreview::AddLine(const NoteLine& line, bool first) {
  const int row = table_->rowCount();
  table_->insertRow(row);
  const QString texts[] = {first ? QString::fromStdString(line.Jurnal) : QString(),
                           QString::fromStdString(line.Cont),
                           Amount(line.Debit),
                           Amount(line.CreditAmount()),
                           Amount(line.DevDebit),
                           Amount(line.DevCredit)};
  for (int column = 0; column < kColumns; ++column) {
    auto* item = new QTableWidgetItem(texts[column]);
    const bool number = column >= kDebit;
    item->setTextAlignment(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
    table_->setItem(row, column, item);
  }
}

// As high as its lines: a preview with a scroll bar hides what it is there to show. No wider than
// its columns: an amount far from its account is hard to read.
void NotePreview::FitSize() {
  const int rows = std::min(table_->rowCount(), kMostRows);
  int height = table_->horizontalHeader()->sizeHint().height() + 2 * table_->frameWidth();
  for (int row = 0; row < rows; ++row) height += table_->rowHeight(row);
  table_->setFixedHeight(height);
  table_->resizeColumnsToContents();
  table_->setMaximumWidth(table_->horizontalHeader()->length() + 2 * table_->frameWidth());
}

}  // namespace tevra
