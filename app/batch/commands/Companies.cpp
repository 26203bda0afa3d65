#include "app/batch/Directory.h"
#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"

namespace tevra::batch {

void ListCompanies(const std::string& directory, std::ostream& out) {
  TextTable table({{"Cod"}, {"Denumire"}, {"Baza de date"}});
  for (const Company& company : CompaniesIn(CompanyDirectory(directory))) {
    table.AddRow({company.cod, company.denumire, company.numeBd});
  }
  table.Write(out);
}

}  // namespace tevra::batch
