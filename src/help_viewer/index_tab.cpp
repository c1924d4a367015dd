#include "index_tab.h"

#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace mr4500x {

IndexTab::IndexTab(QHelpEngine& engine) : m_engine(engine), m_keyword(new QLineEdit), m_list(engine.indexWidget()) {
  m_keyword->setObjectName(QStringLiteral("txtKeyword"));
  m_keyword->setClearButtonEnabled(true);
  m_keyword->installEventFilter(this);
  m_list->setObjectName(QStringLiteral("lstIndex"));
  m_list->setAccessibleName(tr("Keywords"));
  auto* const label = new QLabel(tr("&Keyword:"));
  label->setBuddy(m_keyword);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(m_keyword);
  layout->addWidget(m_list);
  connect(m_keyword, &QLineEdit::textChanged, this, &IndexTab::Filter);
  connect(m_keyword, &QLineEdit::returnPressed, m_list, &QHelpIndexWidget::activateCurrentItem);
  connect(m_list, &QHelpIndexWidget::documentActivated, this, [this](const QHelpLink& page) { emit Chosen(page.url); });
  connect(m_list, &QHelpIndexWidget::documentsActivated, this, &IndexTab::Choose);
}

void IndexTab::Start() {
  m_keyword->clear();
  m_keyword->setFocus();
}

// The list keeps the keywords that hold the text, and marks the one that it stands for best.
void IndexTab::Filter(const QString& keyword) {
  QHelpIndexModel* const model = m_engine.indexModel();
  const QModelIndex best = model->filter(keyword, QString());
  if (best.isValid()) m_list->setCurrentIndex(best);
}

void IndexTab::Choose(const QList<QHelpLink>& pages, const QString& keyword) {
  QInputDialog choice(this);
  choice.setObjectName(QStringLiteral("frmTopics"));
  choice.setWindowTitle(tr("Topics"));
  choice.setLabelText(tr("&Topics with the keyword \"%1\":").arg(keyword));
  choice.setOption(QInputDialog::UseListViewForComboBoxItems);
  QStringList titles;
  for (const QHelpLink& page : pages)
    titles.append(page.title);
  choice.setComboBoxItems(titles);
  if (choice.exec() != QDialog::Accepted) return;
  const qsizetype chosen = titles.indexOf(choice.textValue());
  if (chosen >= 0) emit Chosen(pages.at(chosen).url);
}

// The arrow keys move through the list while the keyword is typed.
bool IndexTab::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_keyword && event->type() == QEvent::KeyPress) {
    const int step = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down ? 1
                     : static_cast<QKeyEvent*>(event)->key() == Qt::Key_Up ? -1
                                                                           : 0;
    const QModelIndex next = m_list->model()->index(m_list->currentIndex().row() + step, 0);
    if (step != 0 && next.isValid()) m_list->setCurrentIndex(next);
    if (step != 0) return true;
  }
  return QWidget::eventFilter(watched, event);
}

} // namespace mr4500x
