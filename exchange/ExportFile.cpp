#include "exchange/ExportFile.h"

#include <fstream>

#include "exchange/PendingExport.h"
#include "platform/data/RowReader.h"
#include "platform/rowset/RowsetWriter.h"
#include "platform/rowset/XmlWriter.h"
#include "platform/system/Clock.h"
#include "platform/system/Paths.h"
#include "platform/text/Dates.h"
#include "platform/text/FailureText.h"
#include "platform/text/Invariant.h"
#include "session/CompanySettings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

constexpr const char* kDeclaration = "<?xml version='1.0' ?>";
constexpr int kRowsBetweenReports = 256;

/// A temporary file that is removed unless the export was committed.
class Temporary {
 public:
  explicit Temporary(fs::path path) : path_(std::move(path)) {}
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary() {
    std::error_code ignored;
    if (!kept_) fs::remove(path_, ignored);
  }
  const fs::path& Path() const { return path_; }
  void Keep() { kept_ = true; }

 private:
  fs::path path_;
  bool kept_ = false;
};

class Exporter {
 public:
  Exporter(Connection& company, const ExportRequest& request)
      : company_(company), request_(request), period_{request.from, request.to} {}

  Exported Run() {
    paths::MakeFolder(ExportFolder());
    SettleExport(company_);
    Transaction transaction(company_);
    if (!request_.again && WasExported()) {
      done_.result = Exported::Result::kBefore;
      return done_;
    }
    const std::string name = ExportFileName(clock::Now());
    Temporary file(TemporaryExport(name));
    paths::WriteNewFile(file.Path(), [&] { WriteFile(file.Path()); });
    Mark();
    SetText(company_, CompanyText::kPendingExport, name);
    transaction.Commit();
    file.Keep();
    SettleExport(company_);
    done_.file = ExportFolder() / name;
    done_.result = Exported::Result::kDone;
    return done_;
  }

 private:
  bool WasExported() {
    RowReader before(company_,
                     "select top 2 * from [Kv_Linii] where DataInr>=? and DataInr<=? and CodIE='E'",
                     period_);
    return before.Next();
  }

  void WriteFile(const fs::path& file) {
    std::ofstream out(file, std::ios::binary);
    if (!out) throw FileFailure(kPermissionDenied, file.string());
    try {
      WriteDocument(out);
    } catch (const Failure& failure) {
      if (failure.Number() != kDiskFull) throw;
      throw FileFailure(kDiskFull, file.string());  // adds the name, unknown to the stream
    }
    out.close();
    if (!out) throw FileFailure(kDiskFull, file.string());
  }

  // Between the elements there is no white space, so that a reader which keeps it finds the same
  // children.
  void WriteDocument(std::ostream& out) {
    XmlWriter xml(out);
    xml.Raw(kDeclaration);
    xml.StartElement(kExchangeRoot);
    WriteHeader(xml);
    xml.StartElement(kExchangeTables);
    const bool isCentre = CurrentSession().esteCentru;
    for (const ExchangeTable* table : kExchangeOrder) {
      if (table == &kLines && isCentre) continue;
      xml.StartElement(table->element);
      const bool written = request_.run("Recordset2XMLNode", table->element,
                                        [&] { Recordset2XMLNode(xml, *table); });
      if (!written) throw StepFailed();
      xml.EndElement();
    }
    xml.EndElement();
    xml.EndElement();
    xml.Flush();
  }

  void WriteHeader(XmlWriter& xml) const {
    const Session& session = CurrentSession();
    const auto write = [&xml](const char* element, const std::string& text) {
      xml.StartElement(element);
      xml.Text(text);
      xml.EndElement();
    };
    xml.StartElement(kExchangeHeader);
    write("CodCC", GetCodSocietate());
    write("DataInceput", ShortDate(request_.from));
    write("DataSfarsit", ShortDate(request_.to));
    write("TipPlanCont", std::to_string(session.tipPlanCont));
    write("EsteCentru", Value::YesNo(session.esteCentru).AsText());
    xml.EndElement();
  }

  void Recordset2XMLNode(XmlWriter& xml, const ExchangeTable& table) {
    const bool lines = &table == &kLines;
    const std::string all = std::string("select * from [") + table.table + "]";
    RowReader rows(
        company_,
        lines ? all + " where DataInr>=? and DataInr<=? AND (CODIE<>'I' OR CODIE IS NULL)" : all,
        lines ? period_ : Values());
    RowsetWriter writer(xml);
    writer.Begin(rows.Fields());
    Values values(rows.Fields().size());
    std::int64_t& count = done_.rows[table.element];
    while (rows.Next()) {
      for (std::size_t i = 0; i < values.size(); ++i) values[i] = rows.Get(static_cast<int>(i));
      writer.Row(values);
      if (++count % kRowsBetweenReports == 0 && lines) Report(count);
    }
    writer.End();
  }

  void Report(std::int64_t lines) const {
    tevra::Report(request_.progress, static_cast<int>(lines), 0);
  }

  // The lines that were written are those that are marked: both statements see one state of the
  // file, because the transaction keeps others from writing.
  void Mark() {
    const auto written = done_.rows.find(kLines.element);
    if (written == done_.rows.end()) return;
    InvariantEqual(company_.Execute("update Kv_Linii set CodIE='E' WHERE DataInr>=? and DataInr<=? "
                                    "AND (CODIE<>'I' OR CODIE IS NULL)",
                                    period_),
                   written->second, "liniile marcate nu sunt cele exportate");
  }

  Connection& company_;
  const ExportRequest& request_;
  Values period_;
  Exported done_;
};

}  // namespace

std::string ExportedBeforeText(const ExportRequest& request) {
  return "Ati mai facut export in intervalul: " + ShortDate(request.from) + " - " +
         ShortDate(request.to);
}

Exported GenerateXML(Connection& company, const ExportRequest& request) {
  Exporter exporter(company, request);
  try {
    return exporter.Run();
  } catch (const GivenUp&) {
    return {};
  } catch (const StepFailed&) {
    return {};
  }
}

}  // namespace tevra
