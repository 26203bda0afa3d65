// The families of the purchases of a period: assets and inventory objects.
#include "reports/LayoutFamilies.h"

namespace tevra {

namespace {

constexpr const char* kWhole = "#.##0";
constexpr double kSmall = 9;   // points, of rows
constexpr double kHair = 0.4;  // points, of lines
constexpr double kFirm = 0.9;

// Hundredths of the page.
constexpr double kCode = 16;
constexpr double kName = 48;
constexpr double kDate = 14;
constexpr double kValue = 22;
constexpr double kBeforeValue = kCode + kName + kDate;

using Kind = ControlKind;

ReportControl Line(const char* name, double top, double thickness) {
  return {name, Kind::kLine, {}, {}, {}, 0, 100, top, thickness};
}

ReportControl Bold(ReportControl control) {
  control.bold = true;
  return control;
}

// Four lines are enough for the longest name or code.
ReportControl Growing(ReportControl control) {
  control.lines = 4;
  return control;
}

ReportSection ReportHeader(const ListWords& words) {
  const auto label = [](const char* name, const QString& text, double left, double width,
                        Qt::Alignment side) {
    return ReportControl{name, Kind::kLabel, text, {}, {}, left, width, 28, 11, side};
  };
  ReportControl day{"Label9", Kind::kPage, "%d", {}, {}, 80, 20, 4, 9, Qt::AlignRight};
  return {"Section4",
          BandRole::kReportHeader,
          58,
          {Bold({"Label1", Kind::kLabel, words.title, {}, {}, 0, 80, 0, 15}), day,
           label("Label7", words.from, 0, 18, Qt::AlignLeft),
           label("lblData1", "", 18, 15, Qt::AlignLeft),
           label("Label8", words.to, 33, 7, Qt::AlignLeft),
           label("lblData2", "", 40, 15, Qt::AlignLeft),
           Bold(label("lblValuta", "LEI", 70, 30, Qt::AlignRight))}};
}

ReportSection PageHeader(const ListWords& words) {
  const auto title = [](const char* name, const char* text, double left, double width,
                        Qt::Alignment side) {
    return Bold({name, Kind::kLabel, text, {}, {}, left, width, 4, kSmall, side});
  };
  const bool english = words.english;
  return {"Section2",
          BandRole::kPageHeader,
          22,
          {Line("Line1", 0, kFirm),
           title("Label2", english ? "No" : "Nr. Inv.", 0, kCode, Qt::AlignLeft),
           title("Label3", english ? "Article" : "Denumire", kCode, kName, Qt::AlignLeft),
           title("Label4", english ? "Date" : "Data", kCode + kName, kDate, Qt::AlignHCenter),
           title("Label5", words.value, kBeforeValue, kValue, Qt::AlignRight),
           Line("Line4", 19, kFirm)}};
}

ReportSection GroupHeader(const ListWords& words) {
  const bool labelled = *words.groupLabel != '\0';
  const double label = labelled ? 14 : 0;
  ReportSection section{"Section6", BandRole::kGroupHeader, 25};
  if (labelled) {
    section.controls.push_back({"Label6", Kind::kLabel, words.groupLabel, {}, {}, 0, label, 8, 10});
  }
  section.controls.push_back(
      Growing(Bold({"Text1", Kind::kField, {}, words.group, {}, label, 100 - label, 8, 10})));
  section.controls.push_back(Line("Line5", 23, kHair));
  return section;
}

ReportSection Detail() {
  constexpr double kTop = 1.5;
  return {"Section1",
          BandRole::kDetail,
          14,
          {Growing({"Text2", Kind::kField, {}, "COD", {}, 0, kCode, kTop, kSmall}),
           Growing({"Text3", Kind::kField, {}, "DENUMIRE", {}, kCode, kName, kTop, kSmall}),
           {"Text4",
            Kind::kField,
            {},
            "DATA_ACH",
            {},
            kCode + kName,
            kDate,
            kTop,
            kSmall,
            Qt::AlignHCenter},
           {"txtValoare",
            Kind::kField,
            {},
            "VAL_CUMP",
            kWhole,
            kBeforeValue,
            kValue,
            kTop,
            kSmall,
            Qt::AlignRight}}};
}

ReportSection GroupFooter(const ListWords& words) {
  constexpr double kLabel = 14;
  return {
      "Section7",
      BandRole::kGroupFooter,
      25,
      {Line("Line2", 2, kHair),
       Bold({"Label11", Kind::kLabel, "TOTAL", {}, {}, 0, kLabel, 5, kSmall}),
       Growing(Bold(
           {"Text6", Kind::kField, {}, words.group, {}, kLabel, kBeforeValue - kLabel, 5, kSmall})),
       Bold({"Text7",
             Kind::kField,
             {},
             words.total,
             kWhole,
             kBeforeValue,
             kValue,
             5,
             kSmall,
             Qt::AlignRight}),
       Line("Line3", 19.5, kHair)}};
}

ReportSection PageFooter() {
  return {"Section3",
          BandRole::kPageFooter,
          20,
          {Line("Line6", 6, kHair),
           {"Label10", Kind::kLabel, "Editat de Kelnar Tevra", {}, {}, 0, 60, 9, 8},
           {"Label12", Kind::kPage, "Pagina %p / %P", {}, {}, 60, 40, 9, 8, Qt::AlignRight}}};
}

ReportSection ReportFooter(const ListWords& words) {
  return {"Section5",
          BandRole::kReportFooter,
          26,
          {Bold({"Label13", Kind::kLabel, words.grandTotal, {}, {}, 0, kBeforeValue, 6, kSmall}),
           Bold({"Function1",
                 Kind::kFunction,
                 {},
                 words.total,
                 kWhole,
                 kBeforeValue,
                 kValue,
                 6,
                 kSmall,
                 Qt::AlignRight})}};
}

// A family's report in lei and the same report in currency.
ListWords Purchases(const char* name, const char* command, const char* group, const char* label) {
  return {name,  command,   group,  label,           "ACHIZITII", "realizate de la ",
          "la ", "Valoare", "TVAL", "TOTAL GENERAL", false};
}

ListWords InCurrency(const char* name, const char* command, const char* group, const char* label,
                     const char* value) {
  return {name,  command, group,           label, "ORIGINAL COSTS", "between", "and",
          value, "TVAL",  "GENERAL TOTAL", true};
}

ListWords Inventory(const char* name, const char* command, const char* group, const char* label,
                    const char* total) {
  return {name,
          command,
          group,
          label,
          "CHELTUIELI CU OBIECTE DE INVENTAR",
          "realizate de la ",
          "la ",
          "Valoare",
          total,
          "TOTAL GENERAL",
          false};
}

}  // namespace

std::vector<ListWords> PurchasesFamily() {
  ListWords centre = InCurrency("DataReport_STA_ACH_CC_VAL", "Achizitii_CC_Val_Grouping", "COD_CC",
                                "CODE", "Original cost");
  // This design has some Romanian texts.
  centre.title = "ACHIZITII";
  centre.from = "realizate de la ";
  centre.to = "la ";
  return {Purchases("DataReport_STA_ACH", "Achizitii_Grouping", "CONT", "CONT"),
          InCurrency("DataReport_STA_ACH_VAL", "Achizitii_Val_Grouping", "CONT", "Account",
                     "Original Cost"),
          Purchases("DataReport_STA_ACH_GR", "Achizitii_GR_Grouping", "COD_GR", "COD"),
          InCurrency("DataReport_STA_ACH_GR_VAL", "Achizitii_GR_Val_Grouping", "COD_GR", "CODE",
                     "Original cost"),
          Purchases("DataReport_STA_ACH_LOC", "Achizitii_Loc_Grouping", "COD_LOC", "Localizare"),
          InCurrency("DataReport_STA_ACH_LOC_VAL", "Achizitii_Loc_Val_Grouping", "COD_LOC",
                     "Location", "Original Cost"),
          Purchases("DataReport_STA_ACH_CC", "Achizitii_CC_Grouping", "COD_CC", "COD"),
          centre};
}

std::vector<ListWords> InventoryFamily() {
  return {
      Inventory("DataReport_ObvInv_CONT", "CH_INV_CONT_Grouping", "cont", "CONT", "tvalcump"),
      Inventory("DataReport_ObInv", "CH_INV_PERS_Grouping", "pers", "", "tvalcump"),
      Inventory("DataReport_ObInv_LOC", "CH_INV_LOC_Grouping", "titlu", "Localizare", "TVALCUMP"),
      Inventory("DataReport_ObInv_CC", "CH_INV_CC_Grouping", "titlu", "Centru", "tvalcump")};
}

ReportLayout ListLayout(const ListWords& words) {
  return {words.name,
          words.command,
          words.group,
          {ReportHeader(words), PageHeader(words), GroupHeader(words), Detail(), GroupFooter(words),
           PageFooter(), ReportFooter(words)}};
}

}  // namespace tevra
