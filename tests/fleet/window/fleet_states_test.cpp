// The fleet's window in many states, compared as a whole with their descriptions. See fleet_states.txt.
#include "data_file.h"
#include "files_fixture.h"
#include "frm_fleet.h"
#include "port_card.h"
#include "rows.h"

#include "window_states.h"

namespace mr4500x {
namespace {

struct FleetRun : FilesTest {
  FleetRun() {
    qputenv("XDG_STATE_HOME", Path("state").c_str());
    RadioImage image;
    ResetToDefaults(image, {});
    EXPECT_TRUE(SaveDataFile(files, Path("taxi.K4X"), image));
    Put("rows.csv", "label,radio\nCar 1,LR-1\nCar 2,LR-2\nCar 3,\n");
    PutPortDevices("ports.ini", "");
    states.main = [this] { return window.get(); };
    states.isLate = [this] {
      const auto frames = window ? window->findChildren<QFrame*>() : QList<QFrame*>();
      return std::ranges::any_of(frames, [](auto* frame) { return frame->accessibleName().endsWith(": FAILED"); });
    };
    states.replaced = {
        {QRegularExpression(QChar(0x200B)), ""}, // where a long word may be broken
        {QRegularExpression(QRegularExpression::escape(QString::fromStdString(Path("")))), "FOLDER/"},
        {QRegularExpression("/dev/pts/\\d+|\\b\\d+(?=\")(?<=COM\\d  \\d)"), "DEVICE"},
        {QRegularExpression("(COM\\d  )\\d+"), "\\1DEVICE"},
        {QRegularExpression("\\d\\d:\\d\\d(:\\d\\d)?(?= |\")"), "TIME"},
        {QRegularExpression("\\d{4}-\\d\\d-\\d\\d"), "DATE"},
        {QRegularExpression("[^ \"]+-\\d+-[0-9a-f]{1,4}\\b"), "BENCH"},
        {QRegularExpression("(?<=LR-1_)\\d+_\\d+|(?<=SHA-256 )[0-9a-f]+|(?<=DATE  )\\S+ +|\\d+\\.\\d +(?=\")"),
         "VALUE"},
        {QRegularExpression("\\(\\d,\\d\\) (?=Frame)"), ""}}; // as many cards side by side as fit
    const auto word = [this](const char* name, auto act) {
      states.words[name] = [act](const QString& rest) { return act(rest.toStdString()); };
    };
    word("radio", [this](const std::string& options) { return AddRadio(options), true; });
    word("put", [this](const std::string& rest) {
      Put(rest.substr(0, rest.find(' ')), Unescaped(rest.substr(rest.find(' ') + 1)));
      return true;
    });
    word("remove", [this](const std::string& name) { return std::filesystem::remove(Path(name)); });
    word("open", [this](const std::string&) {
      window = std::make_unique<FrmFleet>(files, Path("ports.ini"), QString::fromStdString(Path("own.ini")));
      return window->show(), true;
    });
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
    word("activate", [this](const std::string&) {
      QEvent activated(QEvent::WindowActivate);
      return QCoreApplication::sendEvent(window.get(), &activated), true;
    });
    word("cards", [this](const std::string&) { return ShowCards(), true; });
  }
  ~FleetRun() override {
    window.reset();
    for (const auto& radio : radios) {
      radio->terminate();
      radio->waitForFinished();
    }
  }
  void TestBody() override {}
  // At the next COM port.
  void AddRadio(const std::string& options) {
    QProcess& radio = *radios.emplace_back(std::make_unique<QProcess>());
    radio.start(LR7200_SIMULATOR, QStringList{"--number", QString("LR-%1").arg(radios.size())} +
                                      QString::fromStdString(options).split(' ', Qt::SkipEmptyParts));
    while (!radio.canReadLine() && radio.waitForReadyRead()) {
    }
    devices += "COM" + std::to_string(radios.size()) + "=" + radio.readLine().toStdString();
    PutPortDevices("ports.ini", devices);
  }
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

  std::vector<std::unique_ptr<QProcess>> radios;
  std::string devices;
  std::unique_ptr<FrmFleet> window;
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
