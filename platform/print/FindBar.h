// What somebody looks for in a document.
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

/// A bar that is on show while somebody looks for a text. It says what is found; whoever has the
/// bar calls SearchMore while nothing else is to be done.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  /// `pageOnShow`: tells the page from which a search begins.
  FindBar(PagedDocument& document, std::function<int()> pageOnShow, QWidget* parent);

  const TextSearch& Search() const { return search_; }

  /// Shows the bar with the keyboard in its box, and searches for what stands there from the last
  /// time.
  void Open();
  /// Hides the bar and forgets the places.
  void Close();
  /// To the next place (1) or the one before (-1). A closed bar opens.
  void Go(int step);
  /// The pages look otherwise.
  void DocumentChanged();

  /// True while pages are still to be searched.
  bool IsSearching() const { return isVisible() && !broken_ && !search_.IsDone(); }
  /// Searches for some milliseconds. False when there is nothing to search now. Throws as PaintPage
  /// does, and has then ended.
  bool SearchMore(int milliseconds);

  QLineEdit* txtCauta;
  QPushButton* cmdCautaInapoi;
  QPushButton* cmdCautaInainte;
  QLabel* lblGasite;  ///< "3 din 17"; "3 din 17..." while there are pages to search
  QToolButton* cmdInchideCautare;

 signals:
  /// There are pages to be searched.
  void SearchWanted();
  /// Other places than before are found.
  void PlacesChanged();
  /// This is the place to look at.
  void PlaceChosen(const FoundPlace& place);
  /// The bar is not on show any longer.
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
  std::optional<FoundPlace> current_;  // what was told
  std::size_t count_ = 0;
};

}  // namespace tevra
