#include "dialogs.h"

#include "program_title.h"
#include "window_parts.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QToolButton>

namespace mr4500x {
namespace {

constexpr int PictureSize = 64;
constexpr char MakersPage[] = "https://www.calvorne-vtr.example/";

QLabel* MakePlainLabel(const QString& text, const char* name) {
  auto* const label = new QLabel(text);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  return label;
}

// The libraries of all programs, unmodified. No fonts are shipped.
QString LicencesText() {
  return QDialog::tr(
             "Qt %1 and its modules, shared libraries: LGPL version 3\n"
             "CLI11, compiled into mr4500x-cli, mr4500x-cli-fleet and lr7200-simulator: BSD 3-Clause\n"
             "nlohmann-json, compiled into mr4500x-cli, mr4500x-cli-fleet, mr4500x-cli-print and MR4500X-fleet: MIT\n"
             "The notices of what is compiled in are in the file copyright, which is installed in\n%2")
      .arg(QLatin1String(qVersion()), QLatin1String(MR4500X_DOCUMENTS_FOLDER));
}

QToolButton* MakeLicencesButton(QLabel& licences) {
  auto* const button = new QToolButton;
  button->setObjectName(QStringLiteral("cmdLicences"));
  button->setText(QDialog::tr("&Licences"));
  button->setCheckable(true);
  button->setAutoRaise(true);
  button->setArrowType(Qt::RightArrow);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QObject::connect(button, &QToolButton::toggled, &licences, [button, &licences](bool unfolded) {
    button->setArrowType(unfolded ? Qt::DownArrow : Qt::RightArrow);
    licences.setVisible(unfolded);
  });
  return button;
}

QLabel* MakeLink(const std::function<void(const std::string&)>& openLink) {
  auto* const link = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(QLatin1String(MakersPage)));
  link->setObjectName(QStringLiteral("lblLink"));
  link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  link->setAccessibleName(QDialog::tr("The maker's page: %1").arg(QLatin1String(MakersPage)));
  QObject::connect(link, &QLabel::linkActivated, link,
                   [openLink](const QString& page) { openLink(page.toStdString()); });
  return link;
}

} // namespace

void ShowAbout(const std::function<void(const std::string&)>& openLink, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("frmAbout"));
  const QString title = QString::fromUtf8(ProgramTitle);
  dialog.setWindowTitle(QDialog::tr("About %1").arg(title));

  auto* const picture = new QLabel;
  picture->setObjectName(QStringLiteral("imgPicture"));
  picture->setPixmap(ProgramIcon("program").pixmap(QSize(PictureSize, PictureSize), dialog.devicePixelRatioF()));
  QLabel* const licences = MakePlainLabel(LicencesText(), "lblLicences");
  licences->setTextInteractionFlags(Qt::TextSelectableByMouse);
  licences->hide();
  auto* const buttons = new QDialogButtonBox;
  QPushButton* const close = buttons->addButton(QDialog::tr("&Close"), QDialogButtonBox::RejectRole);
  close->setObjectName(QStringLiteral("cmdClose"));
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

  auto* const words = new QVBoxLayout;
  words->addStretch();
  words->addWidget(MakePlainLabel(QDialog::tr("%1  For Windows 98/NT/2000").arg(title), "lblText"));
  words->addWidget(MakePlainLabel(
      QDialog::tr("Version %1, on %2").arg(QLatin1String(MR4500X_VERSION), QSysInfo::prettyProductName()),
      "lblVersion"));
  words->addWidget(MakeLink(openLink));
  words->addStretch();
  auto* const top = new QHBoxLayout;
  top->addWidget(picture);
  top->addSpacing(dialog.fontMetrics().averageCharWidth() * 2);
  top->addLayout(words);
  top->addStretch();
  auto* const bottom = new QHBoxLayout;
  bottom->addWidget(MakeLicencesButton(*licences));
  bottom->addWidget(buttons);
  auto* const layout = new QVBoxLayout(&dialog);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addLayout(top);
  layout->addLayout(bottom);
  layout->addWidget(licences);
  close->setFocus();
  dialog.exec();
}

} // namespace mr4500x
