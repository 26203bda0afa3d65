// Screens are tested with a real application, drawn to memory.
#include <QLocale>

#include <gtest/gtest.h>

#include "platform/forms/FormsApplication.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // As on a Romanian desktop the C library writes a decimal comma. The machine need not have the
  // locale: locale/virgula was made by localedef from the decimal and the thousands' sign alone.
  qunsetenv("LC_ALL");
  qputenv("LOCPATH", TEVRA_TESTS "/locale");
  qputenv("LC_NUMERIC", "virgula");
  tevra::FormsApplication application(argc, argv);
  QLocale::setDefault(QLocale(QLocale::Romanian, QLocale::Romania));
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
