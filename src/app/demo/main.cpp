// mr4500x-demo FOLDER: runs the demo. Exits with 0 if the radio was written.
#include "demo.h"
#include "program.h"

#include <QApplication>
#include <QDir>

#include <iostream>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::cerr << "usage: mr4500x-demo FOLDER\n";
    return 2;
  }
  mr4500x::Program program;
  program.Window().show();
  mr4500x::Demo demo(program.Window(), QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
  QObject::connect(
      &demo, &mr4500x::Demo::Ended, &program.Window(), [] { QApplication::quit(); }, Qt::QueuedConnection);
  demo.Start();
  QApplication::exec();
  return demo.HasSucceeded() ? 0 : 1;
}
