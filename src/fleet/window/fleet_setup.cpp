#include "fleet_setup.h"

#include "port_devices.h"
#include "settings.h"
#include "shown_text.h"

#include <QCheckBox>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QStandardPaths>

namespace mr4500x {

FleetSetup::FleetSetup(FileSystem& files, std::string settingsFile, std::function<void()> filesChanged,
                       const std::function<void()>& portsChanged, const std::function<void()>& changed)
    : QGroupBox(tr("Plan")), m_files(files), m_settingsFile(std::move(settingsFile)),
      m_filesChanged(std::move(filesChanged)), m_choices(new QWidget), m_summary(new QLabel), m_ports(new QListWidget),
      m_quick(new QCheckBox(tr("&Quick"))), m_otherBand(new QCheckBox(tr("Accept other &bands"))),
      m_rewritesDone(new QCheckBox(tr("Re&write changed radios"))), m_sound(new QCheckBox(tr("So&und"))),
      m_operator(new QLineEdit), m_onVerified(new QLineEdit) {
  auto* const all = new QHBoxLayout(this);
  all->setContentsMargins(4, 0, 4, 4);
  all->addWidget(m_choices, 1);
  all->addWidget(m_summary, 1);
  m_summary->setTextFormat(Qt::PlainText);
  m_summary->setWordWrap(true);
  m_summary->hide();
  auto* const grid = new QGridLayout(m_choices);
  grid->setContentsMargins(4, 4, 4, 4);
  m_template = AddFile(*grid, "txtTemplate", tr("&Template:"), tr("Data files (*.K4X *.k4x *.K4Y *.k4y)"));
  m_rows = AddFile(*grid, "txtRows", tr("&Rows:"), tr("Lists (*.csv)"));
  m_rows->setPlaceholderText(tr("none: every radio gets the template"));
  m_journal = AddFile(*grid, "txtJournal", tr("&Journal:"), tr("Journals (*.journal)"));
  m_journal->setPlaceholderText(tr("a file beside the template"));
  AddOptions(*grid);
  AddPorts(*grid, [portsChanged, changed] {
    portsChanged();
    changed();
  });
  grid->setColumnStretch(1, 3);
  grid->setColumnStretch(4, 2);
  m_sound->setObjectName(QStringLiteral("chkSound"));
  m_sound->setToolTip(tr("One beep when a radio is done, three when one has failed"));
  all->addWidget(m_sound, 0, Qt::AlignBottom);
  for (const QLineEdit* const edit : {m_template, m_rows, m_journal, m_operator, m_onVerified})
    connect(edit, &QLineEdit::textChanged, this, changed);
  for (const QCheckBox* const option : {m_quick, m_sound})
    connect(option, &QCheckBox::toggled, this, changed);
}

void FleetSetup::AddOptions(QGridLayout& grid) {
  auto* const options = new QHBoxLayout;
  options->addWidget(m_quick);
  options->addWidget(m_otherBand);
  m_rewritesDone->setToolTip(tr("Rewrites radios that are done but have changed since; otherwise they are set aside"));
  m_quick->setObjectName(QStringLiteral("chkQuick"));
  options->addStretch();
  auto* const who = new QLabel(tr("Op&erator:"));
  who->setBuddy(m_operator);
  m_operator->setObjectName(QStringLiteral("txtOperator"));
  connect(m_operator, &QLineEdit::textEdited, [this] { m_operatorDay = QDate::currentDate().toString(Qt::ISODate); });
  grid.addLayout(options, 3, 1);
  grid.addWidget(m_rewritesDone, 3, 2, 1, 2); // all in one line would be too wide for small screens
  auto* const commandLabel = new QLabel(tr("Co&mmand:"));
  commandLabel->setBuddy(m_onVerified);
  m_onVerified->setObjectName(QStringLiteral("txtOnVerified"));
  m_onVerified->setPlaceholderText(tr("for each verified radio, such as a label: none"));
  m_onVerified->setToolTip(tr("Runs for each verified radio, with its journal entry as JSON on standard input"));
  grid.addWidget(commandLabel, 4, 0);
  auto* const commandLine = new QHBoxLayout;
  commandLine->addWidget(m_onVerified, 2);
  commandLine->addWidget(who);
  commandLine->addWidget(m_operator, 1);
  grid.addLayout(commandLine, 4, 1);
}

void FleetSetup::AddPorts(QGridLayout& grid, const std::function<void()>& portsChanged) {
  auto* const portLabel = new QLabel(tr("&Ports:"));
  portLabel->setBuddy(m_ports);
  grid.addWidget(portLabel, 0, 3, Qt::AlignTop);
  auto* const allPorts = new QPushButton(tr("&All"));
  allPorts->setObjectName(QStringLiteral("cmdAllPorts"));
  allPorts->setToolTip(tr("Ticks all ports, or none if all are ticked"));
  allPorts->setMaximumWidth(allPorts->fontMetrics().horizontalAdvance(QStringLiteral("MMMMM")));
  grid.addWidget(allPorts, 1, 3, Qt::AlignTop);
  connect(allPorts, &QPushButton::clicked, [this, portsChanged] {
    const Qt::CheckState state = CheckedPorts().size() < m_ports->count() ? Qt::Checked : Qt::Unchecked;
    {
      const QSignalBlocker quiet(m_ports);
      for (int i = 0; i < m_ports->count(); ++i)
        m_ports->item(i)->setCheckState(state);
    }
    m_wanted = CheckedPorts();
    portsChanged();
  });
  grid.addWidget(m_ports, 0, 4, 5, 1);
  m_ports->setObjectName(QStringLiteral("lstPorts"));
  m_ports->setAccessibleName(tr("Ports"));
  m_ports->setMinimumHeight(m_template->sizeHint().height() * 3);
  m_ports->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
  connect(m_ports, &QListWidget::itemChanged, [this, portsChanged] {
    m_wanted = CheckedPorts();
    portsChanged();
  });
}

QLineEdit* FleetSetup::AddFile(QGridLayout& grid, const char* name, const QString& label, const QString& filter) {
  auto* const edit = new QLineEdit;
  edit->setObjectName(QLatin1String(name));
  auto* const caption = new QLabel(label);
  caption->setBuddy(edit);
  auto* const browse = new QPushButton(QStringLiteral("…"));
  browse->setMaximumWidth(browse->fontMetrics().horizontalAdvance(QStringLiteral("MMMM"))); // for small screens
  const QString title = tr("Choose %1").arg(QString(label).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
  browse->setAccessibleName(title);
  const int row = grid.rowCount();
  const int at = edit->objectName() == QLatin1String("txtTemplate") ? 0 : row;
  grid.addWidget(caption, at, 0);
  grid.addWidget(edit, at, 1);
  grid.addWidget(browse, at, 2);
  connect(edit, &QLineEdit::textChanged, [this] { m_filesChanged(); });
  connect(browse, &QPushButton::clicked, [this, edit, title, filter] {
    QString start = edit->text();
    if (start.isEmpty() && !m_template->text().isEmpty()) start = QFileInfo(m_template->text()).path();
    if (start.isEmpty()) start = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const auto ask = edit == m_journal ? QFileDialog::getSaveFileName : QFileDialog::getOpenFileName;
    QFileDialog::Options options = QFileDialog::HideNameFilterDetails;
    if (edit == m_journal) options |= QFileDialog::DontConfirmOverwrite; // it may also be one that exists
    const QString chosen = ask(this, title, start, filter, nullptr, options);
    activateWindow(); // after a native dialog, the keyboard may be in no window
    if (!chosen.isEmpty()) edit->setText(QDir::toNativeSeparators(chosen));
  });
  return edit;
}

QStringList FleetSetup::CheckedPorts() const {
  QStringList checked;
  for (int i = 0; i < m_ports->count(); ++i)
    if (m_ports->item(i)->checkState() == Qt::Checked) checked.append(m_ports->item(i)->data(Qt::UserRole).toString());
  return checked;
}

FleetChoice FleetSetup::Choice() const {
  FleetChoice choice;
  choice.templateFile = m_template->text().toStdString();
  choice.rowsFile = m_rows->text().toStdString();
  choice.journal = m_journal->text().toStdString();
  choice.isQuick = m_quick->isChecked();
  choice.acceptsOtherBand = m_otherBand->isChecked();
  choice.rewritesDone = m_rewritesDone->isChecked();
  choice.operatorName = m_operator->text().trimmed().toStdString();
  choice.onVerified = m_onVerified->text().trimmed().toStdString();
  for (const QString& port : CheckedPorts())
    choice.ports.push_back(*ParsePortAddress(port.toStdString()));
  return choice;
}

bool FleetSetup::AskOperator() {
  const QString today = QDate::currentDate().toString(Qt::ISODate);
  QString name = m_operator->text().trimmed();
  for (bool isNewDay = m_operatorDay != today; isNewDay || name.isEmpty(); isNewDay = false) {
    bool isGiven = false;
    name = QInputDialog::getText(this, tr("Operator"), tr("Who is at the bench today? The journal keeps the name."),
                                 QLineEdit::Normal, name, &isGiven)
               .trimmed();
    if (!isGiven) return false;
  }
  m_operator->setText(name);
  m_operatorDay = today;
  return true;
}

bool FleetSetup::HasSound() const {
  return m_sound->isChecked();
}

void FleetSetup::SetRunning(bool isRunning) {
  QStringList names;
  for (const QLineEdit* const edit : {m_template, m_rows, m_journal})
    if (!edit->text().isEmpty()) names.append(QFileInfo(edit->text()).fileName());
  for (const QCheckBox* const option : {m_quick, m_otherBand, m_rewritesDone})
    if (option->isChecked()) names.append(option->text().remove(QLatin1Char('&')));
  m_summary->setText(Breakable(names.join(QStringLiteral(", "))));
  m_choices->setEnabled(!isRunning);
  (isRunning ? m_choices : m_summary)->hide(); // first, or the window would become wide enough for both
  (isRunning ? m_summary : m_choices)->show();
}

void FleetSetup::FindPorts() {
  const QSignalBlocker quiet(m_ports);
  const int current = m_ports->currentRow();
  m_ports->clear();
  const auto pins = PortDevices(m_files, m_settingsFile);
  const std::vector<std::string> devices = MachineSerialDevices();
  for (const PortAddress& port : PortsWithDevice(m_files, m_settingsFile)) {
    const QString name = QString::fromStdString(DisplayName(port));
    const QString device = QString::fromStdString(DeviceOfPort(port.number, pins, devices).path);
    auto* const item = new QListWidgetItem(name, m_ports);
    if (device != name) item->setText(name + QStringLiteral("  ") + QFileInfo(device).fileName());
    item->setToolTip(device);
    item->setData(Qt::UserRole, name);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(m_wanted.contains(name) ? Qt::Checked : Qt::Unchecked);
  }
  m_ports->setCurrentRow(std::max(0, current));
}

void FleetSetup::Load(const QSettings& settings) {
  m_template->setText(settings.value(QStringLiteral("Template")).toString());
  m_rows->setText(settings.value(QStringLiteral("Rows")).toString());
  m_journal->setText(settings.value(QStringLiteral("Journal")).toString());
  m_quick->setChecked(settings.value(QStringLiteral("Quick")).toBool());
  m_sound->setChecked(settings.value(QStringLiteral("Sound"), true).toBool());
  m_onVerified->setText(settings.value(QStringLiteral("OnVerified")).toString());
  m_operator->setText(settings.value(QStringLiteral("Operator")).toString());
  m_operatorDay = settings.value(QStringLiteral("OperatorDay")).toString();
  m_wanted = settings.value(QStringLiteral("Ports")).toStringList();
  FindPorts();
}

// The options that write radios which are otherwise set aside are not stored: the user must opt in each time. A
// password is not stored either, and the file is readable only by its user.
void FleetSetup::Store(QSettings& settings) const {
  settings.setValue(QStringLiteral("Template"), m_template->text());
  settings.setValue(QStringLiteral("Rows"), m_rows->text());
  settings.setValue(QStringLiteral("Journal"),
                    QString::fromStdString(WithoutPassword(m_journal->text().toStdString())));
  settings.setValue(QStringLiteral("Quick"), m_quick->isChecked());
  settings.setValue(QStringLiteral("Sound"), m_sound->isChecked());
  settings.setValue(QStringLiteral("OnVerified"), m_onVerified->text());
  settings.setValue(QStringLiteral("Operator"), m_operator->text());
  settings.setValue(QStringLiteral("OperatorDay"), m_operatorDay);
  settings.setValue(QStringLiteral("Ports"), m_wanted);
}

} // namespace mr4500x
