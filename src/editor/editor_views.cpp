#include "editor_views.h"

#include <QBoxLayout>
#include <QStackedLayout>

namespace mr4500x {
namespace {

QWidget* NewPage(QWidget& panel, const char* objectName) {
  auto* const page = new QWidget(&panel);
  page->setObjectName(QLatin1String(objectName));
  return page;
}

QBoxLayout* AddBox(QBoxLayout& outer, QBoxLayout::Direction direction) {
  auto* const box = new QBoxLayout(direction);
  outer.addLayout(box);
  return box;
}

QWidget* NewChannelView(QWidget& panel, const EditorViews& views) {
  QWidget* const page = NewPage(panel, "picChannelView");
  auto* const column = new QVBoxLayout(page);
  QBoxLayout* const top = AddBox(*column, QBoxLayout::LeftToRight);
  top->addWidget(views.band);
  top->addWidget(views.record);
  top->addStretch();
  column->addWidget(views.channels, 0, Qt::AlignLeft);
  column->addStretch();
  return page;
}

QWidget* NewFunctionView(QWidget& panel, const EditorViews& views) {
  QWidget* const page = NewPage(panel, "picFunctionView");
  auto* const row = new QHBoxLayout(page);
  QBoxLayout* const left = AddBox(*row, QBoxLayout::TopToBottom);
  left->addWidget(views.global);
  left->addWidget(views.tts);
  left->addStretch();
  QBoxLayout* const right = AddBox(*row, QBoxLayout::TopToBottom);
  right->addWidget(views.scan);
  right->addWidget(views.keys);
  QBoxLayout* const signaling = AddBox(*right, QBoxLayout::LeftToRight);
  signaling->addWidget(views.selectCall);
  signaling->addWidget(views.fiveTone);
  right->addWidget(views.resetTime);
  right->addWidget(views.tune);
  right->addStretch();
  row->addStretch();
  return page;
}

} // namespace

void ArrangeViews(QWidget& panel, EditorViews& views) {
  views.stack = new QStackedLayout(&panel);
  views.stack->addWidget(NewChannelView(panel, views));
  views.stack->addWidget(NewFunctionView(panel, views));
}

} // namespace mr4500x
