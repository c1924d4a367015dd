// mr4500x-tour FOLDER: the program does the typical job by itself. Exit status 0 when the radio has been written.
#include "program.h"
#include "tour.h"

#include <QApplication>
#include <QDir>

#include <iostream>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::cerr << "usage: mr4500x-tour FOLDER\n";
    return 2;
  }
  mr4500x::Program program;
  program.Window().show();
  mr4500x::Tour tour(program.Window(), QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
  QObject::connect(
      &tour, &mr4500x::Tour::Ended, &program.Window(), [] { QApplication::quit(); }, Qt::QueuedConnection);
  tour.Start();
  QApplication::exec();
  return tour.HasSucceeded() ? 0 : 1;
}
