// The bar for finding a text in a document.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/print/TextSearch.h"

namespace tevra {

/// The bar is visible while the user searches. It shows the number of places found; its owner calls
/// SearchMore when the program is idle.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  /// `pageOnShow`: returns the page on which a search begins.
  FindBar(PagedDocument& document, std::function<int()> pageOnShow, QWidget* parent);

  const TextSearch& Search() const { return search_; }

  /// Shows the bar, moves the focus into its box and searches for the text left there from the last
  /// time.
  void Open();
  /// Hides the bar and forgets the places.
  void Close();
  /// Goes to the next place (1) or the previous one (-1). Opens the bar when it is closed.
  void Go(int step);
  /// To be called when the pages have changed.
  void DocumentChanged();

  /// True while there are pages left to search.
  bool IsSearching() const { return isVisible() && !broken_ && !search_.IsDone(); }
  /// Searches for some milliseconds. False when there is nothing to search now. Throws like
  /// PaintPage does and then ends the search.
  bool SearchMore(int milliseconds);

  QLineEdit* txtCauta;
  QPushButton* cmdCautaInapoi;
  QPushButton* cmdCautaInainte;
  QLabel* lblGasite;  ///< "3 din 17"; "3 din 17..." while there are pages to search
  QToolButton* cmdInchideCautare;

 signals:
  /// There are pages to search.
  void SearchWanted();
  /// The places found have changed.
  void PlacesChanged();
  /// The current place, to be shown.
  void PlaceChosen(const FoundPlace& place);
  /// The bar was closed.
  void BarClosed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build();
  void Begin();
  void Tell();
  QString FoundText() const;

  TextSearch search_;
  std::function<int()> pageOnShow_;
  bool broken_ = false;                // a page could not be read
  std::optional<FoundPlace> current_;  // as last emitted
  std::size_t count_ = 0;
};

}  // namespace tevra
