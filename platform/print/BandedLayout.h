// The design of a grouped report: bands by name with their labels, fields, lines and totals. Data
// that a report paints by; who shows a report may change it before.
#pragma once

#include <QString>
#include <Qt>
#include <string>
#include <vector>

namespace tevra {

/// Where a band stands.
enum class BandRole {
  kReportHeader,  ///< once, at the top of the first page
  kPageHeader,    ///< at the top of every page, below the report header
  kGroupHeader,
  kDetail,
  kGroupFooter,
  kPageFooter,   ///< at the bottom of every page
  kReportFooter  ///< once, behind the last group
};

enum class ControlKind {
  kLabel,     ///< its text as it stands
  kField,     ///< a field of the row, or of the group in its header and footer
  kFunction,  ///< the sum of a group's total over all groups
  kPage,      ///< its text, in which %p is the page, %P the number of pages, %d the day
  kLine       ///< across, as thick as `size` points
};

/// Left and width are hundredths of what the margins leave of the page, top and height are points
/// from the top of the band.
struct ReportControl {
  std::string name;
  ControlKind kind = ControlKind::kLabel;
  QString text = {};
  std::string field = {};
  std::string format = {};  ///< as for Format of platform/text; empty: as the value reads
  double left = 0;
  double width = 100;
  double top = 0;
  double size = 9;  ///< of the letters, or of the line; points
  Qt::Alignment alignment = Qt::AlignLeft;
  bool bold = false;
  int lines = 1;  ///< the most it may take; its band grows with it
  bool visible = true;
};

struct ReportSection {
  std::string name;
  BandRole role = BandRole::kDetail;
  double height = 0;  ///< points, when every text has one line
  std::vector<ReportControl> controls = {};
  bool visible = true;
};

struct ReportLayout {
  std::string name;     ///< "DataReportCHE"
  std::string command;  ///< the grouped command that it prints
  std::string group;    ///< the field that the groups go by
  std::vector<ReportSection> sections;

  /// By name without case, as screens set captions and hide bands. Throw Failure 3265.
  ReportSection& Section(const std::string& section);
  ReportControl& Control(const std::string& section, const std::string& control);

  /// The band of a role; nothing where the report has none on show.
  const ReportSection* Shown(BandRole role) const;
};

}  // namespace tevra
