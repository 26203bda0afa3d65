#include <filesystem>

#include "app/batch/Directory.h"
#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "platform/text/Strings.h"
#include "session/Companies.h"

namespace tevra::batch {

namespace {

void CheckName(const std::string& name) {
  try {
    CompanyRegistry::CheckName(name);
  } catch (const Failure& failure) {
    throw Refusal(failure.Description() + " !");
  }
}

// In the words of the window, before anything is made.
void CheckNew(const std::string& directory, const std::string& code, const std::string& name,
              ExistingFile existing) {
  if (code.empty()) throw Refusal("Va rugam completati codul societatii  !");
  if (name.empty() && existing != ExistingFile::kTakeOver) {
    throw Refusal("Va rugam completati denumirea societatii  !");
  }
  if (!name.empty()) CheckName(name);
  if (!CompanyRegistry::IsCode(code)) {
    throw Refusal("Codul societatii are una sau doua litere sau cifre !");
  }
  if (CompanyRegistry::Exists(directory) && CompanyRegistry::Load(directory).Find(code)) {
    throw Refusal("Acest cod de societate exista deja ! Adaugarea nu se poate efectua !");
  }
  const bool stands = DatabaseStands(directory, code);
  if (stands && existing == ExistingFile::kRefuse) {
    throw Refusal("Baza de date " + DatabaseOf(code) +
                  " exista deja in director ! Adaugarea nu se poate efectua !\n--take-over o "
                  "preia asa cum este, --replace o inlocuieste si o pastreaza in Salv_Tevra.");
  }
}

const char* Done(ExistingFile existing) {
  return existing == ExistingFile::kTakeOver ? " a fost preluata din " : " a fost creata in ";
}

}  // namespace

void CreateCompany(const std::string& directory, const std::string& code, const std::string& name,
                   ExistingFile existing, std::ostream& out) {
  const std::string folder = CompanyDirectory(directory).string();
  CheckNew(folder, Trim(code), Trim(name), existing);
  const Company company = AdaugaSocietate(folder, Trim(code), Trim(name), existing);
  out << "Societatea " << company.cod << " - " << company.denumire << Done(existing)
      << company.numeBd << '\n';
}

void RebuildList(const std::string& directory, std::ostream& out) {
  const int entered = RebuildRegistry(CompanyDirectory(directory).string());
  out << "Lista societatilor: " << entered
      << (entered == 1 ? " societate adaugata\n" : " societati adaugate\n");
}

}  // namespace tevra::batch
