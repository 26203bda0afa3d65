#include "register/frmPlanAmo.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QSplitter>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "session/Lists.h"
#include "session/Session.h"

namespace tevra {

namespace {

// Values of a plan are rounded to whole units.
constexpr const char* kWhole = "#,##0";

std::vector<GridColumn> PlanColumns() {
  std::vector<GridColumn> columns{{"An", "AN"},
                                  {"Valoare de amortizat LEI", "VALAMO"},
                                  {"Amortizarea anuala LEI", "AMO_AN"},
                                  {"Valoare amortizata cumulata LEI", "VALAMOCUM"},
                                  {"Valoare ramasa de amortizat LEI", "VALRAMASA"},
                                  {"Valoare de amortizat in USD", "VALAMO_VAL"},
                                  {"Amortizarea anuala USD", "AMO_AN_VAL"},
                                  {"Valoare amortizata cumulata USD", "VALAMOCUM_VAL"},
                                  {"Valoare ramasa de amortizat USD", "VALRAMASA_VAL"}};
  for (GridColumn& column : columns) {
    if (column.field == "AN") continue;
    column.format = kWhole;
    column.width = 12;
  }
  return columns;
}

}  // namespace

frmPlanAmo::frmPlanAmo(QWidget* parent) : Form("frmPlanAmo", "Plan de Amortizare", parent) {
  Build();
  OnClickShort(cmdListare, "cmdListare_Click", [this](Procedure&) { cmdListare_Click(); });
  OnClickShort(cmdClose, "cmdClose_Click", [this](Procedure&) { close(); });
  for (OptionButton* option : {optLei, optVal}) {
    connect(option, &OptionButton::Click, this, [this] { ShowChart(); });
  }
  RunShort("Form_Load", [this](Procedure&) {
    datPrimaryRS->SetConnectionString(CurrentSession().connectionString);
    datPrimaryRS->SetRecordSource("select * from I_PLANAMO");
    ShowPlan();
  });
}

frmPlanAmo::~frmPlanAmo() {
  datPrimaryRS->Close();
}

// Another user may have made a plan in the meantime.
void frmPlanAmo::Form_Activate() {
  ShowPlan();
}

void frmPlanAmo::Build() {
  datPrimaryRS = new Adodc("datPrimaryRS", this);
  TDBGrid1 = new DataGrid("TDBGrid1", this);
  TDBGrid1->SetColumns(PlanColumns());
  TDBGrid1->SetDataSource(datPrimaryRS);
  TDBGrid1->SetRowSelect(true);
  TDBGrid1->SetTools(GridKey("frmPlanAmo.TDBGrid1"), windowTitle());
  picGrafic = new PlanChart("picGrafic", this);
  cmdListare = MakeButton("cmdListare", "Listare", "Listare plan de amortizare", this);
  cmdClose = MakeButton("cmdClose", "Iesire", "Inchidere fereastra", this);
  cmdClose->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdClose);

  auto* parts = new QSplitter(Qt::Vertical, this);
  parts->addWidget(TDBGrid1);
  parts->addWidget(picGrafic);
  parts->setStretchFactor(0, 3);
  parts->setStretchFactor(1, 2);
  parts->setChildrenCollapsible(false);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(new QLabel("Graficul in:", this));
  buttons->addWidget(optLei = new OptionButton("optLei", "&LEI", this));
  buttons->addWidget(optVal = new OptionButton("optVal", "&USD", this));
  optLei->setChecked(true);
  buttons->addStretch();
  buttons->addWidget(cmdListare);
  buttons->addWidget(cmdClose);
  auto* all = new QVBoxLayout(this);
  all->addLayout(BuildHead());
  all->addWidget(parts, 1);
  all->addLayout(buttons);
  GiveFocus(TDBGrid1);
  resize(1000, 560);
}

QLayout* frmPlanAmo::BuildHead() {
  Frame1 = new QGroupBox(this);
  Frame1->setObjectName("Frame1");
  const auto label = [this](const char* name, const char* caption, bool strong) {
    auto* made = new QLabel(caption, Frame1);
    made->setObjectName(name);
    QFont font = made->font();
    font.setBold(strong);
    made->setFont(font);
    return made;
  };
  Label1 = label("Label1", "ID", false);
  Label2 = label("Label2", "", true);
  Label3 = label("Label3", "Denumire", false);
  Label4 = label("Label4", "", true);
  Label4->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* row = new QHBoxLayout(Frame1);
  for (QLabel* each : {Label1, Label2, Label3, Label4}) {
    row->addWidget(each);
    if (each == Label2) row->addSpacing(24);
  }
  row->addStretch();
  auto* head = new QHBoxLayout;
  head->addWidget(Frame1);
  return head;
}

void frmPlanAmo::ShowPlan() {
  datPrimaryRS->Refresh();
  const bool any = datPrimaryRS->HasRow();
  const Recordset& rows = datPrimaryRS->Recordset();
  const auto text = [&](const char* field) {
    return any ? QString::fromStdString(rows.Get(field).TextOrEmpty()) : QString();
  };
  Label2->setText(text("ID"));
  Label4->setText(text("DENUMIRE"));
  ShowChart();
}

// A plan without values in currency has no chart in currency.
void frmPlanAmo::ShowChart() {
  const bool currency = optVal->isChecked();
  const Recordset& rows = datPrimaryRS->Recordset();
  const std::size_t year = rows.FieldIndex("AN");
  const std::size_t depreciation = rows.FieldIndex(currency ? "AMO_AN_VAL" : "AMO_AN");
  const std::size_t remaining = rows.FieldIndex(currency ? "VALRAMASA_VAL" : "VALRAMASA");
  std::vector<PlanPoint> points;
  for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
    const Value taken = rows.ValueAt(row, depreciation);
    const Value left = rows.ValueAt(row, remaining);
    if (taken.IsNull() || left.IsNull()) continue;
    points.push_back({rows.ValueAt(row, year).AsLong(), taken.AsDouble(), left.AsDouble()});
  }
  picGrafic->SetPoints(std::move(points), currency ? "USD" : "LEI");
  TDBGrid1->SetPrintInfo(PrintInfo());
}

GridPrintInfo frmPlanAmo::PrintInfo() const {
  constexpr double kHigh = 200;  // points
  constexpr double kText = 7;
  GridPrintInfo info;
  info.header = "PLAN DE AMORTIZARE";
  info.footer = "Editat de Kelnar Tevra       \tPagina: \\p";
  info.above =
      Label1->text() + ": " + Label2->text() + "    " + Label3->text() + ": " + Label4->text();
  if (picGrafic->Points().empty()) return info;
  info.appendixHeight = kHigh;
  info.appendix = [points = picGrafic->Points(), currency = picGrafic->Currency(),
                   font = QFont(picGrafic->font())](QPainter& painter, const QRectF& area) {
    QFont small = font;
    small.setPixelSize(qRound(area.height() / kHigh * kText));
    PaintPlanChart(painter, area, points, currency, small);
  };
  return info;
}

void frmPlanAmo::cmdListare_Click() {
  PreviewGrid(TDBGrid1->Content(), TDBGrid1->PrintInfo(), windowTitle());
}

}  // namespace tevra
