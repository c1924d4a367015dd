// The main of the test programs that show windows: one application, on the platform without a screen.
#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

// Qt reports mistakes of the program as warnings, such as a signal that does not exist: "QObject::connect: ..."
void FailOnMistakes(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
  std::fprintf(stderr, "%s\n", qPrintable(message));
  for (const char* const name : {"QAction", "QFont", "QLayout", "QObject", "QPainter", "QPixmap", "QTimer", "QWidget"})
    if (message.startsWith(QLatin1String(name) + "::")) ADD_FAILURE() << message.toStdString();
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  qInstallMessageHandler(FailOnMistakes);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
