// The main window, frmMain: owns the image, the editor and the commands and connects them. The commands themselves are
// in file_commands.h and the like, the menus and the toolbar in action_table.cpp.
#pragma once

#include "editor_state.h"
#include "field_texts.h"
#include "main_services.h"
#include "radio_image.h"
#include "recent_files.h"

#include <QMainWindow>

#include <array>
#include <functional>
#include <memory>

class QAction;
class QMenu;

namespace mr4500x {

class EditorPanel;
class EmbedCommands;
class FileCommands;
class RadioCommands;
class RecentMenu;
class StatusPanels;

class FrmMain final : public QMainWindow {
  Q_OBJECT

public:
  explicit FrmMain(MainServices services);
  ~FrmMain() override;

  [[nodiscard]] const RadioImage& Image() const { return m_image; }
  [[nodiscard]] const EditorState& State() const { return m_state; }
  // Opens a file given on the command line, for instance by a double-click.
  void OpenGiven(const std::string& path);
  [[nodiscard]] EditorPanel& Panel() { return *m_panel; }

protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  enum class View { Channel, Function };
  struct ActionRow;

  void BuildMenus();
  void AddRow(QMenu& menu, const ActionRow& row);
  void BuildToolbar();
  void BuildPanel();
  void BuildCommands();

  void Load();
  void TakeDesignSize();
  void ShowView(View view);
  // Runs a command unless another is running. Afterwards the port and the progress window are closed in any case.
  void RunCommand(const std::function<void()>& command);

  void mnuFileOpen_Click();
  void mnuFileClose_Click();
  void mnuFileSave_Click();
  void mnuFileSaveAs_Click();
  void mnuFilePrint_Click();
  void mnuFileExit_Click();
  void mnuEditCopy_Click();
  void mnuEditPaste_Click();
  void mnuOptionChannels_Click();
  void mnuOptionFunction_Click();
  void mnuProgramRead_Click();
  void mnuProgramWrite_Click();
  void mnuEmbedInfo_Click();
  void mnuEmbedRead_Click();
  void mnuEmbedWrite_Click();
  void mnuCommPortPort_Click();
  void mnuHelpContents_Click();
  void mnuHelpIndex_Click();
  void mnuHelpAbout_Click();
  void tlbMainNew_ButtonClick() {} // does nothing: Close makes a new configuration

  MainServices m_services;
  FieldTexts m_texts;
  RadioImage m_image;
  EditorState m_state;
  EditorPanel* m_panel = nullptr;
  StatusPanels* m_status = nullptr;
  std::unique_ptr<RecentMenu> m_recent;
  std::unique_ptr<FileCommands> m_fileCommands;
  std::unique_ptr<RadioCommands> m_radioCommands;
  std::unique_ptr<EmbedCommands> m_embedCommands;
  // The actions whose state changes.
  QAction* m_mnuFileClose = nullptr;
  QAction* m_mnuOptionChannels = nullptr;
  QAction* m_mnuOptionFunction = nullptr;
  QAction* m_btnChanWin = nullptr;
  QAction* m_btnFuncWin = nullptr;
  std::array<QAction*, RecentFileCount> m_mnuRecent{};
  bool m_running = false;
};

} // namespace mr4500x
