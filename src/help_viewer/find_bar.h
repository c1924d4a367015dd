// Finding a text in the page that is shown.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace mr4500x {

class PageView;

class FindBar final : public QWidget {
  Q_OBJECT

public:
  explicit FindBar(PageView& page);

  void Start(); // shows the bar, ready to type

protected:
  void keyPressEvent(QKeyEvent* event) override;

private:
  void Find(bool backwards);

  PageView& m_page;
  QLineEdit* m_text;
  QLabel* m_notice;
};

} // namespace mr4500x
