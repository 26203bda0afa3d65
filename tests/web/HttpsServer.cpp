#include "tests/web/HttpsServer.h"

#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <memory>
#include <stdexcept>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

namespace tevra::test {

namespace {

constexpr long kDay = 24L * 60 * 60;

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

template <class Write>
QByteArray Pem(Write write) {
  const std::unique_ptr<BIO, decltype(&BIO_free)> bio(BIO_new(BIO_s_mem()), &BIO_free);
  write(bio.get());
  char* text = nullptr;
  const long size = BIO_get_mem_data(bio.get(), &text);
  return {text, static_cast<qsizetype>(size)};
}

// Signed by itself, for localhost alone.
Certificate MakeCertificate(EVP_PKEY* key) {
  Certificate made(X509_new(), &X509_free);
  X509_set_version(made.get(), 2);
  ASN1_INTEGER_set(X509_get_serialNumber(made.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(made.get()), -kDay);
  X509_gmtime_adj(X509_getm_notAfter(made.get()), kDay);
  X509_set_pubkey(made.get(), key);
  X509_NAME* name = X509_get_subject_name(made.get());
  const std::string host = "localhost";
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
                             reinterpret_cast<const unsigned char*>(host.c_str()), -1, -1, 0);
  X509_set_issuer_name(made.get(), name);
  X509_EXTENSION* names =
      X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "DNS:localhost");
  X509_add_ext(made.get(), names, -1);
  X509_EXTENSION_free(names);
  if (X509_sign(made.get(), key, EVP_sha256()) == 0) throw std::runtime_error("X509_sign");
  return made;
}

void Serve(QSslServer& server, const HttpsServer::Answer& answer) {
  while (QTcpSocket* next = server.nextPendingConnection()) {
    auto* client = qobject_cast<QSslSocket*>(next);
    QObject::connect(client, &QSslSocket::disconnected, client, &QObject::deleteLater);
    QObject::connect(client, &QSslSocket::readyRead, client, [client, answer] {
      const QByteArray request = client->readAll();
      const QList<QByteArray> words = request.left(request.indexOf("\r\n")).split(' ');
      if (words.size() == 3) answer(*client, words[1].toStdString());
    });
  }
}

}  // namespace

HttpsServer::HttpsServer(Answer answer) : before_(QSslConfiguration::defaultConfiguration()) {
  const Key key(EVP_EC_gen("P-256"), &EVP_PKEY_free);
  const Certificate certificate = MakeCertificate(key.get());
  const QByteArray keyText = Pem([&](BIO* bio) {
    PEM_write_bio_PrivateKey(bio, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
  });
  const QByteArray text = Pem([&](BIO* bio) { PEM_write_bio_X509(bio, certificate.get()); });
  const QSslCertificate shown(text, QSsl::Pem);
  QSslConfiguration own = before_;
  own.setLocalCertificate(shown);
  own.setPrivateKey(QSslKey(keyText, QSsl::Ec, QSsl::Pem));
  server_.setSslConfiguration(own);
  QObject::connect(&server_, &QTcpServer::pendingConnectionAvailable,
                   [this, answer] { Serve(server_, answer); });
  if (!server_.listen(QHostAddress::Any)) throw std::runtime_error("listen");
  QSslConfiguration trusting = before_;
  trusting.addCaCertificate(shown);
  QSslConfiguration::setDefaultConfiguration(trusting);
}

HttpsServer::~HttpsServer() {
  Distrust();
}

void HttpsServer::Distrust() {
  QSslConfiguration::setDefaultConfiguration(before_);
}

std::string HttpsServer::Address(const std::string& path, const std::string& host) const {
  return "https://" + host + ":" + std::to_string(server_.serverPort()) + path;
}

std::string Reply(const std::string& status, const std::string& body, const std::string& head) {
  return "HTTP/1.1 " + status + "\r\n" + head + "Content-Length: " + std::to_string(body.size()) +
         "\r\nConnection: close\r\n\r\n" + body;
}

}  // namespace tevra::test
