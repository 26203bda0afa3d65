// The least that a program with a window can take to start: an empty one.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle("Fereastra goala");
  window.resize(560, 440);
  window.show();
  return QApplication::exec();
}
