// The main window, frmMain: owns the image and the editor and runs the commands. The commands themselves are in
// commands.h, the menus and the toolbar in action_table.cpp.
#pragma once

#include "commands.h"
#include "tone_codes.h"

#include <QMainWindow>

#include <functional>
#include <variant>

class QMenu;

namespace mr4500x {

class FrmMain final : public QMainWindow {
  Q_OBJECT

public:
  explicit FrmMain(MainServices services);

  [[nodiscard]] const RadioImage& Image() const { return m_image; }
  [[nodiscard]] const EditorState& State() const { return m_state; }
  void OpenGiven(const std::string& path);
  // Opens a file given on the command line, for instance by a double-click.
  void OpenArgument(const QString& path);
  // Asks about work that an earlier window left unsaved. True if the editor shows it now.
  [[nodiscard]] bool OpenLeftWork();
  // Keeps unsaved work, as after a crash, and ends the event loop.
  void EndBySignal(int signal);
  // Keeps unsaved work when the session allows no question. The session then continues, or soon asks the program to
  // quit, which ends it as by a signal.
  void KeepForSession();
  // Asks like Exit when the user logs out. Returns false if the desktop must not end the program.
  [[nodiscard]] bool MayLogOut();
  [[nodiscard]] EditorPanel& Panel() { return *m_panel; }

protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  enum class View { Channel, Function };
  using Event = void (FrmMain::*)();
  using Handler = std::variant<Command, Event>;
  struct ActionRow;

  void BuildMenus();
  void AddRow(QMenu& menu, const ActionRow& row);
  void BuildToolbar();
  void Connect(QAction& action, const ActionRow& row, QAction* FrmMain::*held);
  void BuildPanel();

  [[nodiscard]] CommandContext Context();
  void Load();
  void TakeDesignSize();
  void ShowView(View view);
  void ShowState(); // updates the ticks in the menus
  void StoreGeometry();
  // Runs a command unless another is running. Afterwards the port and the progress window are closed in any case.
  void RunCommand(const std::function<void(const CommandContext&)>& command);

  void mnuFileExit_Click() { close(); }
  void mnuOptionChannels_Click() { ShowView(View::Channel); }
  void mnuOptionFunction_Click() { ShowView(View::Function); }

  MainServices m_services;
  FieldTexts m_texts;
  RadioImage m_image;
  EditorState m_state;
  EditorPanel* m_panel = nullptr;
  StatusPanels* m_status = nullptr;
  QWidget* m_background = nullptr; // the background of the panel
  WorkKeeper* m_keeper = nullptr;
  // The actions whose state changes.
  QAction* m_mnuFileClose = nullptr;
  QAction* m_mnuOptionChannels = nullptr;
  QAction* m_mnuOptionFunction = nullptr;
  QAction* m_mnuProgramVerify = nullptr;
  QAction* m_mnuProgramBackUp = nullptr;
  QAction* m_mnuHelpPractise = nullptr;
  QAction* m_btnChanWin = nullptr;
  QAction* m_btnFuncWin = nullptr;
  RecentItems m_mnuRecent{};
  bool m_running = false;
  bool m_endsUnasked = false; // when the session ends
  bool m_mayLogOut = false;   // the question was answered, and there was no input since
};

} // namespace mr4500x
