// tevra-pictures SOURCES TARGET: draws the program's pictures from their SVG sources.
//
// Buttons' pictures become bitmaps with transparency, with an "@2x" variant for screens of double
// density; icons become files of several sizes; the splash becomes a PNG with its "@2x" variant.
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include "session/Version.h"

namespace {

constexpr int kButton = 16;
constexpr QSize kSplash(440, 240);
constexpr int kIconSizes[] = {16, 32, 48, 64, 96, 128};

QImage Draw(const QString& source, QSize size) {
  QSvgRenderer renderer(source);
  if (!renderer.isValid()) throw std::runtime_error("not drawn: " + source.toStdString());
  QImage image(size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

void Write(const QString& file, const QByteArray& bytes) {
  QFile out(file);
  if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) {
    throw std::runtime_error("not written: " + file.toStdString());
  }
}

template <class Number>
void Append(QByteArray& bytes, Number value) {
  const Number little = qToLittleEndian(value);
  bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

// Writes the header with the masks of the transparency; without it readers treat the picture as
// opaque.
QByteArray Bitmap(const QImage& image) {
  constexpr quint32 kFileHeader = 14;
  constexpr quint32 kInfoHeader = 108;
  constexpr quint32 kBitFields = 3;
  const auto pixels = static_cast<quint32>(image.sizeInBytes());
  QByteArray bytes("BM");
  Append<quint32>(bytes, kFileHeader + kInfoHeader + pixels);
  Append<quint32>(bytes, 0);
  Append<quint32>(bytes, kFileHeader + kInfoHeader);
  Append<quint32>(bytes, kInfoHeader);
  Append<qint32>(bytes, image.width());
  Append<qint32>(bytes, image.height());
  Append<quint16>(bytes, 1);
  Append<quint16>(bytes, 32);
  Append<quint32>(bytes, kBitFields);
  Append<quint32>(bytes, pixels);
  for (int i = 0; i < 4; ++i) Append<quint32>(bytes, 0);
  for (const quint32 mask : {0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U}) {
    Append<quint32>(bytes, mask);
  }
  bytes.append("BGRs");
  bytes.append(QByteArray(48, '\0'));
  for (int y = image.height() - 1; y >= 0; --y) {
    bytes.append(reinterpret_cast<const char*>(image.constScanLine(y)), image.bytesPerLine());
  }
  return bytes;
}

QByteArray Png(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  constexpr int kUncompressed = 100;  // read at every start
  image.save(&buffer, "PNG", kUncompressed);
  return bytes;
}

// The texts of the splash are part of its picture, so that the first window of the program does not
// wait for fonts.
QImage WithWords(QImage image, int density) {
  image.setDevicePixelRatio(density);
  QPainter painter(&image);
  QFont font("DejaVu Sans");
  font.setPixelSize(44);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(QRect(32, 66, 230, 56), Qt::AlignLeft | Qt::AlignVCenter, "Tevra");
  font.setPixelSize(14);
  font.setBold(false);
  painter.setFont(font);
  painter.setPen(QColor("#dbe7f3"));
  painter.drawText(QRect(34, 126, 230, 44), Qt::AlignLeft | Qt::AlignTop,
                   "Evidenta imobilizarilor\nsi a obiectelor de inventar");
  const QString version = QString("Versiune %1.%2.%3")
                              .arg(tevra::kVersionMajor)
                              .arg(tevra::kVersionMinor)
                              .arg(tevra::kRevision);
  painter.drawText(QRect({}, kSplash).adjusted(0, 0, -16, -12), Qt::AlignRight | Qt::AlignBottom,
                   version);
  return image;
}

QByteArray Icon(const QString& source) {
  std::vector<QByteArray> images;
  for (const int size : kIconSizes) images.push_back(Png(Draw(source, {size, size})));
  QByteArray bytes;
  Append<quint16>(bytes, 0);
  Append<quint16>(bytes, 1);
  Append<quint16>(bytes, static_cast<quint16>(images.size()));
  auto offset = static_cast<quint32>(6 + 16 * images.size());
  for (std::size_t i = 0; i < images.size(); ++i) {
    const auto size = static_cast<quint8>(kIconSizes[i]);
    for (const quint8 byte : {size, size, quint8{0}, quint8{0}}) Append<quint8>(bytes, byte);
    Append<quint16>(bytes, 1);
    Append<quint16>(bytes, 32);
    Append<quint32>(bytes, static_cast<quint32>(images[i].size()));
    Append<quint32>(bytes, offset);
    offset += static_cast<quint32>(images[i].size());
  }
  for (const QByteArray& image : images) bytes.append(image);
  return bytes;
}

void DrawAll(const QString& sources, const QString& target) {
  QDir().mkpath(target);
  for (const char* name : {"OK", "Iesire", "Sus", "Jos", "Prima", "Inapoi", "Inainte", "Ultima",
                           "Micsorare", "Marire", "Tiparire", "SalvarePDF", "Pagina", "Cautare",
                           "ListaPagini", "FoaieCalcul", "CSV", "Inchide"}) {
    const QString source = sources + "/" + name + ".svg";
    Write(target + "/" + name + ".bmp", Bitmap(Draw(source, {kButton, kButton})));
    Write(target + "/" + name + "@2x.bmp", Bitmap(Draw(source, {2 * kButton, 2 * kButton})));
  }
  for (const char* name : {"W95MBX01", "W95MBX02", "W95MBX03", "W95MBX04", "Tevra"}) {
    Write(target + "/" + name + ".ico", Icon(sources + "/" + name + ".svg"));
  }
  const QString splash = sources + "/Splash.svg";
  Write(target + "/Splash@2x.png", Png(WithWords(Draw(splash, 2 * kSplash), 2)));
  Write(target + "/Splash.png", Png(WithWords(Draw(splash, kSplash), 1)));
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 3) return 2;
  try {
    DrawAll(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tevra-pictures: %s\n", error.what());
    return 1;
  }
  return 0;
}
