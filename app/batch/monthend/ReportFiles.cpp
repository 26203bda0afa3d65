#include "app/batch/monthend/ReportFiles.h"

#include <cctype>
#include <utility>

#include "platform/text/Dates.h"

namespace tevra::batch {

namespace {

constexpr std::pair<Grouping, const char*> kGroupings[] = {{Grouping::Account, "conturi"},
                                                           {Grouping::Class, "clasificari"},
                                                           {Grouping::Location, "localizari"},
                                                           {Grouping::Centre, "centre"}};

}  // namespace

std::vector<ReportFile> ReportFilesOf(const Company& company, const DateTime& day) {
  std::string code = company.cod;
  for (char& c : code) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  }
  std::vector<ReportFile> files;
  for (const auto& [grouping, word] : kGroupings) {
    files.push_back(
        {grouping, "Cheltuieli_" + code + "_" + Format(day, "yyyy-mm") + "_" + word + ".pdf"});
  }
  return files;
}

}  // namespace tevra::batch
