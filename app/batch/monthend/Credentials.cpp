#include "app/batch/monthend/Credentials.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/batch/Refusal.h"
#include "platform/system/Paths.h"
#include "platform/text/Strings.h"

namespace tevra::batch {

namespace {

constexpr off_t kMostBytes = 1 << 20;
constexpr mode_t kOthers = S_IRWXG | S_IRWXO;

class Descriptor {
 public:
  // A pipe would otherwise wait for its writer.
  explicit Descriptor(const std::filesystem::path& path)
      : number_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  int Number() const { return number_; }

 private:
  int number_;
};

// Asked of the open file, so that nobody can put another one in its place in between.
void RequirePrivate(int file, const std::string& name) {
  struct stat status {};
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
    throw Refusal("Fisierul \"" + name + "\" nu poate fi citit !");
  }
  if (status.st_uid != geteuid()) {
    throw Refusal("Fisierul cu parole \"" + name +
                  "\" nu apartine utilizatorului care ruleaza comanda !");
  }
  if ((status.st_mode & kOthers) != 0) {
    throw Refusal("Fisierul cu parole \"" + name +
                  "\" poate fi citit sau scris si de altii ! Folositi: chmod 600");
  }
  if (status.st_size > kMostBytes) {
    throw Refusal("Fisierul cu parole \"" + name + "\" este prea mare !");
  }
}

std::string ReadAll(int file, const std::string& name) {
  std::string text;
  char part[4096];
  for (;;) {
    const ssize_t count = read(file, part, sizeof part);
    if (count < 0) throw Refusal("Fisierul \"" + name + "\" nu poate fi citit !");
    if (count == 0) return text;
    text.append(part, static_cast<std::size_t>(count));
  }
}

bool HasControlCharacters(const std::string& text) {
  return std::any_of(text.begin(), text.end(),
                     [](unsigned char c) { return std::iscntrl(c) != 0 && c != '\t'; });
}

// What is wrong with a line; empty for a good one.
std::string Fault(const std::string& line, Credential& read) {
  const std::size_t first = line.find(';');
  const std::size_t second = first == line.npos ? line.npos : line.find(';', first + 1);
  if (second == line.npos) return "trebuie sa aiba forma COD;UTILIZATOR;PAROLA";
  if (HasControlCharacters(line)) return "are caractere nepermise";
  read.company = Trim(line.substr(0, first));
  read.user = line.substr(first + 1, second - first - 1);
  read.password = line.substr(second + 1);
  if (read.company.empty()) return "nu are codul societatii";
  if (Trim(read.user).empty()) return "nu are utilizator";
  if (read.password.empty()) return "nu are parola";
  return {};
}

}  // namespace

Credentials Credentials::Load(const std::string& written) {
  const std::filesystem::path path = paths::Resolve(written);
  const Descriptor file(path);
  if (file.Number() < 0) {
    throw Refusal("Fisierul \"" + written + "\" nu " +
                  (errno == ENOENT || errno == ENOTDIR ? "exista !" : "poate fi citit !"));
  }
  RequirePrivate(file.Number(), written);
  std::istringstream lines(ReadAll(file.Number(), written));
  return Read(lines, written);
}

Credentials Credentials::Read(std::istream& lines, const std::string& file) {
  Credentials credentials;
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    // Editors of other systems write a mark before the text and a "\r" behind each line.
    if (number == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (Trim(line).empty() || line.front() == '#') continue;
    Credential read{{}, {}, {}, number};
    std::string fault = Fault(line, read);
    if (const Credential* same = fault.empty() ? credentials.Find(read.company) : nullptr) {
      fault = "este a aceleiasi societati ca linia " + std::to_string(same->line);
    }
    if (!fault.empty()) {
      throw Refusal("Fisierul cu parole \"" + file + "\", linia " + std::to_string(number) + ": " +
                    fault + " !");
    }
    credentials.all_.push_back(read);
  }
  return credentials;
}

const Credential* Credentials::Find(const std::string& company) const {
  const auto found = std::find_if(all_.begin(), all_.end(), [&](const Credential& credential) {
    return EqualNoCase(credential.company, company);
  });
  return found == all_.end() ? nullptr : &*found;
}

}  // namespace tevra::batch
