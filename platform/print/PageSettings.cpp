#include "platform/print/PageSettings.h"

#include <QRectF>
#include <QStringList>
#include <algorithm>
#include <array>

#include "platform/print/PaperNames.h"
#include "platform/system/Settings.h"
#include "platform/text/Strings.h"

namespace tevra {
namespace {

constexpr char kPortrait[] = "portrait";
constexpr char kLandscape[] = "landscape";

std::optional<QPageLayout> KeptUnder(const std::string& key) {
  const std::optional<std::string> kept = Settings().Get(key);
  return kept ? ParsePageLayout(*kept) : std::nullopt;
}

}  // namespace

const std::vector<Paper>& Papers() {
  static constexpr std::array<QPageSize::PageSizeId, kPaperNames.size()> sizes{
      QPageSize::A4, QPageSize::A3, QPageSize::A5, QPageSize::Letter, QPageSize::Legal};
  static const std::vector<Paper> papers = [] {
    std::vector<Paper> all;
    for (std::size_t i = 0; i < sizes.size(); ++i) all.push_back({kPaperNames[i], sizes[i]});
    return all;
  }();
  return papers;
}

const Paper* FindPaper(const std::string& name) {
  const auto found = std::find_if(Papers().begin(), Papers().end(), [&](const Paper& paper) {
    return EqualNoCase(paper.name, name);
  });
  return found == Papers().end() ? nullptr : &*found;
}

QPageLayout MakePageLayout(QPageSize::PageSizeId paper, QPageLayout::Orientation orientation,
                           const QMarginsF& margins) {
  return QPageLayout(QPageSize(paper), orientation, margins, QPageLayout::Millimeter);
}

QPageLayout DefaultPageLayout() {
  return MakePageLayout(QPageSize::A4, QPageLayout::Portrait, QMarginsF(15, 15, 15, 15));
}

bool HasRoomToPrint(const QPageLayout& layout) {
  // QPageLayout::paintRect is rounded.
  const QSizeF paper = layout.fullRect(QPageLayout::Millimeter).size();
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  return paper.width() - margins.left() - margins.right() >= kLeastArea &&
         paper.height() - margins.top() - margins.bottom() >= kLeastArea;
}

std::string PageLayoutText(const QPageLayout& layout) {
  const auto paper = std::find_if(Papers().begin(), Papers().end(), [&](const Paper& each) {
    return each.size == layout.pageSize().id();
  });
  QString text = paper == Papers().end() ? Papers().front().name : paper->name;
  text += QString(" ") + (layout.orientation() == QPageLayout::Landscape ? kLandscape : kPortrait);
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  for (const double margin : {margins.left(), margins.top(), margins.right(), margins.bottom()}) {
    text += " " + QString::number(margin);
  }
  return text.toStdString();
}

std::optional<QPageLayout> ParsePageLayout(const std::string& text) {
  const QStringList words = QString::fromStdString(text).split(' ');
  if (words.size() != 6) return std::nullopt;
  const auto paper = std::find_if(Papers().begin(), Papers().end(),
                                  [&](const Paper& each) { return words[0] == each.name; });
  if (paper == Papers().end()) return std::nullopt;
  if (words[1] != kPortrait && words[1] != kLandscape) return std::nullopt;
  std::array<double, 4> margins{};
  for (std::size_t i = 0; i < margins.size(); ++i) {
    bool isNumber = false;
    margins[i] = words[static_cast<int>(i) + 2].toDouble(&isNumber);
    // The condition is written so that NaN is refused too.
    if (!isNumber || !(margins[i] >= kLeastMargin && margins[i] <= kMostMargin)) {
      return std::nullopt;
    }
  }
  const QPageLayout layout = MakePageLayout(
      paper->size, words[1] == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
      QMarginsF(margins[0], margins[1], margins[2], margins[3]));
  if (!HasRoomToPrint(layout)) return std::nullopt;
  return layout;
}

QPageLayout RememberedPageLayout(const std::string& kind) {
  std::optional<QPageLayout> layout;
  if (!kind.empty()) layout = KeptUnder(kPageOfKind + kind);
  if (!layout) layout = KeptUnder(kPageSetting);
  return layout.value_or(DefaultPageLayout());
}

void RememberPageLayout(const QPageLayout& layout, const std::string& kind) {
  Settings().Set(kind.empty() ? kPageSetting : kPageOfKind + kind, PageLayoutText(layout));
}

}  // namespace tevra
