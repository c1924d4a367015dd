// The user's choices before the start: template, rows, journal, ports.
#pragma once

#include "fleet_session.h"

#include <QGroupBox>

#include <functional>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QSettings;

namespace mr4500x {

class FleetSetup final : public QGroupBox {
public:
  // Calls `filesChanged` for another plan or journal, `portsChanged` for other ports, `changed` for any change.
  FleetSetup(FileSystem& files, std::string settingsFile, std::function<void()> filesChanged,
             const std::function<void()>& portsChanged, const std::function<void()>& changed);

  [[nodiscard]] FleetChoice Choice() const;
  [[nodiscard]] bool HasSound() const;
  void SetRunning(bool isRunning); // then only the sound can be switched
  // Asks for the operator's name, once a day. False if the user cancels.
  [[nodiscard]] bool AskOperator();
  void FindPorts(); // again, because cables are plugged in and out
  void Load(const QSettings& settings);
  void Store(QSettings& settings) const;

private:
  void AddOptions(QGridLayout& grid);
  void AddPorts(QGridLayout& grid, const std::function<void()>& portsChanged);
  QLineEdit* AddFile(QGridLayout& grid, const char* name, const QString& label, const QString& filter);
  [[nodiscard]] QStringList CheckedPorts() const;

  FileSystem& m_files;
  std::string m_settingsFile;
  std::function<void()> m_filesChanged;
  QWidget* m_choices;
  QLabel* m_summary; // shown instead while the bench runs
  QLineEdit* m_template;
  QLineEdit* m_rows;
  QLineEdit* m_journal;
  QListWidget* m_ports;
  QCheckBox *m_quick, *m_otherBand, *m_rewritesDone, *m_sound;
  QLineEdit *m_operator, *m_onVerified;
  QString m_operatorDay; // the day on which the operator entered the name
  QStringList m_wanted;  // ports, even without a device
};

} // namespace mr4500x
