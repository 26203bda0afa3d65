#include "platform/print/BandedReport.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/text/Dates.h"
#include "platform/text/Invariant.h"
#include "platform/text/Numbers.h"

namespace tevra {

namespace {

constexpr double kBeside = 2 * kTwipsPerPoint;  // between two columns

bool IsNumber(const ReportControl& control) {
  return !control.format.empty();
}

QString ValueText(const Value& value, const std::string& format) {
  if (value.IsNull()) return {};
  if (value.GetKind() == Value::Kind::DateTime) {
    return QString::fromStdString(ShortDate(value.AsDateTime()));
  }
  const bool formatted = !format.empty() && !value.IsText();
  return QString::fromStdString(formatted ? Format(value.AsDouble(), format) : value.AsText());
}

}  // namespace

// Receives the bands of a page as they are placed. Layout needs no texts, so they are optional.
class BandedReport::Filler {
 public:
  Filler(const BandedReport& report, int page, std::vector<Band>* bands)
      : report_(report), page_(page), bands_(bands) {}

  void Add(const ReportSection& section, const Place& at, double top, double height) {
    if (!bands_) return;
    Band band{&section, top, height, {}};
    for (const ReportControl& control : section.controls) {
      if (control.visible) band.texts.emplace_back(&control, report_.TextOf(control, at, page_));
    }
    bands_->push_back(std::move(band));
  }

 private:
  const BandedReport& report_;
  int page_;
  std::vector<Band>* bands_;
};

BandedReport::BandedReport(QString title, ReportLayout design,
                           std::shared_ptr<const ReportData> data, const DateTime& today,
                           const QPageLayout& layout)
    : PagedDocument(std::move(title), layout),
      design_(std::move(design)),
      data_(std::move(data)),
      today_(today),
      starts_{Place{}} {}

void BandedReport::Restart() {
  starts_ = {Place{}};
  complete_ = false;
}

void BandedReport::LayOutMore() {
  if (complete_) return;
  Filler nobody(*this, 0, nullptr);
  const Place next = Fill(starts_.back(), nobody);
  Invariant(next != starts_.back(), "o pagina a raportului nu cuprinde nimic");
  if (next.stage == Stage::kEnd) {
    complete_ = true;
  } else {
    starts_.push_back(next);
  }
}

std::vector<BandedReport::Band> BandedReport::BandsOf(int page) const {
  std::vector<Band> bands;
  Filler filler(*this, page, &bands);
  Fill(starts_.at(static_cast<std::size_t>(page)), filler);
  return bands;
}

// ---- Filling a page -----------------------------------------------------------------------------

const ReportSection* BandedReport::SectionAt(const Place& at) const {
  switch (at.stage) {
    case Stage::kReportHeader:
      return design_.Shown(BandRole::kReportHeader);
    case Stage::kGroup:
      return design_.Shown(BandRole::kGroupHeader);
    case Stage::kRow:
      return design_.Shown(BandRole::kDetail);
    case Stage::kGroupFooter:
      return design_.Shown(BandRole::kGroupFooter);
    case Stage::kReportFooter:
      return design_.Shown(BandRole::kReportFooter);
    default:
      return nullptr;
  }
}

BandedReport::Place BandedReport::Next(const Place& at) const {
  const auto group = [this](std::size_t number) {
    return number < data_->GroupCount() ? Place{Stage::kGroup, number, 0}
                                        : Place{Stage::kReportFooter, number, 0};
  };
  switch (at.stage) {
    case Stage::kReportHeader:
      return group(0);
    case Stage::kGroup:
      if (design_.Shown(BandRole::kDetail) && data_->RowsOf(at.group).count > 0) {
        return {Stage::kRow, at.group, 0};
      }
      return {Stage::kGroupFooter, at.group, 0};
    case Stage::kRow:
      if (at.row + 1 < data_->RowsOf(at.group).count) return {Stage::kRow, at.group, at.row + 1};
      return {Stage::kGroupFooter, at.group, 0};
    case Stage::kGroupFooter:
      return group(at.group + 1);
    default:
      return {Stage::kEnd, at.group, 0};
  }
}

// The height that must remain below a band: a head stays with its first row, totals with the last.
double BandedReport::NeededBehind(const Place& at) const {
  const Place next = Next(at);
  const bool keeps = at.stage == Stage::kGroup || next.stage == Stage::kGroupFooter ||
                     next.stage == Stage::kReportFooter;
  return keeps ? HeightOf(SectionAt(next), next) + NeededBehind(next) : 0;
}

// True for a page that begins within a group.
bool BandedReport::GoesOn(const Place& start) {
  return start.stage == Stage::kGroupFooter || (start.stage == Stage::kRow && start.row > 0);
}

BandedReport::Place BandedReport::Fill(const Place& start, Filler& filler) const {
  const QRectF area = PrintArea();
  const ReportSection* pageFooter = design_.Shown(BandRole::kPageFooter);
  const double bottom = area.bottom() - HeightOf(pageFooter, start);
  double top = area.top();
  const auto put = [&](const ReportSection* section, const Place& place, double height) {
    if (section) filler.Add(*section, place, top, height);
    top += height;
  };
  Place at = start;
  const ReportSection* pageTop = design_.Shown(BandRole::kPageTop);
  put(pageTop, at, HeightOf(pageTop, at));
  if (at.stage == Stage::kReportHeader) {
    put(SectionAt(at), at, HeightOf(SectionAt(at), at));
    at = Next(at);
  }
  const ReportSection* pageHeader = design_.Shown(BandRole::kPageHeader);
  put(pageHeader, at, HeightOf(pageHeader, at));
  if (GoesOn(at)) {
    const Place head{Stage::kGroup, at.group, 0};
    put(SectionAt(head), head, HeightOf(SectionAt(head), head));
  }
  // A band higher than a page is printed cut, because it would never be printed otherwise.
  for (bool first = true; at.stage != Stage::kEnd; first = false, at = Next(at)) {
    const ReportSection* section = SectionAt(at);
    const double height = HeightOf(section, at);
    if (!first && top + height + NeededBehind(at) > bottom) break;
    put(section, at, height);
  }
  top = bottom;
  put(pageFooter, start, HeightOf(pageFooter, start));
  return at;
}

double BandedReport::HeightOf(const ReportSection* section, const Place& at) const {
  if (!section) return 0;
  double more = 0;
  for (const ReportControl& control : section->controls) {
    if (control.lines < 2 || !control.visible || IsNumber(control)) continue;
    const CellText& letters = Letters(control);
    const QString text = TextOf(control, at, 0);
    const FittedText fitted = letters.Fit(text, WidthOf(control), control.lines, IsNumber(control));
    more = std::max(more, static_cast<double>(fitted.lines.size() - 1) * letters.LineHeight());
  }
  return section->height * kTwipsPerPoint + more;
}

// ---- The texts of a band ------------------------------------------------------------------------

Value BandedReport::ValueOf(const ReportControl& control, const Place& at) const {
  if (control.kind == ControlKind::kFunction) return data_->GrandTotal(control.field);
  if (at.stage != Stage::kRow) return data_->GroupValue(at.group, control.field);
  return data_->RowValue(data_->RowsOf(at.group).first + at.row, control.field);
}

QString BandedReport::TextOf(const ReportControl& control, const Place& at, int page) const {
  switch (control.kind) {
    case ControlKind::kLabel:
      return control.text;
    case ControlKind::kField:
    case ControlKind::kFunction:
      return ValueText(ValueOf(control, at), control.format);
    case ControlKind::kPage: {
      QString text = control.text;
      text.replace("%p", QString::number(page + 1));
      text.replace("%P", complete_ ? QString::number(PageCount()) : QString("..."));
      text.replace("%d", QString::fromStdString(ShortDate(today_)));
      return text;
    }
    default:
      return {};
  }
}

const CellText& BandedReport::Letters(const ReportControl& control) const {
  const std::pair<int, bool> key(static_cast<int>(std::lround(control.size * 10)), control.bold);
  auto found = letters_.find(key);
  if (found == letters_.end()) {
    found = letters_.emplace(key, CellText(PaperFont(control.size, control.bold))).first;
  }
  return found->second;
}

double BandedReport::WidthOf(const ReportControl& control) const {
  return PrintArea().width() * control.width / 100 - kBeside;
}

// ---- Painting -----------------------------------------------------------------------------------

void BandedReport::PaintPage(QPainter& painter, int page) {
  for (const Band& band : BandsOf(page)) PaintBand(painter, band);
}

void BandedReport::PaintBand(QPainter& painter, const Band& band) const {
  const QRectF area = PrintArea();
  const double grown = band.height - band.section->height * kTwipsPerPoint;
  painter.save();
  painter.setPen(Qt::black);
  for (const auto& [control, text] : band.texts) {
    const double left = area.left() + area.width() * control->left / 100;
    double top = band.top + control->top * kTwipsPerPoint;
    if (control->kind == ControlKind::kLine) {
      if (control->top > 0) top += grown;  // controls below the texts
      // Drawn as a line, because a coarse screen shows even the thinnest line.
      painter.setPen(QPen(Qt::black, control->size * kTwipsPerPoint, Qt::SolidLine, Qt::FlatCap));
      painter.drawLine(QPointF(left, top),
                       QPointF(left + area.width() * control->width / 100, top));
      painter.setPen(Qt::black);
      continue;
    }
    if (text.isEmpty()) continue;
    const CellText& letters = Letters(*control);
    const double width = WidthOf(*control);
    const FittedText fitted = letters.Fit(text, width, control->lines, IsNumber(*control));
    letters.Paint(painter, fitted, QRectF(left + kBeside / 2, top, width, band.height),
                  control->alignment | Qt::AlignTop);
  }
  painter.restore();
}

}  // namespace tevra
