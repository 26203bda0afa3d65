// A grouped report on paper: the bands of its design filled with the rows of its groups.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Value.h"
#include "platform/print/BandedLayout.h"
#include "platform/print/CellText.h"
#include "platform/print/PagedDocument.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The data of a report, read by position each time a page is painted. Fields are found by name
/// without case; an unknown name throws Failure 3265.
class ReportData {
 public:
  struct Rows {
    std::size_t first = 0;  ///< position of the group's first row among all rows
    std::size_t count = 0;
  };
  virtual ~ReportData() = default;
  virtual std::size_t GroupCount() const = 0;
  virtual Rows RowsOf(std::size_t group) const = 0;
  /// The key of the group, or one of its totals.
  virtual Value GroupValue(std::size_t group, const std::string& field) const = 0;
  virtual Value RowValue(std::size_t row, const std::string& field) const = 0;
  virtual Value GrandTotal(const std::string& field) const = 0;
};

/// Each step lays out one page. Only the place where a page begins is stored, so that a long report
/// needs little memory.
class BandedReport : public PagedDocument {
 public:
  /// `today`: the day printed for %d.
  BandedReport(QString title, ReportLayout design, std::shared_ptr<const ReportData> data,
               const DateTime& today, const QPageLayout& layout);

  /// A band on a page, with its texts by the names of their controls.
  struct Band {
    const ReportSection* section = nullptr;
    double top = 0;  ///< twips from the upper edge of the paper
    double height = 0;
    std::vector<std::pair<const ReportControl*, QString>> texts;
  };
  std::vector<Band> BandsOf(int page) const;
  const ReportLayout& Design() const { return design_; }

  int PageCount() const override { return static_cast<int>(starts_.size()) - (complete_ ? 0 : 1); }
  bool IsComplete() const override { return complete_; }
  void LayOutMore() override;
  void PaintPage(QPainter& painter, int page) override;
  bool HasRows() const override { return true; }
  /// The rows on paper, each with its group; when rows are hidden, the groups with their totals.
  std::unique_ptr<DocumentRows> Rows() override;

 protected:
  void Restart() override;

 private:
  enum class Stage { kReportHeader, kGroup, kRow, kGroupFooter, kReportFooter, kEnd };
  /// The next thing to print; `row` counts within the group.
  struct Place {
    Stage stage = Stage::kReportHeader;
    std::size_t group = 0;
    std::size_t row = 0;

    bool operator==(const Place&) const = default;
  };
  class Filler;

  double HeightOf(const ReportSection* section, const Place& at) const;
  double NeededBehind(const Place& at) const;
  Place Next(const Place& at) const;
  static bool GoesOn(const Place& start);
  const ReportSection* SectionAt(const Place& at) const;
  Place Fill(const Place& start, Filler& filler) const;
  QString TextOf(const ReportControl& control, const Place& at, int page) const;
  Value ValueOf(const ReportControl& control, const Place& at) const;
  const CellText& Letters(const ReportControl& control) const;
  double WidthOf(const ReportControl& control) const;
  void PaintBand(QPainter& painter, const Band& band) const;

  ReportLayout design_;
  std::shared_ptr<const ReportData> data_;
  DateTime today_;
  std::vector<Place> starts_;  // of each page, and of the next one
  bool complete_ = false;
  mutable std::map<std::pair<int, bool>, CellText> letters_;
};

}  // namespace tevra
