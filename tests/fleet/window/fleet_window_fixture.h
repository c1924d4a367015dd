// A fleet's window with its plan, and simulated radios as processes at its ports.
#pragma once

#include "data_file.h"
#include "files_fixture.h"
#include "frm_fleet.h"

#include <QProcess>

#include <memory>
#include <string>
#include <vector>

namespace mr4500x {

class FleetFixture : public FilesTest {
protected:
  FleetFixture() {
    qputenv("XDG_STATE_HOME", Path("state").c_str());
    RadioImage image;
    ResetToDefaults(image, {});
    EXPECT_TRUE(SaveDataFile(files, Path("taxi.K4X"), image));
    Put("rows.csv", "label,radio\nCar 1,LR-1\nCar 2,LR-2\nCar 3,\n");
  }
  ~FleetFixture() override {
    window.reset();
    for (const auto& radio : radios) {
      radio->terminate();
      radio->waitForFinished();
    }
  }
  // At the next COM port.
  void AddRadio(const QStringList& options) {
    QProcess& radio = *radios.emplace_back(std::make_unique<QProcess>());
    radio.start(LR7200_SIMULATOR, QStringList{"--number", QString("LR-%1").arg(radios.size())} + options);
    while (!radio.canReadLine() && radio.waitForReadyRead()) {
    }
    pins += "COM" + std::to_string(radios.size()) + "=" + radio.readLine().toStdString();
    PutPortDevices("ports.ini", pins);
  }
  void ShowWindow() {
    window = std::make_unique<FrmFleet>(files, Path("ports.ini"), QString::fromStdString(Path("own.ini")));
    window->show();
  }

  std::vector<std::unique_ptr<QProcess>> radios;
  std::string pins;
  std::unique_ptr<FrmFleet> window;
};

} // namespace mr4500x
