#include "platform/web/HttpsGet.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>
#include <memory>

#include "platform/text/Failure.h"

namespace tevra {

namespace {

constexpr int kMostRedirects = 5;
constexpr int kBetween = 50;  // ms between two looks at the clock
constexpr int kStatusOk = 200;
constexpr qint64 kReadAtOnce = 256 * 1024;

QUrl UrlOf(const std::string& address) {
  const QUrl url(QString::fromStdString(address).trimmed(), QUrl::StrictMode);
  if (!url.isValid() || url.scheme() != "https" || url.host().isEmpty()) {
    throw Failure(kInvalidArgument, "Adresa \"" + address + "\" nu are forma https://...");
  }
  return url;
}

// Unpacked documents could be far larger than what arrives.
QNetworkRequest RequestOf(const QUrl& url) {
  QSslConfiguration security = QSslConfiguration::defaultConfiguration();
  security.setProtocol(QSsl::TlsV1_2OrLater);
  security.setPeerVerifyMode(QSslSocket::VerifyPeer);
  QNetworkRequest request(url);
  request.setSslConfiguration(security);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(kMostRedirects);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setRawHeader("Accept-Encoding", "identity");
  request.setRawHeader("User-Agent", "Tevra");
  return request;
}

const char* WhyOf(QNetworkReply::NetworkError error) {
  switch (error) {
    case QNetworkReply::HostNotFoundError:
      return "nu are un server cunoscut";
    case QNetworkReply::ConnectionRefusedError:
      return "este a unui server care nu raspunde";
    case QNetworkReply::RemoteHostClosedError:
      return "a intrerupt legatura inainte de sfarsitul documentului";
    case QNetworkReply::TooManyRedirectsError:
      return "trimite mereu la alta adresa";
    default:
      return "nu poate fi citita";
  }
}

class Download {
 public:
  Download(const std::string& address, const HttpsLimits& limits)
      : url_(UrlOf(address)), limits_(limits) {
    reply_.reset(manager_.get(RequestOf(url_)));
    reply_->setReadBufferSize(kReadAtOnce);
    since_.start();
    tick_.start(kBetween);
    QObject::connect(reply_.get(), &QNetworkReply::readyRead, [this] { Take(); });
  }

  std::string Run(const Progress& progress) {
    while (!reply_->isFinished() && !TooLarge()) {
      QEventLoop().processEvents(QEventLoop::ExcludeUserInputEvents |
                                 QEventLoop::WaitForMoreEvents);
      if (since_.elapsed() >= limits_.time.count()) Refuse("nu a raspuns in " + Seconds());
      Report(progress, static_cast<int>(document_.size()), 0);
    }
    RequireDocument();
    return std::move(document_);
  }

 private:
  bool TooLarge() const { return document_.size() > limits_.bytes; }
  void Take() {
    if (!TooLarge()) document_ += reply_->readAll().toStdString();
  }
  std::string Seconds() const {
    const long long seconds = limits_.time.count() / 1000;
    return std::to_string(seconds) + (seconds == 1 ? " secunda" : " secunde");
  }

  [[noreturn]] void Refuse(const std::string& why) const {
    throw Failure(kDeviceError, "Adresa " + url_.toString().toStdString() + " " + why + " !");
  }

  void RequireDocument() {
    if (reply_->error() == QNetworkReply::InsecureRedirectError) {
      Refuse("trimite la o adresa care nu este https");
    }
    if (reply_->error() == QNetworkReply::SslHandshakeFailedError) {
      Refuse("nu are un certificat valabil");
    }
    if (reply_->error() == QNetworkReply::TooManyRedirectsError) Refuse(WhyOf(reply_->error()));
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != 0 && status != kStatusOk) {
      Refuse("nu are documentul: raspunsul are codul " + std::to_string(status));
    }
    if (reply_->error() != QNetworkReply::NoError) {
      Refuse(WhyOf(reply_->error()));
    }
    Take();
    if (TooLarge()) {
      constexpr std::size_t kMib = 1024 * 1024;
      Refuse("are un document mai mare de " + std::to_string(limits_.bytes / kMib) + " MB");
    }
  }

  QUrl url_;
  HttpsLimits limits_;
  std::string document_;
  QElapsedTimer since_;
  QTimer tick_;  // wakes the loop
  QNetworkAccessManager manager_;
  std::unique_ptr<QNetworkReply> reply_;
};

}  // namespace

void RequireHttps(const std::string& address) {
  UrlOf(address);
}

std::string HttpsGet(const std::string& address, const HttpsLimits& limits,
                     const Progress& progress) {
  return Download(address, limits).Run(progress);
}

}  // namespace tevra
