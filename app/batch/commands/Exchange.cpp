#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "exchange/ExportFile.h"
#include "platform/system/MessageBox.h"
#include "session/Module1.h"

namespace tevra::batch {

void ExportPeriod(Connection& company, const DateTime& from, const DateTime& to, bool again,
                  std::ostream& out) {
  ExportRequest request;
  request.from = from;
  request.to = to;
  request.again = again;
  Exported exported = GenerateXML(company, request);
  if (exported.result == Exported::Result::kBefore) {
    if (MsgBoxEx(ExportedBeforeText(request), kYesNo) != kYes) return;
    request.again = true;
    exported = GenerateXML(company, request);
  }
  TextTable table({{"Tabela"}, {"Randuri", true}});
  for (const ExchangeTable* each : kExchangeOrder) {
    const auto rows = exported.rows.find(each->element);
    if (rows != exported.rows.end()) table.AddRow({each->element, rows->second});
  }
  table.Write(out);
  out << "\nExport cu succes: " << exported.file.string() << '\n';
}

}  // namespace tevra::batch
