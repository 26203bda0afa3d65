#include "app/batch/monthend/MonthEnd.h"

#include "app/batch/Directory.h"
#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "app/batch/monthend/MonthEndOutput.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra::batch {

namespace {

// The folder must exist, because a medium that is not mounted must not get a folder in its place.
fs::path Folder(const std::string& written) {
  if (written.empty()) return {};
  if (!paths::FolderExists(written)) throw Refusal("Directorul \"" + written + "\" nu exista !");
  const fs::path folder = fs::absolute(paths::Resolve(written)).lexically_normal();
  if (paths::IsReadOnly(folder)) {
    throw Refusal("In directorul \"" + written + "\" nu se poate scrie !");
  }
  return folder;
}

MonthEndRequest RequestOf(const Job& job) {
  const CommandLine& line = job.line;
  MonthEndRequest request;
  request.directory = line.directory;
  request.day = MonthEndDay(line.monthEnd.date);
  request.post = line.post;
  request.again = line.again;
  request.loseOthers = line.yes;
  request.dryRun = line.dryRun;
  request.pdfFolder = Folder(line.monthEnd.pdfFolder);
  request.backupFolder = Folder(line.monthEnd.backupFolder);
  if (job.reports) request.writePdf = job.reports->charges;
  return request;
}

// A code that the directory does not have is a company too: it fails at its login.
std::vector<Company> ChosenCompanies(const CommandLine& line) {
  const std::vector<Company> all = CompaniesIn(CompanyDirectory(line.directory));
  if (line.monthEnd.all) return all;
  std::vector<Company> chosen;
  for (const std::string& code : line.monthEnd.codes) {
    Company company{code, {}, {}};
    for (const Company& found : all) {
      if (EqualNoCase(found.cod, code)) company = found;
    }
    chosen.push_back(company);
  }
  return chosen;
}

}  // namespace

void EndMonths(const Job& job) {
  const CommandLine& line = job.line;
  const MonthEndRequest request = RequestOf(job);
  const Credentials credentials = Credentials::Load(line.monthEnd.credentials);
  const std::vector<Company> companies = ChosenCompanies(line);
  if (companies.empty()) {
    throw Refusal("In directorul \"" + line.directory + "\" nu este nici o societate !");
  }
  MonthEndResult run{request.day, request.dryRun, request.post, {}};
  if (!line.monthEnd.json) WriteMonthEndTitle(run, companies.size(), job.out);
  for (const Company& company : companies) {
    run.companies.push_back(EndMonth(request, company, credentials.Find(company.cod), job.streams));
    if (!line.monthEnd.json) WriteCompanyMonth(run.companies.back(), run.dryRun, job.out);
  }
  CurrentSession() = {};
  line.monthEnd.json ? WriteMonthEndJson(run, job.out) : WriteMonthEndSum(run, job.out);
  const std::size_t failed = run.Failed();
  if (failed == 0) return;
  job.out.flush();
  throw Refusal("Sfarsitul de luna nu s-a efectuat in " + std::to_string(failed) +
                (failed == 1 ? " societate !" : " societati !"));
}

}  // namespace tevra::batch
