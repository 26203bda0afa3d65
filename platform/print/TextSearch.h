// Where a document says what somebody looks for.
#pragma once

#include <optional>
#include <span>

#include "platform/print/PageText.h"

namespace tevra {

struct FoundPlace {
  int page;                   ///< from 0
  std::vector<QRectF> marks;  ///< twips; a rectangle a line

  bool operator==(const FoundPlace&) const = default;
};

/// Searches page by page, so that whoever waits can do other things between two pages, and while
/// the document is still being laid out. Keeps the places, never the pages' texts. Upper and lower
/// case are the same.
class TextSearch {
 public:
  /// More places are of no use to anybody; the search ends with them.
  static constexpr std::size_t kMostPlaces = 10000;

  explicit TextSearch(PagedDocument& document) : document_(document) {}

  /// Begins with a page, goes on to the end and then through the pages before. Blanks around the
  /// text do not count; an empty one has no places.
  void Begin(const QString& text, int page);
  /// The pages look otherwise: searches them again and comes back to the current place, if it is
  /// still there.
  void BeginAnew();

  /// Searches the next page. False when there is none to be searched now: all are done, or more are
  /// to be laid out first. Throws as PaintPage does; the page is then still to be searched.
  bool SearchMore();
  const QString& Text() const { return text_; }
  /// All pages are searched, or kMostPlaces are found.
  bool IsDone() const;
  bool IsFull() const { return places_.size() >= kMostPlaces; }

  /// What is found so far, in the order of the pages.
  const std::vector<FoundPlace>& Places() const { return places_; }
  std::span<const FoundPlace> PlacesOn(int page) const;

  /// The place to look at, by its number from 0; -1 while there is none. The first that is found
  /// becomes it.
  int Current() const { return current_; }
  const FoundPlace* CurrentPlace() const;
  /// To the next place (1) or the one before (-1), from the last to the first and back. A place
  /// that is not found yet is gone to as soon as it is.
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
  int wanted_ = 0;                  // a step to a place that is not found yet
  std::optional<FoundPlace> keep_;  // the current one of the search before
};

}  // namespace tevra
