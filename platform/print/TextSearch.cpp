#include "platform/print/TextSearch.h"

#include <algorithm>
#include <utility>

namespace tevra {
namespace {

struct ByPage {
  bool operator()(const FoundPlace& place, int page) const { return place.page < page; }
  bool operator()(int page, const FoundPlace& place) const { return page < place.page; }
};

double Distance(const FoundPlace& a, const FoundPlace& b) {
  return (a.marks.front().topLeft() - b.marks.front().topLeft()).manhattanLength();
}

}  // namespace

void TextSearch::Begin(const QString& text, int page) {
  text_ = text.trimmed();
  keep_.reset();
  wanted_ = 0;
  Restart(page);
}

void TextSearch::BeginAnew() {
  if (const FoundPlace* place = CurrentPlace()) keep_ = *place;
  Restart(keep_ ? keep_->page : from_);
}

void TextSearch::Restart(int page) {
  places_.clear();
  current_ = -1;
  from_ = ahead_ = std::clamp(page, 0, std::max(0, document_.PageCount() - 1));
  behind_ = 0;
}

bool TextSearch::IsDone() const {
  if (text_.isEmpty() || IsFull()) return true;
  return document_.IsComplete() && ahead_ >= document_.PageCount() && behind_ >= from_;
}

bool TextSearch::SearchMore() {
  if (!IsDone() && ahead_ < document_.PageCount()) {
    SearchPage(ahead_);
    ++ahead_;
  } else if (!IsDone() && behind_ < from_) {
    SearchPage(behind_);
    ++behind_;
  } else {
    GoWhereWanted();
    return false;
  }
  GoWhereWanted();
  return !IsDone();
}

void TextSearch::SearchPage(int page) {
  std::vector<FoundPlace> found;
  const std::size_t room = kMostPlaces - places_.size();
  for (const PaintedText& painted : TextOfPage(document_, page)) {
    const QString& text = painted.Text();
    qsizetype at = text.indexOf(text_, 0, Qt::CaseInsensitive);
    while (at >= 0 && found.size() < room) {
      FoundPlace place{page, painted.PlaceOf(at, text_.size())};
      if (!place.marks.empty()) found.push_back(std::move(place));
      at = text.indexOf(text_, at + text_.size(), Qt::CaseInsensitive);
    }
  }
  const auto behind = std::upper_bound(places_.begin(), places_.end(), page, ByPage());
  const auto at = static_cast<std::size_t>(behind - places_.begin());
  const std::size_t count = found.size();
  places_.insert(behind, std::make_move_iterator(found.begin()),
                 std::make_move_iterator(found.end()));
  TakeUp(at, count);
}

// Inserts the places found on a page into the list.
void TextSearch::TakeUp(std::size_t at, std::size_t count) {
  const auto first = static_cast<int>(at);
  if (current_ >= first) current_ += static_cast<int>(count);
  if (current_ >= 0 || count == 0) return;
  current_ = first;
  if (!keep_ || keep_->page != places_[at].page) return;
  const auto begin = places_.begin() + first;
  const auto nearest = std::min_element(
      begin, begin + static_cast<std::ptrdiff_t>(count),
      [&](const auto& a, const auto& b) { return Distance(a, *keep_) < Distance(b, *keep_); });
  current_ = static_cast<int>(nearest - places_.begin());
  keep_.reset();
}

std::span<const FoundPlace> TextSearch::PlacesOn(int page) const {
  const auto [first, last] = std::equal_range(places_.begin(), places_.end(), page, ByPage());
  return {first, last};
}

const FoundPlace* TextSearch::CurrentPlace() const {
  return current_ < 0 ? nullptr : &places_[static_cast<std::size_t>(current_)];
}

void TextSearch::Go(int step) {
  wanted_ = step;
  GoWhereWanted();
}

// While pages are searched, more places may appear between two places and after the last one.
void TextSearch::GoWhereWanted() {
  const auto count = static_cast<int>(places_.size());
  if (wanted_ == 0 || current_ < 0) return;
  const int next = current_ + wanted_;
  if (!IsDone() && (next < 0 || next >= count || IsGapBetween(current_, next))) return;
  current_ = (next + count) % count;
  wanted_ = 0;
}

bool TextSearch::IsGapBetween(int one, int other) const {
  const auto isBefore = [this](int place) {
    return places_[static_cast<std::size_t>(place)].page < from_;
  };
  return behind_ < from_ && isBefore(one) != isBefore(other);
}

}  // namespace tevra
