#include "setting_help.h"

#include "settings_frame.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QTableWidget>

// A static library's resources need this call, and the macro only works outside of namespaces.
static void LoadHelp() {
  Q_INIT_RESOURCE(help);
}

namespace mr4500x {
namespace {

const SettingHelp* HelpOf(const QString& key) {
  const auto found = SettingHelps().find(key);
  return found == SettingHelps().end() ? nullptr : &found->second;
}

// "chkPrintOutput(1)" is one of the boxes "chkPrintOutput".
const SettingHelp* HelpOf(const QObject& control) {
  const QVariant setting = control.property(SettingProperty);
  return HelpOf(setting.isValid() ? setting.toString() : control.objectName().section('(', 0, 0));
}

const SettingHelp* HelpOfColumn(const QTableWidget& table, int column) {
  const QTableWidgetItem* const heading = table.horizontalHeaderItem(column);
  return heading == nullptr ? nullptr : HelpOf(heading->data(Qt::UserRole).toString());
}

} // namespace

const std::map<QString, SettingHelp>& SettingHelps() {
  static const std::map<QString, SettingHelp> helps = [] {
    LoadHelp();
    QFile page(QStringLiteral(":/settings.html"));
    static_cast<void>(page.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(page.readAll()).simplified();
    const QRegularExpression row(QStringLiteral("<tr id=\"([^\"]+)\"><td><a href=\"([^\"]+)\">[^<]*</a></td>"
                                                " ?<td>([^<]*)</td> ?<td>([^<]*)</td> ?<td>([^<]*)</td></tr>"));
    std::map<QString, SettingHelp> all;
    for (auto rows = row.globalMatch(html); rows.hasNext();) {
      const QRegularExpressionMatch each = rows.next();
      QString lines = each.captured(3);
      if (!each.captured(4).isEmpty()) lines += QStringLiteral("\nDefault: ") + each.captured(4);
      if (!each.captured(5).isEmpty()) lines += '\n' + each.captured(5);
      all[each.captured(1)] = {lines, each.captured(2)};
    }
    return all;
  }();
  return helps;
}

void ShowSettingHelp(QWidget& window) {
  for (QWidget* const control : window.findChildren<QWidget*>()) {
    const SettingHelp* help = HelpOf(*control);
    if (const auto* const label = qobject_cast<QLabel*>(control); label != nullptr && label->buddy() != nullptr)
      help = HelpOf(*label->buddy());
    if (help == nullptr) continue;
    control->setWhatsThis(help->lines);
    if (control->toolTip().isEmpty()) control->setToolTip(help->lines); // otherwise it is the tool tip of a port
  }
  for (const QTableWidget* const table : window.findChildren<QTableWidget*>())
    for (int column = 0; column < table->columnCount(); ++column) {
      const SettingHelp* const help = HelpOfColumn(*table, column);
      if (help == nullptr) continue;
      table->horizontalHeaderItem(column)->setToolTip(help->lines);
      table->horizontalHeaderItem(column)->setWhatsThis(help->lines);
    }
}

// A cell that is open is edited beside its table.
QString HelpPageOf(const QWidget* control) {
  for (; control != nullptr; control = control->parentWidget()) {
    const auto* table = qobject_cast<const QTableWidget*>(control);
    if (table == nullptr && qobject_cast<const SettingsFrame*>(control) != nullptr)
      table = control->findChild<QTableWidget*>();
    const SettingHelp* const help =
        table != nullptr ? HelpOfColumn(*table, std::max(table->currentColumn(), 0)) : HelpOf(*control);
    if (help != nullptr) return help->page;
  }
  return QStringLiteral("index.html");
}

HelpEverywhere::HelpEverywhere(std::function<void()> openHelp, QObject* parent)
    : QObject(parent), m_openHelp(std::move(openHelp)) {
  qApp->installEventFilter(this);
}

bool HelpEverywhere::eventFilter(QObject* watched, QEvent* event) {
  if (auto* const dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr)
    ShowSettingHelp(*dialog);
  const bool isKey = event->type() == QEvent::KeyPress && watched->isWidgetType();
  if (!isKey || QApplication::activePopupWidget() != nullptr) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  m_openHelp();
  return true;
}

} // namespace mr4500x
