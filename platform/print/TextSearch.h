// Finds a text in a document.
#pragma once

#include <optional>
#include <span>

#include "platform/print/PageText.h"

namespace tevra {

struct FoundPlace {
  int page;                   ///< from 0
  std::vector<QRectF> marks;  ///< twips; one rectangle for each line

  bool operator==(const FoundPlace&) const = default;
};

/// Searches page by page, so that the program stays responsive, and also while the document is
/// still being laid out. Stores the places found but not the pages' texts. Ignores case.
class TextSearch {
 public:
  /// The search ends after this number of places; nobody needs more.
  static constexpr std::size_t kMostPlaces = 10000;

  explicit TextSearch(PagedDocument& document) : document_(document) {}

  /// Searches from a page to the end and then the pages before it. Blanks around the text are
  /// ignored; an empty text has no places.
  void Begin(const QString& text, int page);
  /// To be called when the pages have changed: searches them again and returns to the current place
  /// if it still exists.
  void BeginAnew();

  /// Searches the next page. False when there is none: all are searched, or more must be laid out
  /// first. Throws like PaintPage; the page then remains to be searched.
  bool SearchMore();
  const QString& Text() const { return text_; }
  /// True when all pages are searched or kMostPlaces are found.
  bool IsDone() const;
  bool IsFull() const { return places_.size() >= kMostPlaces; }

  /// The places found so far, in the order of the pages.
  const std::vector<FoundPlace>& Places() const { return places_; }
  std::span<const FoundPlace> PlacesOn(int page) const;

  /// The number of the current place, from 0; -1 while there is none. The first place found becomes
  /// the current one.
  int Current() const { return current_; }
  const FoundPlace* CurrentPlace() const;
  /// Goes to the next place (1) or the previous one (-1), and around at the ends. A place that is
  /// not found yet becomes current as soon as it is found.
  void Go(int step);

 private:
  void SearchPage(int page);
  void Restart(int page);
  void TakeUp(std::size_t at, std::size_t count);
  void GoWhereWanted();
  bool IsGapBetween(int one, int other) const;

  PagedDocument& document_;
  QString text_;
  int from_ = 0;    // the page that the search began with
  int ahead_ = 0;   // the next page from there on
  int behind_ = 0;  // the next page of those before
  std::vector<FoundPlace> places_;
  int current_ = -1;
  int wanted_ = 0;                  // a requested step to a place not found yet
  std::optional<FoundPlace> keep_;  // the current place of the previous search
};

}  // namespace tevra
