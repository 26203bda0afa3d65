// The file of passwords of the month's end: its form, and who may read it.
#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

#include "app/batch/Refusal.h"
#include "app/batch/monthend/Credentials.h"
#include "tests/system/Folder.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {
namespace {

Credentials Read(const std::string& text) {
  std::istringstream lines(text);
  return Credentials::Read(lines, "parole");
}

std::string Refused(const std::function<void()>& call) {
  try {
    call();
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "nothing was refused";
}

TEST(Credentials, ThePasswordIsTheRestOfTheLine) {
  const Credentials credentials = Read(
      "\xEF\xBB\xBF# 09;nimeni;x\n\n 01 ;Ana Pop; cu ; si # \r\n \n02;ion;#\n"
      "a;b;c");
  const Credential* first = credentials.Find("01");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->user, "Ana Pop");
  EXPECT_EQ(first->password, " cu ; si # ");
  ASSERT_NE(credentials.Find("02"), nullptr);
  EXPECT_EQ(credentials.Find("02")->password, "#");
  ASSERT_NE(credentials.Find("A"), nullptr) << "codes have no case, and the last line no end";
  EXPECT_EQ(credentials.Find("A")->line, 6);
  EXPECT_EQ(credentials.Find("09"), nullptr);
  EXPECT_EQ(credentials.Find(""), nullptr);
}

TEST(Credentials, ABadLineIsNamedByItsNumberOnly) {
  const std::pair<std::string, const char*> cases[] = {
      {"tainic", "trebuie sa aiba forma COD;UTILIZATOR;PAROLA"},
      {"03;tainic", "trebuie sa aiba forma COD;UTILIZATOR;PAROLA"},
      {";tainic;tainic", "nu are codul societatii"},
      {" ; tainic;tainic", "nu are codul societatii"},
      {"03; ;tainic", "nu are utilizator"},
      {"03;tainic;", "nu are parola"},
      {std::string("03;tainic;tai\0nic", 17), "are caractere nepermise"},
      {"03;tai\x1Bnic;tainic", "are caractere nepermise"},
      {"02;tainic;tainic", "este a aceleiasi societati ca linia 3"}};
  for (const auto& [line, reason] : cases) {
    const std::string text = "01;a;b\n#\n02;a;b\n" + line + "\n05;a;b\n";
    EXPECT_EQ(Refused([&] { Read(text); }),
              "Fisierul cu parole \"parole\", linia 4: " + std::string(reason) + " !");
  }
}

using CredentialsFile = FolderTest;

TEST_F(CredentialsFile, IsReadOnlyWhenNobodyElseCan) {
  const fs::path file = Make("parole", "01;admin;1\n");
  for (const mode_t mode : {0600, 0400, 0700}) {
    ASSERT_EQ(chmod(file.c_str(), mode), 0);
    EXPECT_EQ(Credentials::Load(file.string()).Find("01")->password, "1") << mode;
  }
  for (const mode_t mode : {0640, 0620, 0610, 0604, 0602, 0601, 0644, 0666}) {
    ASSERT_EQ(chmod(file.c_str(), mode), 0);
    EXPECT_EQ(Refused([&] { Credentials::Load(file.string()); }),
              "Fisierul cu parole \"" + file.string() +
                  "\" poate fi citit sau scris si de altii ! Folositi: chmod 600")
        << mode;
  }
}

TEST_F(CredentialsFile, IsRefusedWhenItIsSomebodyElses) {
  std::string file = "/etc/passwd";
  if (geteuid() == 0) {
    file = Make("parole", "01;admin;1\n").string();
    ASSERT_EQ(chmod(file.c_str(), 0600), 0);
    ASSERT_EQ(chown(file.c_str(), 1, 1), 0);
  }
  EXPECT_EQ(
      Refused([&] { Credentials::Load(file); }),
      "Fisierul cu parole \"" + file + "\" nu apartine utilizatorului care ruleaza comanda !");
}

TEST_F(CredentialsFile, IsRefusedWhenItIsNoFile) {
  const fs::path pipe = folder_ / "teava";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const fs::path large = Make("mare", std::string((1 << 20) + 1, '#'));
  ASSERT_EQ(chmod(large.c_str(), 0600), 0);
  const std::pair<fs::path, const char*> cases[] = {{folder_ / "lipsa", "nu exista !"},
                                                    {large / "lipsa", "nu exista !"},
                                                    {folder_, "nu poate fi citit !"},
                                                    {pipe, "nu poate fi citit !"},
                                                    {large, "este prea mare !"}};
  for (const auto& [file, reason] : cases) {
    const std::string text = Refused([path = file] { Credentials::Load(path.string()); });
    EXPECT_NE(text.find("\"" + file.string() + "\" " + reason), std::string::npos) << text;
  }
}

}  // namespace
}  // namespace tevra::batch::test
