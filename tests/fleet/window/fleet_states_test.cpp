// The fleet's window in many states, compared as a whole with their descriptions. See fleet_states.txt.
#include "fleet_window_fixture.h"
#include "port_card.h"
#include "rows.h"

#include "window_states.h"

#include <QSqlDatabase>
#include <QSqlQuery>

namespace mr4500x {
namespace {

struct FleetRun : FleetFixture {
  FleetRun() {
    PutPortDevices("ports.ini", "");
    states.main = [this] { return window.get(); };
    states.isLate = [this] {
      const auto frames = window ? window->findChildren<QFrame*>() : QList<QFrame*>();
      return std::ranges::any_of(
          frames, [](auto* frame) { return frame->accessibleName().endsWith(": FAILED") && !IsSwapped(*frame); });
    };
    states.replaced = {
        {QRegularExpression(QChar(0x200B)), ""}, // where a long word may be broken
        {QRegularExpression(QRegularExpression::escape(QString::fromStdString(Path("")))), "FOLDER/"},
        {QRegularExpression("/dev/pts/\\d+|\\b\\d+(?=\")(?<=COM\\d  \\d)"), "DEVICE"},
        {QRegularExpression("(COM\\d  )\\d+"), "\\1DEVICE"},
        {QRegularExpression("\\d?\\d:\\d\\d(:\\d\\d)?(?= |\")"), "TIME"},
        {QRegularExpression("\\d{4}-\\d\\d-\\d\\d"), "DATE"},
        {QRegularExpression("[^ \"]+-\\d+-[0-9a-f]{1,4}\\b"), "BENCH"},
        {QRegularExpression("(?<=LR-1_)\\d+_\\d+|(?<=SHA-256 )[0-9a-f]{64}|(?<=DATE  )\\S+ +"), "VALUE"},
        {QRegularExpression(" +\\d+\\.\\d +(?=\")"), " VALUE"}, // a mean time, which fills its column on a slow machine
        {QRegularExpression("\\(\\d,\\d\\) (?=Frame)"), ""}};   // as many cards side by side as fit
    const auto word = [this](const char* name, auto act) {
      states.words[name] = [act](const QString& rest) { return act(rest.toStdString()); };
    };
    word("radio", [this](const std::string& options) {
      return AddRadio(QString::fromStdString(options).split(' ', Qt::SkipEmptyParts)), true;
    });
    word("put", [this](const std::string& rest) {
      Put(rest.substr(0, rest.find(' ')), Unescaped(rest.substr(rest.find(' ') + 1)));
      return true;
    });
    word("remove", [this](const std::string& name) { return std::filesystem::remove(Path(name)); });
    word("open", [this](const std::string&) { return ShowWindow(), true; });
    word("enter", [this](const std::string& rest) {
      auto* const box = states.Find<QLineEdit>(QString::fromStdString(rest.substr(0, rest.find(' '))));
      box->setText(QString::fromStdString(Path(rest.substr(rest.find(' ') + 1))));
      return true;
    });
    word("card", [this](const std::string& name) {
      const auto frames = window->findChildren<QFrame*>();
      return std::ranges::any_of(frames, [&](auto* frame) { return frame->accessibleName().toStdString() == name; });
    });
    word("close", [this](const std::string&) { return window->close(), true; });
    word("activate", [this](const std::string& box) {
      QEvent activated(QEvent::WindowActivate);
      QCoreApplication::sendEvent(window.get(), &activated);
      if (!box.empty()) states.Find<QLineEdit>(QString::fromStdString(box))->clear();
      return true;
    });
    word("sql", [this](const std::string& statement) {
      QSqlDatabase journal = QSqlDatabase::addDatabase("QSQLITE", "of another bench");
      journal.setDatabaseName(QString::fromStdString(Path("taxi.journal")));
      return journal.open() && journal.exec(QString::fromStdString(statement)).isActive();
    });
    word("cards", [this](const std::string&) { return ShowCards(), true; });
  }
  void TestBody() override {}
  static bool IsSwapped(const QFrame& card) { return card.accessibleDescription().contains("LR-9 was read back"); }
  // One in each state, with each hint.
  void ShowCards() {
    auto* const layout = new QVBoxLayout(&cards);
    for (int state = 0; state <= static_cast<int>(PortState::Finished); ++state) {
      auto* const card = new PortCard(QString("COM%1").arg(state + 1), [] {});
      const auto remedy = Remedy(state % (static_cast<int>(Remedy::GoOn) + 1));
      if (state == 0)
        card->Show({.nextRow = 8, .nextLabel = "Car 8"});
      else
        card->Show({0, PortState(state), 7, "Car 7", "LR-7", "a reason", 5 * state, 0, "", remedy});
      layout->addWidget(card);
    }
    cards.setMinimumWidth(700); // no word is made smaller
    cards.show();
  }

  QWidget cards;
  WindowStates states;
};

constexpr char Table[] = CASES "fleet_states.txt";

struct FleetStates : testing::TestWithParam<std::string> {};

TEST_P(FleetStates, AreAsDescribed) {
  for (int tries = 0; tries < 5; ++tries)
    if (FleetRun().states.Check(Table, CASES "fleet_states/", GetParam())) return;
  ADD_FAILURE() << "a radio was late each time";
}
INSTANTIATE_TEST_SUITE_P(, FleetStates, testing::ValuesIn(WindowStates::NamesIn(Table)),
                         [](const auto& state) { return state.param; });

} // namespace
} // namespace mr4500x
