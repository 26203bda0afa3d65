#include "app/batch/Refusal.h"
#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "care/AutomaticBackups.h"
#include "exchange/ChangesText.h"
#include "exchange/ExchangeHeader.h"
#include "exchange/ExportFile.h"
#include "exchange/ImportFile.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Dates.h"
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

namespace {

ExchangeHeader ReadHeader(const std::string& file) {
  HeaderTexts texts;
  try {
    texts = LoadExchange(file);
  } catch (const Failure& failure) {
    throw Refusal(std::string(kNotLoaded) + "\n" + failure.Description(), failure);
  }
  ExchangeHeader header;
  try {
    header = GetXMLHeader(texts, file);
  } catch (const Failure& failure) {
    throw Refusal(ErrorText(failure), failure);
  }
  if (const std::string own = OwnFileText(header); !own.empty()) throw Refusal(own);
  return header;
}

// Backs the company up before an import while it exists.
class BackupBeforeImport {
 public:
  BackupBeforeImport() {
    SetBeforeImport([this] { file_ = BackUpBefore(SessionCompany(), kBeforeImport); });
  }
  ~BackupBeforeImport() { SetBeforeImport({}); }
  BackupBeforeImport(const BackupBeforeImport&) = delete;
  BackupBeforeImport& operator=(const BackupBeforeImport&) = delete;

  const std::filesystem::path& File() const { return file_; }

 private:
  std::filesystem::path file_;
};

Imported Work(Connection& company, const ImportRequest& request) {
  try {
    return ImportFile(company, request);
  } catch (const Failure& failure) {
    throw Refusal(ErrorText(failure, request.load.file) + "\nImportul nereusit", failure);
  }
}

void PrintChanges(const ImportChanges& changes, std::ostream& out) {
  std::vector<TextTable::Column> columns;
  for (const char* caption : kChangeCaptions) columns.push_back({caption});
  TextTable table(std::move(columns));
  for (const ChangeRow& row : ChangeRows(changes)) table.AddRow(Values(row.begin(), row.end()));
  table.Write(out);
  out << '\n' << LinesText(changes) << '\n';
  for (const std::string& warning : ImportWarnings(changes)) out << "Atentie: " << warning << '\n';
}

}  // namespace

void ImportBranch(Connection& company, const std::string& file, bool dryRun, std::ostream& out) {
  ImportRequest request;
  request.load.file = file;
  request.load.header = ReadHeader(file);
  request.load.refuse = [](const std::string& text) { throw Refusal(text); };
  request.dryRun = dryRun;
  const BackupBeforeImport backup;
  const Imported imported = Work(company, request);
  const ExchangeHeader& header = request.load.header;
  out << "Sucursala " << header.code << ", " << ShortDate(header.from) << " - "
      << ShortDate(header.to) << "\n\n";
  PrintChanges(imported.changes, out);
  if (!dryRun) out << "Salvarea dinainte: " << backup.File().string() << '\n';
  out << (dryRun ? "Nu s-a scris nimic (--dry-run).\n" : "Import cu succes\n");
}

}  // namespace tevra::batch
