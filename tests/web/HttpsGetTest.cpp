// Documents from an https server, and servers that have none, stop or never end.
#include <QElapsedTimer>
#include <QSslSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include "platform/text/Failure.h"
#include "platform/web/HttpsGet.h"
#include "tests/web/HttpsServer.h"

namespace tevra::test {
namespace {

using std::chrono::milliseconds;

std::string Redirect(const std::string& where) {
  return Reply("302 Found", "", "Location: " + where + "\r\n");
}

// Writes on and on, as fast as the client reads.
void WriteForever(QSslSocket& client) {
  client.write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
  const auto more = [&client] {
    if (client.state() == QAbstractSocket::ConnectedState && client.bytesToWrite() == 0) {
      client.write(QByteArray(64 * 1024, 'x'));
    }
  };
  auto* timer = new QTimer(&client);
  QObject::connect(timer, &QTimer::timeout, &client, more);
  timer->start(1);
}

// A byte now and then: the connection is never idle for long.
void WriteSlowly(QSslSocket& client) {
  client.write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
  auto* timer = new QTimer(&client);
  QObject::connect(timer, &QTimer::timeout, &client, [&client] { client.write("x"); });
  timer->start(20);
}

class HttpsGetTest : public ::testing::Test {
 protected:
  HttpsGetTest()
      : server_([this](QSslSocket& client, const std::string& path) { Answer(client, path); }) {}

  void Answer(QSslSocket& client, const std::string& path) {
    asked_ += path + " ";
    if (path == "/endless") return WriteForever(client);
    if (path == "/slow") return WriteSlowly(client);
    if (path == "/silent") return;
    std::string reply = Reply("404 Not Found", "<html>no</html>");
    if (path == "/document") reply = Reply("200 OK", "<DataSet/>");
    if (path == "/moved") reply = Redirect(server_.Address("/document"));
    if (path == "/beside") reply = Redirect("/document");
    if (path == "/around") reply = Redirect(server_.Address("/around"));
    if (path == "/open") reply = Redirect("http://localhost/document");
    if (path == "/cut") reply = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf";
    client.write(reply.c_str(), static_cast<qint64>(reply.size()));
    client.flush();
    client.disconnectFromHost();
  }

  std::string Get(const std::string& address, const Progress& progress = {}) const {
    try {
      return HttpsGet(address, limits_, progress);
    } catch (const Failure& failure) {
      return failure.Description();
    }
  }
  /// What follows the address in the message.
  std::string Refusal(const std::string& path) const {
    const std::string start = "Adresa " + server_.Address(path) + " ";
    const std::string told = Get(server_.Address(path));
    return told.compare(0, start.size(), start) == 0 ? told.substr(start.size()) : told;
  }

  HttpsServer server_;
  HttpsLimits limits_{milliseconds(5000), 1024 * 1024};
  std::string asked_;
};

TEST_F(HttpsGetTest, ReadsADocumentAndFollowsSecureRedirects) {
  EXPECT_EQ(Get(server_.Address("/document")), "<DataSet/>");
  EXPECT_EQ(Get("  " + server_.Address("/moved") + " "), "<DataSet/>");
  EXPECT_EQ(Get(server_.Address("/beside")), "<DataSet/>");
}

TEST_F(HttpsGetTest, OnlySecureAddressesAreAsked) {
  for (const char* address :
       {"http://localhost/document", "ftp://localhost/x", "localhost/document", "https://",
        "file:///etc/passwd", "", "https://a b/"}) {
    EXPECT_EQ(Get(address), std::string("Adresa \"") + address + "\" nu are forma https://...");
  }
  EXPECT_EQ(Refusal("/open"), "trimite la o adresa care nu este https !");
  EXPECT_EQ(asked_, "/open ");
  EXPECT_EQ(Refusal("/around"), "trimite mereu la alta adresa !");
}

TEST_F(HttpsGetTest, TheCertificateIsThatOfTheHost) {
  EXPECT_NE(Get(server_.Address("/document", "127.0.0.1")).find("nu are un certificat valabil !"),
            std::string::npos);
  server_.Distrust();
  EXPECT_EQ(Refusal("/document"), "nu are un certificat valabil !");
  EXPECT_EQ(asked_, "");
}

TEST_F(HttpsGetTest, AnAnswerWithoutTheDocumentIsRefused) {
  EXPECT_EQ(Refusal("/missing"), "nu are documentul: raspunsul are codul 404 !");
  EXPECT_EQ(Refusal("/cut"), "a intrerupt legatura inainte de sfarsitul documentului !");
  EXPECT_EQ(Get("https://localhost:9/x"),
            "Adresa https://localhost:9/x este a unui server care nu raspunde !");
}

TEST_F(HttpsGetTest, ABodyThatNeverEndsIsCutOff) {
  EXPECT_EQ(Refusal("/endless"), "are un document mai mare de 1 MB !");
}

TEST_F(HttpsGetTest, TheTimeCountsForAllTogether) {
  limits_.time = milliseconds(1000);
  QElapsedTimer took;
  for (const char* path : {"/silent", "/slow"}) {
    took.start();
    EXPECT_EQ(Refusal(path), "nu a raspuns in 1 secunda !");
    EXPECT_GE(took.elapsed(), 1000);
    EXPECT_LT(took.elapsed(), 4000);
  }
}

TEST_F(HttpsGetTest, TheUserCanGiveUpWhileNothingArrives) {
  int calls = 0;
  EXPECT_THROW(Get(server_.Address("/silent"), [&](int, int) { return ++calls < 3; }), GivenUp);
  EXPECT_EQ(calls, 3);
}

}  // namespace
}  // namespace tevra::test
