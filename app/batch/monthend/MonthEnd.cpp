#include "app/batch/monthend/MonthEnd.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "accounting/ChargePostings.h"
#include "app/batch/Login.h"
#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "app/batch/monthend/ReportFiles.h"
#include "care/Backup.h"
#include "care/BackupName.h"
#include "care/FileHealth.h"
#include "engine/Module3.h"
#include "exchange/PendingExport.h"
#include "platform/system/Clock.h"
#include "platform/system/Log.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra::batch {

namespace {

constexpr double kHalfBan = 0.005;

std::string Notes(int count, double lei) {
  return std::to_string(count) + (count == 1 ? " nota, " : " note, ") + Format(lei, "Standard") +
         " lei";
}

class Month {
 public:
  Month(const MonthEndRequest& request, CompanyMonth& result)
      : request_(request), result_(result) {}

  /// The step that is running.
  MonthStep step = MonthStep::kLogin;

  void Run(const Company& company, const Credential* credential, const Streams& streams) {
    if (!credential)
      throw Refusal("Societatea nu are utilizator si parola in fisierul cu parole !");
    Connection open = Login(
        {request_.directory, company.cod, credential->user, {}, false, {}, credential->password},
        streams);
    RequireMaintenance();
    if (!request_.dryRun) SettleExportAtOpening();
    step = MonthStep::kCheck;
    if (request_.post) Check(open);
    step = MonthStep::kBackup;
    BackUpFile();
    step = MonthStep::kCalculation;
    MonthSums month = CalculateAndPost(open);
    result_.month = std::move(month);
    step = MonthStep::kReports;
    WriteReports(company);
  }

 private:
  void Remark(std::string text) { result_.remarks.push_back(std::move(text)); }

  // Before anything is written.
  void Check(Connection& open) {
    posted_ = ChargesOfMonth(open, request_.day);
    if (Skips()) return;
    use_ = OthersUnderMonth(open, request_.day);
    if (use_.others.empty()) return;
    if (!request_.loseOthers) {
      throw Refusal(OthersText(use_) + "Scrierea notelor lunii le-ar sterge; cu --yes se sterg.");
    }
    Remark(OthersText(use_) + "Scrierea notelor lunii le sterge (--yes).");
  }

  // The notes of a month that is posted stay.
  bool Skips() const { return posted_.notes > 0 && !request_.again; }

  void BackUpFile() {
    const CompanyFile file = SessionCompany();
    fs::path folder = request_.backupFolder;
    if (request_.dryRun) {
      if (folder.empty()) folder = BackupFolder();
      result_.backup = folder / BackupName(file.name, file.database, clock::Now());
      return;
    }
    result_.backup = BackUp(file, folder.empty() ? MakeBackupFolder() : folder);
  }

  MonthSums CalculateAndPost(Connection& open) {
    Transaction transaction(open);
    const auto last = MonthOfCharges(open);
    MonthSums month;
    month.assets = RunMonth(open, request_.day);
    const ChargesList charges(open, ChargesBy::Account);
    month.sums = charges.Totals();
    if (last && last->last > request_.day) {
      Remark("Imobilizarile erau calculate la " + ShortDate(last->last) +
             ", dupa data ceruta; calculul le aduce inapoi.");
    }
    const long others = AssetsOfOtherMonths(open, request_.day.Month(), request_.day.Year());
    if (others > 0) Remark(OtherMonthsText(others));
    step = MonthStep::kPostings;
    if (request_.post) Post(open, month);
    if (!request_.dryRun) transaction.Commit();
    return month;
  }

  void Post(Connection& open, MonthSums& month) {
    // Read again: another program may have posted the month since the check.
    posted_ = ChargesOfMonth(open, request_.day);
    if (Skips()) {
      month.postings = Postings::kAlready;
      month.document = ChargeDocument(open, request_.day);
      month.notes = posted_.notes;
      month.posted = posted_.lei;
      Remark("Luna este contata deja (" + Notes(posted_.notes, posted_.lei) +
             "); notele ei se scriu din nou numai cu --again.");
    } else {
      if (posted_.notes > 0) {
        Remark("Notele de pana acum ale lunii (" + Notes(posted_.notes, posted_.lei) +
               ") sunt inlocuite (--again).");
      }
      const ChargesPosted posted = PostCharges(open, request_.day, use_);
      month.postings = Postings::kWritten;
      month.document = posted.document;
      month.notes = posted.notes;
      month.posted = posted.lei;
    }
    if (std::abs(month.posted - month.sums.charge) >= kHalfBan) {
      Remark("Notele contabile au " + Format(month.posted, "Standard") +
             " lei, cheltuielile calculate " + Format(month.sums.charge, "Standard") + " lei.");
    }
  }

  void WriteReports(const Company& company) {
    if (request_.pdfFolder.empty()) return;
    for (const ReportFile& report : ReportFilesOf(company, request_.day)) {
      const fs::path file = request_.pdfFolder / report.name;
      if (!request_.dryRun) request_.writePdf(report.grouping, request_.day, file);
      result_.reports.push_back(file);
    }
  }

  const MonthEndRequest& request_;
  CompanyMonth& result_;
  NotesOfYear posted_;
  MonthUse use_;
};

void Fail(CompanyMonth& result, MonthStep step, const std::string& reason) {
  result.failedAt = step;
  result.reason = reason;
}

void RunAndCatch(Month& month, CompanyMonth& result, const Company& company,
                 const Credential* credential, const Streams& streams) {
  static const std::string kCommand = "month-end";
  try {
    month.Run(company, credential, streams);
  } catch (const Refusal& refusal) {
    std::vector<const std::string*> typed;
    if (credential) typed = {&credential->user, &credential->password};
    LogRefusal(refusal, typed, kCommand);
    Fail(result, month.step, refusal.what());
  } catch (const Failure& failure) {
    log::NoteFailure(failure, kCommand);
    Fail(result, month.step, ReasonText(failure) + SoundBackupHint(failure));
  } catch (const std::exception& error) {
    log::NoteFailure({kInternalError, error.what()}, kCommand);
    Fail(result, month.step, std::string("Eroare neasteptata - ") + error.what());
  }
}

}  // namespace

std::size_t MonthEndResult::Failed() const {
  return static_cast<std::size_t>(
      std::count_if(companies.begin(), companies.end(),
                    [](const CompanyMonth& company) { return company.failedAt.has_value(); }));
}

CompanyMonth EndMonth(const MonthEndRequest& request, const Company& company,
                      const Credential* credential, const Streams& streams) {
  const auto start = std::chrono::steady_clock::now();
  CurrentSession() = {};
  CompanyMonth result;
  result.code = company.cod;
  result.name = company.denumire;
  Month month(request, result);
  RunAndCatch(month, result, company, credential, streams);
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  result.seconds = elapsed.count();
  return result;
}

}  // namespace tevra::batch
