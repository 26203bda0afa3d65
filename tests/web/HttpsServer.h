// An https server on this machine, whose certificate the tests' own process accepts.
#pragma once

#include <QSslConfiguration>
#include <QSslServer>
#include <functional>
#include <string>

class QSslSocket;

namespace tevra::test {

/// Answers each request by a function; a function that writes nothing leaves the client waiting.
/// While it lives, its certificate counts as an authority.
class HttpsServer {
 public:
  using Answer = std::function<void(QSslSocket& client, const std::string& path)>;

  explicit HttpsServer(Answer answer);
  ~HttpsServer();
  HttpsServer(const HttpsServer&) = delete;
  HttpsServer& operator=(const HttpsServer&) = delete;

  /// "https://localhost:port/path".
  std::string Address(const std::string& path, const std::string& host = "localhost") const;
  /// From now on the certificate is a stranger's.
  void Distrust();

 private:
  QSslServer server_;
  QSslConfiguration before_;
};

/// An answer with its head.
std::string Reply(const std::string& status, const std::string& body,
                  const std::string& head = "Content-Type: application/xml\r\n");

}  // namespace tevra::test
