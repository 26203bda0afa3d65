#include "app/batch/Login.h"

#include <iostream>

#include <termios.h>
#include <unistd.h>

#include "app/batch/Directory.h"
#include "app/batch/Refusal.h"
#include "platform/data/CompanyFile.h"
#include "session/DatabaseFiles.h"
#include "session/Login.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// While it lives, the terminal does not show what is typed.
class HiddenTyping {
 public:
  explicit HiddenTyping(const std::istream& in) {
    if (&in != &std::cin || tcgetattr(STDIN_FILENO, &before_) != 0) return;
    termios hidden = before_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    active_ = tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden) == 0;
  }
  ~HiddenTyping() {
    if (active_) tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;
  bool IsActive() const { return active_; }

 private:
  termios before_{};
  bool active_ = false;
};

std::string FirstLine(std::istream& in) {
  std::string line;
  std::getline(in, line);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::string AskPassword(const Streams& streams) {
  streams.err << "Parola: " << std::flush;
  const HiddenTyping hidden(streams.in);
  std::string password = FirstLine(streams.in);
  if (hidden.IsActive()) streams.err << '\n';
  return password;
}

std::string Password(const LoginRequest& request, const Streams& streams) {
  if (request.password) return *request.password;
  if (!request.passwordFile) return AskPassword(streams);
  std::ifstream file = OpenInput(*request.passwordFile);
  return FirstLine(file);
}

void RequireUser(Connection& company, const std::string& user, const std::string& password) {
  if (!ExistaUtilizator(company, user)) throw Refusal("Utilizatorul " + user + " nu exista !");
  if (!ParolaValida(company, user, password)) throw Refusal("Parola nu este corecta !");
}

// Only the window updates the structure, because it can ask first; a script must not change the
// data.
void RequireVersion(Connection& company, const std::string& database) {
  if (StructuraDiferita(company)) {
    throw Refusal("Structura bazei de date " + database + " trebuie actualizata !");
  }
}

bool IsUsable(const std::filesystem::path& file) {
  try {
    CheckCompanyFile(file);
    return !IsDamaged(file);
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace

Connection Login(const LoginRequest& request, const Streams& streams) {
  const std::filesystem::path directory = CompanyDirectory(request.directory);
  const Company company = FindCompany(directory, request.company);
  const std::string password = Password(request, streams);

  Session& session = CurrentSession();
  session.selectedDatabase = company.numeBd;
  session.connectionString = CompanyConnectionString(directory.string(), company.numeBd);
  session.databasesPath = directory.string() + '\\';
  session.companyName = company.denumire;
  session.userName = request.user;
  const auto logInto = [&](const std::string& connectionString) {
    Connection opened(connectionString);
    RequireUser(opened, request.user, password);
    if (!request.anyStructure) RequireVersion(opened, company.numeBd);
    session.userType = TipUtilizator(opened, request.user);
    // The work of any structure needs no parameters, which an older one may lack.
    if (!request.anyStructure) LoadParametri(opened);
    return opened;
  };
  try {
    return logInto(session.connectionString);
  } catch (const Failure&) {
    if (request.insteadOfDamaged.empty() ||
        IsUsable(FileIn(session.databasesPath, company.numeBd))) {
      throw;
    }
  }
  return logInto("Data Source=" + request.insteadOfDamaged.string() +
                 ";Mode=Read;PWD=" + kFilePassword);
}

}  // namespace tevra::batch
