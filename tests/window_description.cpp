#include "window_description.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPaintEngine>
#include <QtWidgets>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

namespace mr4500x {
namespace {

// The properties that a line names, unless they have the value behind "=". The first ones are printed without names.
const QString Properties =
    "text title currentText plainText placeholderText prefix suffix value minimum=0 maximum count maxLength=32767 "
    "icon readOnly=false default=false wordWrap=false textFormat=AutoText textVisible=true clearButtonEnabled=false "
    "echoMode=Normal selectionBehavior=SelectItems tabKeyNavigation=true sortingEnabled=false arrowType=NoArrow "
    "acceptDrops=false toolTip accessibleDescription";
constexpr qsizetype Unnamed = 4;

template<class Enum>
QString KeyOf(Enum value) {
  return QMetaEnum::fromType<Enum>().valueToKeys(static_cast<int>(value));
}
template<class... Classes>
bool IsOneOf(const QObject& object) {
  return ((qobject_cast<const Classes*>(&object) != nullptr) || ...);
}
QString Quoted(QString text) {
  return '"' + text.replace('\n', QLatin1String("\\n")) + '"';
}
QString NameOf(const QObject& object) {
  for (const char* const property : {"objectName", "accessibleName", "text"})
    if (QString name = object.property(property).toString(); !name.isEmpty()) return name;
  return object.metaObject()->className();
}
QString ScaleOf(const QFont& font, const QFont& usual) {
  const double scale = font.pointSizeF() / usual.pointSizeF();
  return (std::abs(scale - 1) < 0.01 ? "" : QStringLiteral(" %1x").arg(scale, 0, 'g', 3)) +
         (font.bold() ? " bold" : "");
}

// "a a b" as "2* a | b".
QString InRuns(const QStringList& texts) {
  QStringList runs;
  for (qsizetype i = 0, end = 0; i < texts.size(); i = end) {
    while (end < texts.size() && texts[end] == texts[i])
      ++end;
    runs.append((end - i > 1 ? QString::number(end - i) + "* " : "") + texts[i]);
  }
  return runs.join(" | ");
}

// Records what a widget draws itself: texts, and shapes by their colours and numbers of points.
class Recorder final : public QPaintDevice, QPaintEngine {
public:
  explicit Recorder(QWidget& widget) : QPaintEngine(AllFeatures), m_widget(widget) { widget.render(this, {}, {}, {}); }
  struct Text {
    QString text, style;
    QRectF place;
  };
  std::vector<Text> texts;
  QStringList shapes;

private:
  QPaintEngine* paintEngine() const override { return const_cast<Recorder*>(this); }
  int metric(PaintDeviceMetric metric) const override {
    if (metric == PdmDevicePixelRatioScaled) return static_cast<int>(devicePixelRatioFScale());
    if (metric == PdmWidth || metric == PdmHeight) return metric == PdmWidth ? m_widget.width() : m_widget.height();
    return metric == PdmDevicePixelRatio ? 1 : m_widget.logicalDpiX();
  }
  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void updateState(const QPaintEngineState& /*state*/) override {}
  void drawPixmap(const QRectF& /*to*/, const QPixmap& /*pixmap*/, const QRectF& /*from*/) override {}
  void drawPath(const QPainterPath& path) override { AddShape(path.elementCount()); }
  void drawPolygon(const QPointF* /*points*/, int count, PolygonDrawMode /*mode*/) override { AddShape(count); }
  void drawTextItem(const QPointF& at, const QTextItem& item) override {
    const QRectF place(at.x(), at.y() - item.ascent(), item.width(), item.ascent());
    texts.push_back({item.text(), ScaleOf(item.font(), QApplication::font()) + ' ' + painter()->pen().color().name(),
                     painter()->combinedTransform().mapRect(place)});
  }
  void AddShape(int points) {
    const auto colour = [](bool isUsed, const char* word, const QColor& of) {
      return isUsed ? word + of.name(of.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb) : "";
    };
    QString stops;
    if (painter()->brush().gradient() != nullptr)
      for (const auto& [at, stop] : painter()->brush().gradient()->stops())
        stops += ' ' + stop.name();
    const QPen pen = painter()->pen();
    const QBrush brush = painter()->brush();
    shapes.append(QString::number(points) + " points" + colour(pen.style() != Qt::NoPen, " in ", pen.color()) +
                  colour(brush.style() != Qt::NoBrush && stops.isEmpty(), " filled ", brush.color()) + stops);
  }

  QWidget& m_widget;
};

class Description {
public:
  QStringList lines;

  void AddWindow(QWidget& window) {
    const int bar = window.windowType() == Qt::Window ? window.style()->pixelMetric(QStyle::PM_TitleBarHeight) : 0;
    const QSize room = window.screen()->availableSize() - QSize(0, bar);
    Add(0, "Window " + Quoted(window.windowTitle()) + ' ' + KeyOf(Qt::WindowType(window.windowFlags().toInt())) +
               (window.isModal() ? " modal" : "") +
               (window.size().boundedTo(room) != window.size() ? " larger-than-the-screen" : ""));
    if (const auto* const menu = qobject_cast<QMenu*>(&window)) return AddActions(menu->actions(), 1);
    AddWidget(window, 1, {});
    if (window.focusWidget() != nullptr) Add(1, "focus: " + NameOf(*window.focusWidget()));
    QStringList order;
    for (QWidget* next = window.nextInFocusChain(); next != &window; next = next->nextInFocusChain())
      if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisible() && next->isEnabled() &&
          next->window() == &window && next->focusProxy() == nullptr)
        order.append(NameOf(*next));
    for (qsizetype i = 0; i < order.size(); i += 8)
      Add(1, "tab order: " + order.mid(i, 8).join(' '));
  }

private:
  void Add(int depth, QString line) {
    lines.append(line.prepend(QString(qsizetype{2} * depth, ' ')).remove(QRegularExpression(" +$")));
  }

  // A widget that has nothing to say has no line.
  void AddWidget(QWidget& widget, int depth, const QString& place) {
    const qsizetype at = lines.size();
    const QString line = LineOf(widget);
    if (line != "Widget") Add(depth++, place + line);
    for (const QShortcut* const keys : widget.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly))
      Add(depth, "keys " + keys->key().toString() + ' ' + KeyOf(keys->context()));
    if (!IsOneOf<QToolBar, QToolButton>(widget)) AddActions(widget.actions(), depth);
    const auto* const view = qobject_cast<QAbstractItemView*>(&widget);
    if (view != nullptr) AddItems(*view, depth);
    if (IsOneOf<QComboBox, QLineEdit, QAbstractSpinBox, QAbstractButton, QProgressBar, QMenuBar>(widget)) return;
    AddDrawn(widget, lines.mid(at).join("").remove('&'), depth);
    if (auto* const area = qobject_cast<QScrollArea*>(&widget)) return AddWidget(*area->widget(), depth, {});
    if (!IsOneOf<QAbstractScrollArea>(widget)) AddChildren(widget, depth);
  }

  void AddChildren(const QWidget& widget, int depth) {
    std::vector<std::pair<QWidget*, QString>> children;
    if (widget.layout() != nullptr) Collect(*widget.layout(), children);
    for (QWidget* const child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
      if (std::ranges::find(children, child, [](const auto& each) { return each.first; }) == children.end())
        children.emplace_back(child, QString());
    QWidgetList before;
    for (const auto& [child, place] : children) {
      if (child->isHidden() || child->isWindow() || child->objectName().endsWith("_ext_button")) continue;
      QString over;
      for (const QWidget* const other : before)
        if (other->geometry().intersects(child->geometry())) over += "over " + NameOf(*other) + ": ";
      before.append(child);
      AddWidget(*child, depth, place + over);
    }
  }

  // In the order of the layout. A place in a grid is its row and its column.
  static void Collect(QLayout& layout, std::vector<std::pair<QWidget*, QString>>& children) {
    for (int i = 0; i < layout.count(); ++i) {
      QLayoutItem& item = *layout.itemAt(i);
      int row = -1, column = 0, rows = 0, columns = 0;
      if (const auto* const grid = qobject_cast<QGridLayout*>(&layout))
        grid->getItemPosition(i, &row, &column, &rows, &columns);
      if (item.layout() != nullptr) Collect(*item.layout(), children);
      if (item.widget() == nullptr) continue;
      children.emplace_back(item.widget(), row < 0 ? QString() : QStringLiteral("(%1,%2) ").arg(row).arg(column));
    }
  }

  static QString LineOf(const QWidget& widget) {
    QString line = QString(widget.metaObject()->className()).remove("mr4500x::"), said;
    if (line.startsWith('Q')) line.remove(0, 1);
    if (!widget.objectName().startsWith("qt_")) line += ' ' + widget.objectName();
    line = line.trimmed();
    const QStringList properties = Properties.split(' ');
    for (qsizetype i = 0; i < properties.size(); ++i) {
      const QString name = properties[i].section('=', 0, 0);
      const int at = widget.metaObject()->indexOfProperty(name.toLatin1());
      if (at < 0) continue;
      const QMetaProperty property = widget.metaObject()->property(at);
      const QVariant value = property.read(&widget);
      const QString text = property.isEnumType() ? property.enumerator().valueToKey(value.toInt()) : value.toString();
      if (text == properties[i].section('=', 1)) continue;
      if (said.isEmpty()) said = QString(text).remove('&');
      line += (i < Unnamed ? " " : ' ' + name + '=') + (value.typeId() == QMetaType::QString ? Quoted(text) : text);
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
      line += QString(!button->isCheckable() ? ""
                      : button->isChecked()  ? " [x]"
                                             : " [ ]") +
              (button->icon().isNull() ? "" : " icon");
    if (const auto* const list = qobject_cast<const QComboBox*>(&widget); list != nullptr && list->count() > 0)
      line += " from " + Quoted(list->itemText(0)) + " to " + Quoted(list->itemText(list->count() - 1));
    if (const auto* const label = qobject_cast<const QLabel*>(&widget); label != nullptr && label->buddy() != nullptr)
      line += " for " + NameOf(*label->buddy());
    if (!widget.isEnabled() && (widget.isWindow() || widget.parentWidget()->isEnabled())) line += " disabled";
    return line + NameAndStyleOf(widget, said) + FitOf(widget);
  }

  // What a screen reader calls it, if that is not its text, and its own font and colours.
  static QString NameAndStyleOf(const QWidget& widget, const QString& said) {
    QString line, name = widget.accessibleName();
    if (widget.focusPolicy() != Qt::NoFocus) {
      auto* const reader = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
      name = reader == nullptr ? QString() : reader->text(QAccessible::Name);
      if (name.isEmpty()) line += " nameless";
      if (widget.focusPolicy() == Qt::ClickFocus) line += " no-tab";
    }
    if (!name.isEmpty() && name != said) line += " name=" + Quoted(name);
    if (!widget.whatsThis().isEmpty() && widget.whatsThis() != widget.toolTip())
      line += " help=" + Quoted(widget.whatsThis());
    line += ScaleOf(widget.font(), QApplication::font(&widget));
    const bool isOuter = widget.isWindow() || widget.parentWidget() == nullptr;
    const QPalette usual = isOuter ? QApplication::palette(&widget) : widget.parentWidget()->palette();
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::Base})
      if (const QColor own = widget.palette().color(QPalette::Active, role); own != usual.color(QPalette::Active, role))
        line += ' ' + KeyOf(role) + '=' + own.name();
    return line;
  }

  static QString FitOf(const QWidget& widget) {
    const QWidget* const parent = widget.isWindow() ? nullptr : widget.parentWidget();
    const bool isInView = parent == nullptr || parent->objectName() == "qt_scrollarea_viewport";
    QString faults = isInView || parent->rect().contains(widget.geometry()) ? "" : " cut";
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    if (IsOneOf<QLineEdit>(widget)) return faults; // scrolls its text
    const bool wraps = label != nullptr && label->wordWrap();
    const QSize least = widget.minimumSizeHint();
    if (!wraps && widget.sizePolicy().horizontalPolicy() != QSizePolicy::Ignored && widget.width() < least.width())
      faults += " narrow";
    if (widget.height() < (wraps ? widget.heightForWidth(widget.width()) : least.height())) faults += " low";
    return faults;
  }

  // Texts that are drawn but not said, over each other or beyond an edge, and the shapes of a picture.
  void AddDrawn(QWidget& widget, const QString& said, int depth) {
    const auto* const area = qobject_cast<QAbstractScrollArea*>(&widget);
    QWidget& canvas = area != nullptr ? *area->viewport() : widget;
    const Recorder drawn(canvas);
    const bool isPicture = widget.windowType() == Qt::SplashScreen ||
                           (widget.metaObject() == &QWidget::staticMetaObject && !widget.autoFillBackground());
    for (const QString& shape : drawn.shapes)
      if (isPicture) Add(depth, "draws " + shape);
    for (auto text = drawn.texts.begin(); text != drawn.texts.end(); ++text) {
      QString faults;
      for (auto other = drawn.texts.begin(); other != text; ++other)
        if (other->place.intersects(text->place)) faults += " over " + Quoted(other->text);
      if (area == nullptr && !QRectF(canvas.rect()).adjusted(-1, -1, 1, 1).contains(text->place)) faults += " cut";
      if (!said.contains(text->text.trimmed()) || !faults.isEmpty())
        Add(depth, "draws " + Quoted(text->text) + text->style + faults);
    }
  }

  void AddActions(const QList<QAction*>& actions, int depth) {
    QStringList letters; // of the menu
    for (const QAction* const action : actions) {
      QString line = action->isSeparator() ? "--" : "> " + Quoted(action->text()) + ' ' + action->objectName();
      for (const QKeySequence& keys : action->shortcuts())
        line += ' ' + keys.toString() + (action->shortcutContext() == Qt::WindowShortcut ? "" : " here");
      if (action->isCheckable()) line += action->isChecked() ? " [x]" : " [ ]";
      line += QString(action->isEnabled() ? "" : " disabled") + (action->isVisible() ? "" : " hidden");
      const QString letter = QKeySequence::mnemonic(action->text()).toString();
      if (!letter.isEmpty() && action->isVisible() && letters.contains(letter)) line += " letter-twice";
      letters.append(letter);
      Add(depth, line);
      if (action->menu() != nullptr) AddActions(action->menu()->actions(), depth + 1);
    }
  }

  void AddItems(const QAbstractItemView& view, int depth) {
    constexpr int mostRows = 20;
    const QAbstractItemModel& model = *view.model();
    const bool isList = IsOneOf<QListView>(view);
    if (const auto* const table = qobject_cast<const QTableView*>(&view)) {
      const QHeaderView &headings = *table->horizontalHeader(), &labels = *table->verticalHeader();
      Add(depth, "headings " + KeyOf(headings.defaultAlignment()) + (headings.highlightSections() ? " bold" : "") +
                     (headings.stretchLastSection() ? " stretched" : "") +
                     (labels.isHidden() ? "" : ", labels " + KeyOf(labels.defaultAlignment())));
    }
    const auto named = [](const QString& text, const QString& tip) {
      return Quoted(text) + (tip.isEmpty() || tip == text ? "" : " toolTip=" + Quoted(tip));
    };
    for (int column = 0; column < model.columnCount() && !isList; ++column) {
      const auto heading = [&](int role) { return model.headerData(column, Qt::Horizontal, role).toString(); };
      Add(depth, "column " + named(heading(Qt::DisplayRole), heading(Qt::ToolTipRole)));
    }
    QStringList before;
    for (int row = 0; row < std::min(model.rowCount(), mostRows); ++row) {
      const QModelIndex current = view.currentIndex();
      QString line = "row";
      if (row == current.row()) line = QStringLiteral("current (%1) row").arg(current.column() + 1);
      QStringList styles;
      if (view.selectionModel()->rowIntersectsSelection(row)) line = "selected " + line;
      if (!isList) line += ' ' + model.headerData(row, Qt::Vertical).toString();
      for (int column = 0; column < model.columnCount(); ++column) {
        const auto cell = [&](int role) { return model.index(row, column).data(role); };
        const QVariant check = cell(Qt::CheckStateRole);
        line += QString(check.isNull()                 ? " | "
                        : check.toInt() == Qt::Checked ? " | [x] "
                                                       : " | [ ] ") +
                named(cell(Qt::DisplayRole).toString(), cell(Qt::ToolTipRole).toString());
        const QVariant align = cell(Qt::TextAlignmentRole), colour = cell(Qt::ForegroundRole);
        styles.append((align.isNull() ? QString() : KeyOf(Qt::Alignment(align.toInt()))) +
                      (cell(Qt::DecorationRole).isNull() ? "" : " icon") +
                      (colour.isNull() ? "" : ' ' + colour.value<QBrush>().color().name()));
      }
      Add(depth, line);
      if (styles != std::exchange(before, styles) && !styles.join("").isEmpty())
        Add(depth + 1, "styles " + InRuns(styles));
    }
  }
};

} // namespace

QStringList DescribeWindows(const QWidget* main) {
  QCoreApplication::sendPostedEvents();
  QWidgetList windows = QApplication::topLevelWidgets();
  windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
  std::ranges::sort(windows, {}, [&](const QWidget* window) {
    return std::tuple(window != main, window->windowTitle(), window->objectName());
  });
  QList<QMenu*> menus; // are as when they open
  for (const QWidget* const window : windows)
    for (const QMenuBar* const bar : window->findChildren<QMenuBar*>())
      menus += bar->findChildren<QMenu*>();
  for (QMenu* const menu : menus)
    emit menu->aboutToShow();
  Description description;
  for (QWidget* const window : windows)
    description.AddWindow(*window);
  for (QMenu* const menu : menus)
    emit menu->aboutToHide();
  return description.lines;
}

// By the longest common sequence.
QStringList ChangedLines(const QStringList& before, const QStringList& after) {
  std::vector<std::vector<int>> common(std::size_t(before.size()) + 1, std::vector<int>(std::size_t(after.size()) + 1));
  const auto at = [&](qsizetype i, qsizetype j) -> int& { return common[std::size_t(i)][std::size_t(j)]; };
  for (qsizetype i = before.size(); i-- > 0;)
    for (qsizetype j = after.size(); j-- > 0;)
      at(i, j) = before[i] == after[j] ? at(i + 1, j + 1) + 1 : std::max(at(i + 1, j), at(i, j + 1));
  QStringList lines;
  for (qsizetype i = 0, j = 0; i < before.size() || j < after.size();) {
    const bool isEqual = i < before.size() && j < after.size() && before[i] == after[j];
    const bool isGone = j == after.size() || (i < before.size() && at(i + 1, j) >= at(i, j + 1));
    if (!isEqual) lines.append(isGone ? "- " + before[i] : "+ " + after[j]);
    i += isEqual || isGone ? 1 : 0;
    j += isEqual || !isGone ? 1 : 0;
  }
  return lines;
}

} // namespace mr4500x
