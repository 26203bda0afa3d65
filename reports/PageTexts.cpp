#include "reports/PageTexts.h"

#include "platform/text/Dates.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr double kSmall = 8;   // points, as in the page footer
constexpr double kThird = 34;  // hundredths of the page for the footer's outer texts
constexpr double kNames = 70;  // for the company

ReportSection PageTop(const std::optional<DateTime>& calculated, bool english) {
  ReportControl company{"lblSocietate", ControlKind::kLabel};
  company.text = QString::fromStdString(CompanyOnPaper());
  company.width = kNames;
  company.size = kSmall;
  company.bold = true;
  ReportControl day{"lblCalcul", ControlKind::kLabel};
  if (calculated) {
    day.text = (english ? "Calculated to " : "Calculat la ") +
               QString::fromStdString(ShortDate(*calculated));
  }
  day.left = kNames;
  day.width = 100 - kNames;
  day.size = kSmall;
  day.alignment = Qt::AlignRight;
  return {"PageTop", BandRole::kPageTop, 18, {company, day}};
}

// Between the product and the page number, which both leave room for it.
void AddDayOfPrinting(ReportSection& footer, bool english) {
  ReportControl day{"lblTiparit", ControlKind::kPage};
  day.text = english ? "Printed on %d" : "Tiparit la %d";
  day.left = kThird;
  day.width = 100 - 2 * kThird;
  day.alignment = Qt::AlignHCenter;
  for (ReportControl& control : footer.controls) {
    if (control.kind == ControlKind::kLine) continue;
    const bool right = control.left > 0;
    control.left = right ? 100 - kThird : 0;
    control.width = kThird;
    day.top = control.top;
    day.size = control.size;
  }
  footer.controls.push_back(day);
}

}  // namespace

std::string CompanyOnPaper() {
  const std::string code = GetCodSocietate();
  const std::string name = Trim(CurrentSession().companyName);
  return name.empty() ? code : name + " (" + code + ")";
}

void AddPageTexts(ReportLayout& design, const std::optional<DateTime>& calculated, bool english) {
  for (ReportSection& section : design.sections) {
    if (section.role == BandRole::kPageFooter) AddDayOfPrinting(section, english);
  }
  design.sections.insert(design.sections.begin(), PageTop(calculated, english));
}

}  // namespace tevra
