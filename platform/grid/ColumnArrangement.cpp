#include "platform/grid/ColumnArrangement.h"

#include <QHeaderView>
#include <QStringList>
#include <algorithm>

#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr int kNarrowest = 24;  // pixels
constexpr int kWidest = 2000;

struct Place {
  int column;
  int width;  // 0: hidden
};

std::vector<Place> Read(const std::vector<std::string>& fields, const std::string& text) {
  std::vector<Place> places;
  for (const QString& word : QString::fromStdString(text).split(' ', Qt::SkipEmptyParts)) {
    const QStringList parts = word.split('=');
    bool number = false;
    const int width = parts.size() == 2 ? parts[1].toInt(&number) : 0;
    const auto field = std::find_if(fields.begin(), fields.end(), [&](const std::string& each) {
      return EqualNoCase(each, parts[0].toStdString());
    });
    if (!number || width < 0 || field == fields.end()) continue;
    const int column = static_cast<int>(field - fields.begin());
    const bool twice = std::any_of(places.begin(), places.end(),
                                   [&](const Place& place) { return place.column == column; });
    if (!twice) places.push_back({column, width});
  }
  return places;
}

}  // namespace

std::string ArrangementOf(const QHeaderView& header, const std::vector<std::string>& fields) {
  std::string text;
  for (int visual = 0; visual < header.count(); ++visual) {
    const int column = header.logicalIndex(visual);
    if (!text.empty()) text += ' ';
    const int width = header.isSectionHidden(column) ? 0 : header.sectionSize(column);
    text += fields[static_cast<std::size_t>(column)] + '=' + std::to_string(width);
  }
  return text;
}

void Arrange(QHeaderView& header, const std::vector<std::string>& fields, const std::string& text) {
  const std::vector<Place> places = Read(fields, text);
  const bool shows =
      std::any_of(places.begin(), places.end(), [](const Place& place) { return place.width > 0; });
  if (!shows) return;
  int visual = 0;
  for (const Place& place : places) {
    header.moveSection(header.visualIndex(place.column), visual++);
    header.setSectionHidden(place.column, place.width == 0);
    if (place.width == 0) continue;
    header.resizeSection(place.column, std::clamp(place.width, kNarrowest, kWidest));
  }
}

}  // namespace tevra
