// Screens are tested with a real application, drawn to memory.
#include <QApplication>
#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QLocale::setDefault(QLocale(QLocale::Romanian, QLocale::Romania));
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
