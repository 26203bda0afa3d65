// The design of a grouped report: bands by name with their labels, fields, lines and totals. It is
// data, and the caller may change it before the report is painted.
#pragma once

#include <QString>
#include <Qt>
#include <string>
#include <vector>

namespace tevra {

/// Where a band is printed.
enum class BandRole {
  kPageTop,       ///< at the top of every page, above everything else
  kReportHeader,  ///< once, at the top of the first page
  kPageHeader,    ///< at the top of every page, below the report header
  kGroupHeader,   ///< before the rows of a group, and again on each page where they go on
  kDetail,
  kGroupFooter,
  kPageFooter,   ///< at the bottom of every page
  kReportFooter  ///< once, after the last group
};

enum class ControlKind {
  kLabel,     ///< the text itself
  kField,     ///< a field of the row, or of the group in its header and footer
  kFunction,  ///< the sum of a group's total over all groups
  kPage,      ///< its text, in which %p is the page, %P the number of pages, %d the day
  kLine       ///< a horizontal line, `size` points thick
};

/// Left and width are hundredths of the page's width inside the margins; top and height are points
/// from the top of the band.
struct ReportControl {
  std::string name;
  ControlKind kind = ControlKind::kLabel;
  QString text = {};
  std::string field = {};
  std::string format = {};  ///< as for Format of platform/text; empty: the value's own text
  double left = 0;
  double width = 100;
  double top = 0;
  double size = 9;  ///< font size or thickness of the line, in points
  Qt::Alignment alignment = Qt::AlignLeft;
  bool bold = false;
  int lines = 1;  ///< at most; the band grows with them
  bool visible = true;
};

struct ReportSection {
  std::string name;
  BandRole role = BandRole::kDetail;
  double height = 0;  ///< points, when each text has one line
  std::vector<ReportControl> controls = {};
  bool visible = true;
};

struct ReportLayout {
  std::string name;     ///< "DataReportCHE"
  std::string command;  ///< the grouped command that it prints
  std::string group;    ///< the field by which the groups are formed
  std::vector<ReportSection> sections;
  /// Where the grand totals are not the sums of the columns above them: the words beside them in a
  /// spreadsheet, which then has these totals below its rows and no sums.
  QString ownTotals = {};

  /// Found by name without case; screens set captions and hide bands so. Throw Failure 3265.
  ReportSection& Section(const std::string& section);
  ReportControl& Control(const std::string& section, const std::string& control);

  /// The visible band of a role; nullptr when there is none.
  const ReportSection* Shown(BandRole role) const;
};

}  // namespace tevra
