// The main of the test programs that show windows: one application, on the platform without a screen.
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
