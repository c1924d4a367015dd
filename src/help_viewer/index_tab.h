// The keywords of the help, in alphabetical order.
#pragma once

#include <QHelpLink>
#include <QWidget>

class QHelpEngine;
class QHelpIndexWidget;
class QLineEdit;

namespace mr4500x {

class IndexTab final : public QWidget {
  Q_OBJECT

public:
  explicit IndexTab(QHelpEngine& engine);

  void Start(); // an empty keyword, ready to type

signals:
  void Chosen(const QUrl& page);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void Filter(const QString& keyword);
  void Choose(const QList<QHelpLink>& pages, const QString& keyword);

  QHelpEngine& m_engine;
  QLineEdit* m_keyword;
  QHelpIndexWidget* m_list;
};

} // namespace mr4500x
