// The rows of a banded report for a spreadsheet: as on paper, each with its group.
#include <algorithm>
#include <utility>

#include "platform/print/BandedReport.h"
#include "platform/print/DocumentRows.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

// The title of a field: the label above it in the page header.
QString TitleOver(const ReportLayout& design, const ReportControl& field) {
  const ReportSection* head = design.Shown(BandRole::kPageHeader);
  if (head) {
    for (const ReportControl& label : head->controls) {
      if (label.kind == ControlKind::kLabel && label.left == field.left) return label.text;
    }
  }
  return QString::fromStdString(field.field);
}

QString GroupTitle(const ReportLayout& design) {
  const ReportSection* head = design.Shown(BandRole::kGroupHeader);
  if (head) {
    for (const ReportControl& label : head->controls) {
      if (label.kind == ControlKind::kLabel) return label.text.trimmed();
    }
  }
  return QString::fromStdString(design.group);
}

// When the rows are hidden, the groups are exported instead.
class ReportRows : public DocumentRows {
 public:
  ReportRows(const ReportLayout& design, std::shared_ptr<const ReportData> data)
      : data_(std::move(data)), group_(design.group) {
    const ReportSection* detail = design.Shown(BandRole::kDetail);
    byRows_ = detail != nullptr;
    const ReportSection* section = detail ? detail : design.Shown(BandRole::kGroupFooter);
    columns_.push_back({GroupTitle(design)});
    for (std::size_t i = 0; section && i < section->controls.size(); ++i) {
      const ReportControl& control = section->controls[i];
      if (control.kind != ControlKind::kField || !control.visible) continue;
      if (!byRows_ && EqualNoCase(control.field, group_)) continue;
      Add(control, TitleOver(design, control));
    }
    if (!design.ownTotals.isEmpty()) SetTotals(design, *section);
    for (std::size_t group = 0; group < data_->GroupCount(); ++group) {
      count_ += byRows_ ? data_->RowsOf(group).count : 1;
    }
  }

  const std::vector<ExportColumn>& Columns() const override { return columns_; }
  std::size_t Count() const override { return count_; }

  bool Next(Values& row) override {
    while (byRows_ && at_ < data_->GroupCount() && inGroup_ >= data_->RowsOf(at_).count) {
      ++at_;
      inGroup_ = 0;
    }
    if (at_ >= data_->GroupCount()) return false;
    row = {data_->GroupValue(at_, group_)};
    const std::size_t place = byRows_ ? data_->RowsOf(at_).first + inGroup_ : 0;
    for (const std::string& field : fields_) {
      row.push_back(byRows_ ? data_->RowValue(place, field) : data_->GroupValue(at_, field));
    }
    byRows_ ? ++inGroup_ : ++at_;
    return true;
  }

 private:
  void Add(const ReportControl& control, const QString& title) {
    constexpr double kCharactersOfPage = 110;
    ExportColumn column{title, control.format};
    column.alignment = control.alignment;
    column.width = std::max(10.0, control.width * kCharactersOfPage / 100);
    column.footed = !control.format.empty() && control.format != "0";
    const bool dated = byRows_ && data_->GroupCount() > 0 &&
                       data_->RowValue(0, control.field).GetKind() == Value::Kind::DateTime;
    if (dated) column.type = FieldType::DateTime;
    columns_.push_back(column);
    fields_.push_back(control.field);
  }

  // The functions of the report's footer, each below the field that stands above it on paper.
  void SetTotals(const ReportLayout& design, const ReportSection& section) {
    const ReportSection* footer = design.Shown(BandRole::kReportFooter);
    for (std::size_t i = 0; footer && i < fields_.size(); ++i) {
      ExportColumn& column = columns_[i + 1];
      column.footed = false;
      for (const ReportControl& total : footer->controls) {
        const bool above =
            std::any_of(section.controls.begin(), section.controls.end(), [&](const auto& field) {
              return field.field == fields_[i] && field.left == total.left;
            });
        if (total.kind == ControlKind::kFunction && above) {
          column.below = data_->GrandTotal(total.field);
        }
      }
    }
    columns_.front().below = design.ownTotals.toStdString();
  }

  std::shared_ptr<const ReportData> data_;
  std::string group_;
  std::vector<ExportColumn> columns_;
  std::vector<std::string> fields_;  // after the group's column
  bool byRows_ = true;
  std::size_t count_ = 0;
  std::size_t at_ = 0;  // the group
  std::size_t inGroup_ = 0;
};

}  // namespace

std::unique_ptr<DocumentRows> BandedReport::Rows() {
  return std::make_unique<ReportRows>(design_, data_);
}

}  // namespace tevra
