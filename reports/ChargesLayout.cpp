// The family of the monthly charges. All its reports use the same band names, so that the screen
// finds the bands whatever the grouping is.
#include "reports/LayoutFamilies.h"

namespace tevra {

namespace {

constexpr const char* kWhole = "###,###";
constexpr const char* kEdited = "Editat de Kelnar Tevra";
constexpr double kSmall = 8.5;  // points, of rows
constexpr double kHair = 0.4;   // points, of lines
constexpr double kFirm = 0.9;
constexpr int kMostLines = 4;  // of the longest name or code in its column

using Kind = ControlKind;

struct Column {
  const char* romanian;
  const char* english;
  const char* field;
  const char* total;  ///< nullptr for a column without a total
  double width;       ///< hundredths of the page
};

std::vector<Column> ColumnsOf(const ChargesWords& words) {
  const double amount = words.named ? 13 : 18;
  std::vector<Column> columns{
      {"Nr.Crt.", "No", "NRCRT", nullptr, words.named ? 6.0 : 8.0},
      {"Numar de inventar", "Code", "COD", nullptr, words.named ? 12.0 : 18.5}};
  if (words.named) columns.push_back({"Denumire", "Article", "DENUMIRE", nullptr, 28.5});
  columns.push_back({"Amortizare lunara", "Rate/Month", "VAL_AMOR", "TVALL", amount});
  columns.push_back(
      {"Amortizare cumulata", "Depreciation cumulated", "VAL_AMOR_CUMULATA", "TVALAMOR", amount});
  columns.push_back({"Valoare ramasa", "Carrying Value", "VAL_RAMASA", "TVALRAMASAA", amount});
  columns.push_back({"Valoare de amortizat", "Aquisition Value", words.value, "TVALCUMPP", amount});
  return columns;
}

// The left edge of a column, with a gap between a right-aligned number and the text after it.
double LeftOf(const std::vector<Column>& columns, std::size_t column) {
  constexpr double kGap = 1.5;
  double left = column > 0 ? kGap : 0;
  for (std::size_t i = 0; i < column; ++i) left += columns[i].width;
  return left;
}

Qt::Alignment SideOf(const Column& column) {
  const bool number = column.total || std::string(column.field) == "NRCRT";
  return number ? Qt::AlignRight : Qt::AlignLeft;
}

ReportControl Line(const char* name, double top, double thickness) {
  return {name, Kind::kLine, {}, {}, {}, 0, 100, top, thickness};
}

ReportSection ReportHeader(const ChargesWords& words) {
  const QString title = words.english ? "Fixed Assets" : "Cheltuieli cu amortizarea";
  const auto centred = Qt::AlignHCenter;
  return {"ReportHeader",
          BandRole::kReportHeader,
          58,
          {{"Label1", Kind::kLabel, title, {}, {}, 0, 100, 0, 16, centred, true},
           {"lblLuna", Kind::kLabel, "Septembrie", {}, {}, 20, 29, 26, 11, Qt::AlignRight},
           {"lblAn", Kind::kLabel, "", {}, {}, 50, 20, 26, 11},
           {"lblValuta", Kind::kLabel, "LEI", {}, {}, 70, 30, 28, 10, Qt::AlignRight, true}}};
}

ReportSection PageHeader(const std::vector<Column>& columns, bool english) {
  ReportSection section{"PageHeader", BandRole::kPageHeader, 20, {Line("Line2", 0, kFirm)}};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    ReportControl title{"Label" + std::to_string(i + 2), Kind::kLabel};
    title.text = english ? column.english : column.romanian;
    title.left = LeftOf(columns, i);
    title.width = column.width;
    title.top = 4;
    title.size = kSmall;
    title.alignment = SideOf(column);
    title.bold = true;
    title.lines = 2;
    section.controls.push_back(title);
  }
  section.controls.push_back(Line("Line3", 18, kFirm));
  return section;
}

ReportSection GroupHeader(const ChargesWords& words) {
  ReportControl key{"Text1", Kind::kField, {}, words.group, {}, 14, 86, 8, 10};
  key.bold = true;
  key.lines = kMostLines;
  return {"CH_Cont_Grouping_Header",
          BandRole::kGroupHeader,
          24,
          {{"Label9", Kind::kLabel, words.groupLabel, {}, {}, 0, 14, 8, 10},
           key,
           Line("Line5", 22.5, kHair)}};
}

ReportSection Detail(const std::vector<Column>& columns) {
  ReportSection section{"CH_Cont_Detail", BandRole::kDetail, 13};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    ReportControl field{"Text" + std::to_string(i + 2), Kind::kField, {}, column.field};
    field.format = column.total ? kWhole : std::string(column.field) == "NRCRT" ? "0" : "";
    field.left = LeftOf(columns, i);
    field.width = column.width;
    field.top = 1.5;
    field.size = kSmall;
    field.alignment = SideOf(column);
    field.lines = kMostLines;
    section.controls.push_back(field);
  }
  return section;
}

// The totals of a band below their columns; `first`: the number in the first control's name.
void AddTotals(ReportSection& section, const std::vector<Column>& columns, Kind kind,
               const char* prefix, int first, double top) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!columns[i].total) continue;
    ReportControl total{prefix + std::to_string(first++), kind, {}, columns[i].total, kWhole};
    total.left = LeftOf(columns, i);
    total.width = columns[i].width;
    total.top = top;
    total.size = kSmall;
    total.alignment = Qt::AlignRight;
    total.bold = true;
    section.controls.push_back(total);
  }
}

double LabelsWidth(const std::vector<Column>& columns) {
  double width = 0;
  for (const Column& column : columns) width += column.total ? 0 : column.width;
  return width;
}

ReportSection GroupFooter(const ChargesWords& words, const std::vector<Column>& columns) {
  constexpr double kLabel = 12;
  ReportControl key{"Text9", Kind::kField, {}, words.group, {}, kLabel, 0, 5, kSmall};
  key.width = LabelsWidth(columns) - kLabel;
  key.bold = true;
  key.lines = kMostLines;
  ReportSection section{
      "CH_Cont_Grouping_Footer",
      BandRole::kGroupFooter,
      24,
      {Line("Line1", 2, kHair),
       {"Label11", Kind::kLabel, words.total, {}, {}, 0, kLabel, 5, kSmall, Qt::AlignLeft, true},
       key}};
  AddTotals(section, columns, Kind::kField, "Text", 10, 5);
  section.controls.push_back(Line("Line4", 19, kHair));
  return section;
}

ReportSection PageFooter(const ChargesWords& words) {
  const QString page = QString(words.page) + " %p / %P";
  return {"PageFooter",
          BandRole::kPageFooter,
          20,
          {Line("Line7", 6, kHair),
           {"Label10", Kind::kLabel, words.product, {}, {}, 0, 60, 9, 8},
           {"Label12", Kind::kPage, page, {}, {}, 60, 40, 9, 8, Qt::AlignRight}}};
}

ReportSection ReportFooter(const ChargesWords& words, const std::vector<Column>& columns) {
  ReportSection section{"ReportFooter", BandRole::kReportFooter, 26, {Line("Line6", 4, kFirm)}};
  ReportControl label{"Label13", Kind::kLabel, words.grandTotal};
  label.width = LabelsWidth(columns);
  label.top = 8;
  label.size = kSmall;
  label.bold = true;
  section.controls.push_back(label);
  AddTotals(section, columns, Kind::kFunction, "Function", 1, 8);
  return section;
}

}  // namespace

std::vector<ChargesWords> ChargesFamily() {
  return {
      {"DataReportCHE", "CH_Cont_Grouping", "CONT", "Cont", "VAL_CUMP", "Total cont",
       "Total general", kEdited, "Pagina", false, false},
      {"DataReportCHEVAL", "CH_CONT_VAL_Grouping", "CONT", "Account", "VAL_CUMPV", "Total account",
       "General Total", "Edited by  Kelnar Tevra", "Page", false, true},
      {"DataReportCHE_GR", "CH_GR_Grouping", "COD_GR", "Cod", "VAL_CUMP", "Total cod ",
       "Total general", kEdited, "Pagina", true, false},
      {"DataReportCHE_GR_VAL", "CH_GR_VAL_Grouping", "COD_GR", "Code", "VAL_CUMP_VAL", "Total cod ",
       "General total", kEdited, "Pagina", true, true},
      {"DataReportCHE_LOC", "CH_LOC_Grouping", "COD_LOC", "Localizare", "VAL_CUMP", "Total ",
       "Total general", kEdited, "Pagina", true, false},
      {"DataReportCHE_LOC_VAL", "CH_LOC_VAL_Grouping", "COD_LOC", "Location", "VAL_CUMP_VAL",
       "Total", "General total", "Edited by Kelnar Tevra", "Pagina", true, true},
      {"DataReportCHE_CC", "CH_CC_Grouping", "COD_CC", "Cod", "VAL_CUMP", "Total cod ",
       "Total general", kEdited, "Pagina", true, false},
      {"DataReportCHE_CC_VAL", "CH_CC_VAL_Grouping", "COD_CC", "Code", "VAL_CUMP_VAL", "Total code",
       "General total", kEdited, "Pagina", true, true},
  };
}

ReportLayout ChargesLayout(const ChargesWords& words) {
  const std::vector<Column> columns = ColumnsOf(words);
  return {
      words.name,
      words.command,
      words.group,
      {ReportHeader(words), PageHeader(columns, words.english), GroupHeader(words), Detail(columns),
       GroupFooter(words, columns), PageFooter(words), ReportFooter(words, columns)}};
}

}  // namespace tevra
