#include "frm_about.h"

#include "program_icons.h"
#include "window_titles.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace mr4500x {
namespace {

constexpr int PictureSize = 64;
constexpr char MakersPage[] = "https://www.calvorne-vtr.example/";

QLabel* MakeLink(const std::function<void(const std::string&)>& openLink) {
  auto* const link = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(QLatin1String(MakersPage)));
  link->setObjectName(QStringLiteral("lblLink"));
  link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  link->setAccessibleName(FrmAbout::tr("The maker's page: %1").arg(QLatin1String(MakersPage)));
  QObject::connect(link, &QLabel::linkActivated, link,
                   [openLink](const QString& page) { openLink(page.toStdString()); });
  return link;
}

} // namespace

FrmAbout::FrmAbout(const std::function<void(const std::string&)>& openLink, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmAbout"));
  const QString title = QString::fromUtf8(BareTitle.data(), static_cast<qsizetype>(BareTitle.size()));
  setWindowTitle(QStringLiteral("About ") + title);

  auto* const picture = new QLabel;
  picture->setObjectName(QStringLiteral("imgPicture"));
  picture->setPixmap(ProgramIcon("program").pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF()));
  auto* const text = new QLabel(title + QStringLiteral("  For Windows 98/NT/2000"));
  text->setObjectName(QStringLiteral("lblText"));
  text->setTextFormat(Qt::PlainText);
  auto* const buttons = new QDialogButtonBox;
  QPushButton* const close = buttons->addButton(QStringLiteral("&Close"), QDialogButtonBox::RejectRole);
  close->setObjectName(QStringLiteral("cmdClose"));
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* const words = new QVBoxLayout;
  words->addStretch();
  words->addWidget(text);
  words->addWidget(MakeLink(openLink));
  words->addStretch();
  auto* const top = new QHBoxLayout;
  top->setSpacing(fontMetrics().averageCharWidth() * 3);
  top->addWidget(picture);
  top->addLayout(words);
  auto* const layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addLayout(top);
  layout->addWidget(buttons);
  close->setFocus();
}

} // namespace mr4500x
