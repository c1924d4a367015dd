// No text escapes the translators: each window is shown in a made-up language, and what stays English is a fault.
#include "frm_port.h"
#include "group_dialog.h"
#include "modal_dialog.h"
#include "program_fixture.h"
#include "qt_message_view.h"
#include "two_five_dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSet>
#include <QTableWidget>
#include <QTranslator>
#include <QXmlStreamReader>

namespace mr4500x {
namespace {

// Sets each text of the source catalogue in marks, and leaves what the catalogue lacks as it is.
class CatalogueTranslator final : public QTranslator {
public:
  explicit CatalogueTranslator(const QString& catalogue) {
    QFile file(catalogue);
    if (!file.open(QIODevice::ReadOnly)) return;
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
      if (xml.readNext() != QXmlStreamReader::StartElement) continue;
      if (xml.name() == QLatin1String("name")) context = xml.readElementText();
      if (xml.name() == QLatin1String("source")) m_texts.insert(context + QLatin1Char('|') + xml.readElementText());
    }
  }

  [[nodiscard]] bool isEmpty() const override { return m_texts.isEmpty(); }
  [[nodiscard]] QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                                  int /*n*/) const override {
    const QString source = QString::fromUtf8(text);
    if (!m_texts.contains(QString::fromUtf8(context) + QLatin1Char('|') + source)) return {};
    return QStringLiteral("<%1>").arg(source);
  }

private:
  QSet<QString> m_texts;
};

QStringList TextsOf(const QTableWidget& table) {
  QStringList texts;
  for (int column = 0; column < table.columnCount(); ++column)
    if (const auto* const item = table.horizontalHeaderItem(column)) texts.append(item->text());
  for (int row = 0; row < table.rowCount(); ++row)
    if (const auto* const item = table.verticalHeaderItem(row)) texts.append(item->text());
  return texts;
}

QStringList TextsOf(const QWidget& widget) {
  QStringList texts = {widget.accessibleName(), widget.toolTip()};
  if (widget.isWindow()) texts.append(widget.windowTitle());
  for (const QAction* const action : widget.actions())
    texts += {action->text(), action->toolTip()};
  if (const auto* const label = qobject_cast<const QLabel*>(&widget)) texts.append(label->text());
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) texts.append(button->text());
  if (const auto* const group = qobject_cast<const QGroupBox*>(&widget)) texts.append(group->title());
  if (const auto* const table = qobject_cast<const QTableWidget*>(&widget)) texts += TextsOf(*table);
  if (const auto* const list = qobject_cast<const QComboBox*>(&widget))
    for (int i = 0; i < list->count(); ++i)
      texts.append(list->itemText(i));
  return texts;
}

// Those of a window that are English words and in no marks. The product's and the maker's names, file names, numbers
// and what stands for a setting of a channel are the same in every language.
std::string Untranslated(const QWidget& window) {
  static const QRegularExpression same(
      "^(MR4500X Programming Software.*|.*calvorne-vtr.*|[^A-Za-z]*|CH "
      "*\\d+|OFF|CTC[\\d.]+|-?DCS\\d+|[\\d.]+m?s|P?D?(?:ZVEI|CCIR)\\d?|EEA|NATEL|\\d \\S*|qt_.*)$");
  QStringList found;
  QList<QWidget*> widgets = window.findChildren<QWidget*>();
  widgets.append(const_cast<QWidget*>(&window));
  for (const QWidget* const widget : widgets)
    for (const QString& text : TextsOf(*widget))
      if (!text.contains('<') && !same.match(text).hasMatch()) found.append(widget->objectName() + ": " + text);
  return found.join("; ").toStdString();
}

class TranslationsTest : public ProgramTest {
protected:
  TranslationsTest() : catalogue(CATALOGUE) {
    EXPECT_FALSE(catalogue.isEmpty());
    QCoreApplication::installTranslator(&catalogue);
    Start();
  }

  CatalogueTranslator catalogue;
};

TEST_F(TranslationsTest, ReachEveryWindow) {
  EXPECT_EQ(Untranslated(*window), "");
  for (const char* item : {"mnuHelpAbout", "mnuFilePrint", "mnuEmbedInfo"}) {
    int dialogs = 0;
    WhenDialogOpens([&](QWidget* dialog) {
      ++dialogs;
      EXPECT_EQ(Untranslated(*dialog), "") << item;
      dialog->close();
    });
    Choose(item);
    EXPECT_EQ(dialogs, 1) << item;
  }
}

TEST_F(TranslationsTest, ReachTheOtherDialogs) {
  EXPECT_EQ(Untranslated(FrmPort({}, {}, nullptr)), "");
  for (const bool ttsMode : {true, false}) {
    EXPECT_EQ(Untranslated(GroupDialog("OFF", ttsMode)), "");
    EXPECT_EQ(Untranslated(TwoFiveDialog("OFF", ttsMode, 0, desk)), "");
  }
}

TEST_F(TranslationsTest, ReachMessages) {
  const std::pair<const char*, const char*> cases[] = {
      {"File has been damaged!", "<File has been damaged!>"},
      {"COM3 port don't respond, please check your connection!",
       "<COM3 port don't respond, please check your connection!>"},
      {"/dev/x: The port failed while it was being set up.", "/dev/x: <The port failed while it was being set up.>"},
      {"COM3: No such device", "COM3: No such device"}, // the system's own words
  };
  for (const auto& [text, shown] : cases) {
    WhenDialogOpens([&, shown = shown](QWidget* dialog) {
      EXPECT_EQ(qobject_cast<QMessageBox*>(dialog)->text(), shown);
      EXPECT_EQ(dialog->windowTitle(), "<Open File Error>");
      dialog->close();
    });
    UserInput userInput;
    QtMessageView(userInput).Show(MessageIcon::Critical, "Open File Error", text, MessageButtons::Ok);
  }
}

// What the commands know by the window's title they know in every language.
TEST_F(TranslationsTest, LeaveTheCommandsAlone) {
  Choose("mnuProgramRead");
  EXPECT_EQ(Title(), "<Read Completely - MR4500X Programming Software>");
  desk.paths = {Path("read.K4X")};
  Choose("mnuFileSave");
  EXPECT_EQ(Title(), TitleOf("read.K4X"));
  EXPECT_TRUE(QFile::exists(QString::fromStdString(Path("read.K4X"))));
}

} // namespace
} // namespace mr4500x
