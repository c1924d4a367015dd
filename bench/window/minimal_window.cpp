// A window with nothing but a table of 17 rows and 15 columns, for comparison.
#include <QApplication>
#include <QMainWindow>
#include <QTableWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  auto* const table = new QTableWidget(17, 15);
  for (int row = 0; row < table->rowCount(); ++row)
    for (int column = 0; column < table->columnCount(); ++column)
      table->setItem(row, column, new QTableWidgetItem(QStringLiteral("440.00000")));
  window.setCentralWidget(table);
  window.resize(1180, 680);
  window.show();
  return QApplication::exec();
}
