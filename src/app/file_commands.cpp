// The commands of the File menu, and the steps before the program exits.
#include "commands.h"

#include "channel_list.h"
#include "channel_text.h"
#include "conventions.h"
#include "data_file.h"
#include "dialogs.h"
#include "editor_panel.h"
#include "file_access.h"
#include "input.h"
#include "messages.h"
#include "program_title.h"
#include "settings.h"
#include "window_parts.h"
#include "work_keeper.h"

#include <QAction>
#include <QApplication>
#include <QFontMetrics>

#include <algorithm>

namespace mr4500x {
namespace {

constexpr char UnsavedDataText[] = "Data hasn't been saved. Do you want to continue?";
constexpr char OpenFilter[] = "Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y";
constexpr char SaveFilter[] = "Data files(*.K4X)|*.K4X|Data files(*.K4Y)|*.K4Y";
constexpr char DefaultExtension[] = "K4X";
constexpr char ImportTitle[] = "Import Channels", ExportTitle[] = "Export Channels", SampleTitle[] = "Save Sample List";
constexpr char ExportFilter[] =
    "Channel lists with the window's captions(*.csv)|*.csv|Channel lists with identifiers(*.csv)|*.csv";
constexpr char ListFilter[] = "Channel lists(*.csv)|*.csv";
constexpr std::size_t LongestList = std::size_t{1} << 20; // bytes
constexpr int RecentCharacters = 80;                      // a longer entry is elided in its middle

// The editor now holds the data of this file.
void BelongTo(const CommandContext& context, const std::string& path) {
  const bool isOther = context.state.origin != Origin(FileOrigin{path});
  context.SetOrigin(FileOrigin{path});
  context.state.device = DeviceOfFolder(context.services.files, path);
  context.state.content = ContentHash(context.services.files, path);
  context.keeper.Settled(context.state.origin);
  context.state.ModifiedFlag = false;
  context.state.ImageIsPartial = false;
  context.closeItem.setEnabled(true);
  AddRecent(context.services.files, context.services.settingsFile, path);
  commands::ShowRecentFiles(context);
  if (isOther && context.keeper.IsOpenElsewhere(path)) context.Show(OpenTwiceNotice(path));
}

// Ok if there is nothing to ask about.
Answer AskAboutUnsavedData(const CommandContext& context) {
  if (!context.state.ModifiedFlag) return Answer::Ok;
  // Without a copy, the other answers can lose the work: Yes goes on even if its file dialog is cancelled.
  const auto buttons = context.keeper.IsCopyMissing() ? MessageButtons::YesNoOrCancel : MessageButtons::YesNoCancel;
  const Answer answer = context.Show({MessageIcon::Exclamation, std::string(ProgramTitle), UnsavedDataText}, buttons);
  if (answer == Answer::Yes) commands::Save(context); // goes on even if saving fails
  return answer;
}

CloseEnd CloseData(const CommandContext& context) {
  if (context.panel.HasOpenEditor()) context.keeper.PutAside(); // the text that is given up
  context.panel.HideOpenEditors();
  if (context.state.origin == Origin() && !context.keeper.HasTakenWork()) return CloseEnd::Closed;
  if (AskAboutUnsavedData(context) == Answer::Cancel) return CloseEnd::Cancelled;
  context.keeper.Replaced();
  context.SetOrigin(NoOrigin());
  context.panel.FillReset(context.services.now());
  context.keeper.Settled(context.state.origin);
  context.closeItem.setEnabled(false);
  context.state.ModifiedFlag = false;
  context.state.ImageIsPartial = context.state.InfoIsPartial = false;
  return CloseEnd::Closed;
}

// The editor has been closed and filled with kept work, which is in no file of the user's yet.
void BelongToNothing(const CommandContext& context, const KeptCopy& copy) {
  if (copy.info) context.image.EmbeddedInfoBlock = *copy.info;
  context.keeper.WorkTaken(copy);
  context.closeItem.setEnabled(true);
  context.state.ImageIsPartial = false;
}

void ReportMissing(const CommandContext& context, const std::string& path) {
  context.Show(*MessageFor(LoadOutcome::Missing));
  RemoveRecent(context.services.files, context.services.settingsFile, path);
  commands::ShowRecentFiles(context);
}

// Returns the error message, if any.
std::optional<Message> LoadImage(const CommandContext& context, const std::function<LoadResult()>& load) {
  LoadResult result;
  static_cast<void>(Succeeds([&] { return result = load(), true; }));
  if (result.markerNotEmpty) context.Show(NewVersionNotice);
  return MessageFor(result.outcome);
}

bool LoadInto(const CommandContext& context, const std::string& path) {
  const RadioImage before = context.image;
  std::optional<Message> message =
      LoadImage(context, [&] { return LoadDataFile(context.services.files, path, context.image); });
  if (!message) { // no file holds them, and the image still has another radio's
    context.keeper.Replaced();
    context.image.RadioIdBlock = {};
    context.image.FirmwareVersionBlock = {};
  }
  if (!message && !Succeeds([&] { return context.panel.Fill(), true; })) message = MessageFor(LoadOutcome::Damaged);
  if (!message) return true;
  if (context.image != before) context.state.ImageIsPartial = true;
  context.Show(*message);
  return false;
}

std::optional<std::string> AskOpenName(const CommandContext& context, const char* title, const std::string& folder) {
  return context.services.dialogs.AskOpen({title, OpenFilter, folder, /*proposedName*/ "", DefaultExtension});
}

// After a read the last file is another radio's.
std::string ProposedName(const CommandContext& context) {
  const std::string& last = context.state.LastFileName;
  if (context.state.origin != Origin(RadioOrigin{Transfer::Read})) return last;
  return (last.empty() ? "" : FolderOf(last) + Separator) + context.ProposedStem() + ".K4X";
}

std::optional<std::string> AskSaveName(const CommandContext& context, const char* title) {
  return context.services.dialogs.AskSave(
      {title, SaveFilter, context.services.folderForFiles, ProposedName(context), DefaultExtension});
}

// To the path last chosen.
void WriteFile(const CommandContext& context, SaveCommand command) {
  const std::string& path = context.state.LastFileName;
  const bool isSame = context.state.origin == Origin(FileOrigin{path});
  const bool isOnOtherDrive = isSame && context.state.device != DeviceOfFolder(context.services.files, path);
  if (isOnOtherDrive && context.Show(OtherDriveQuestion(path), MessageButtons::YesNo) != Answer::Yes) return;
  const auto content = isSame ? ContentHash(context.services.files, path) : std::nullopt;
  const bool isChanged = content && content != context.state.content;
  if (isChanged && context.Show(ChangedFileQuestion(path), MessageButtons::YesNo) != Answer::Yes) return;
  if (!Succeeds([&] { return SaveDataFile(context.services.files, path, context.image); }))
    return static_cast<void>(context.Show(MessageForFailed(command)));
  BelongTo(context, path);
  context.status.ShowBriefly("Saved to " + QString::fromStdString(path));
}

void SaveList(const CommandContext& context, const char* title, const std::string& path, const std::string& list) {
  const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(list.data()), list.size());
  const FileResult saved = ReplaceFile(context.services.files, path, bytes, Surplus::Drop);
  if (saved)
    context.status.ShowBriefly("Saved to " + QString::fromStdString(path));
  else
    context.Show({MessageIcon::Exclamation, title, "The file " + path + " can't be written (" + saved.Reason() + ")."});
}

} // namespace

namespace commands {

void Open(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  if (const std::optional<std::string> path = AskOpenName(context, "Open", context.services.folderForFiles))
    OpenGiven(context, *path);
}

void OpenGiven(const CommandContext& context, const std::string& path) {
  context.panel.CommitOpenEditors();
  context.state.LastFileName = path;
  if (IsMissing(context.services.files, path)) return ReportMissing(context, path);
  // The file is already open and complete. After an interrupted read it is opened again, because it has the lost data.
  if (context.state.origin == Origin(FileOrigin{path}) && !context.state.ImageIsPartial) return;
  if (CloseData(context) == CloseEnd::Cancelled) return;
  if (!Succeeds([&] { return LoadInto(context, path); })) return;
  // A kept copy is deleted when there are ten newer ones, so Save must not write to it.
  if (FolderOf(path) == context.services.keptFolder)
    return BelongToNothing(context, ReadKeptCopy(context.services.files, path).value_or(KeptCopy{{}, "", path, ""}));
  BelongTo(context, path);
}

// Does not change the name that Save proposes, because none of these copies is permanent.
void Recover(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  context.keeper.AwaitKept(); // what was just put aside
  const auto copies = CopiesPutAside(context.services.files, context.services.keptFolder);
  if (copies.empty()) return context.status.ShowBriefly("No unsaved work is kept.");
  const std::optional<std::string> path = AskCopy(copies, &context.window);
  if (!path) return;
  const std::string last = context.state.LastFileName;
  OpenGiven(context, *path);
  context.state.LastFileName = last;
}

void Close(const CommandContext& context) {
  static_cast<void>(CloseData(context));
}

void Save(const CommandContext& context) {
  const Origin& origin = context.state.origin;
  if (std::holds_alternative<RadioOrigin>(origin)) return SaveAs(context);
  context.panel.CommitOpenEditors();
  if (!MayStore(context)) return;
  std::optional<std::string> path;
  if (const auto* const file = std::get_if<FileOrigin>(&origin))
    path = file->path;
  else
    path = AskSaveName(context, "Save");
  if (!path) return;
  context.state.LastFileName = *path;
  context.panel.Collect();
  WriteFile(context, SaveCommand::Save);
}

void SaveAs(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  if (!MayStore(context)) return;
  context.panel.Collect();
  const std::optional<std::string> path = AskSaveName(context, "Save As");
  if (!path) return;
  context.state.LastFileName = *path;
  WriteFile(context, SaveCommand::SaveAs);
}

void Compare(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  const auto* const file = std::get_if<FileOrigin>(&context.state.origin);
  const std::string folder = file != nullptr ? FolderOf(file->path) : context.services.folderForFiles;
  const std::optional<std::string> path = AskOpenName(context, "Compare with File", folder);
  if (!path) return;
  if (IsMissing(context.services.files, *path)) return ReportMissing(context, *path);
  RadioImage other;
  const auto load = [&] { return LoadInput(context.services.files, *path, nullptr, other); };
  if (const std::optional<Message> failure = LoadImage(context, load))
    context.Show(*failure);
  else
    ShowComparison(context.panel, context.services.files, {*path}, other, context.services.messages, &context.window);
}

void AskImport(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  if (const auto path = context.services.dialogs.AskOpen(
          {ImportTitle, ListFilter, context.services.folderForFiles, /*proposedName*/ "", "csv"}))
    ImportFile(context, *path);
}

void AskExport(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  const MainServices& services = context.services;
  std::size_t filter = 0;
  const auto path = services.dialogs.AskSave(
      {ExportTitle, ExportFilter, services.folderForFiles, context.ProposedStem() + ".csv", "csv", &filter});
  const Configuration shown = context.panel.Shown();
  if (path) SaveList(context, ExportTitle, *path, filter == 0 ? CaptionedCsv(shown) : ChannelsCsv(shown));
}

void SaveSample(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  if (const auto path = context.services.dialogs.AskSave(
          {SampleTitle, ListFilter, context.services.folderForFiles, "sample.csv", "csv"}))
    SaveList(context, SampleTitle, *path, std::string(SampleList));
}

void ImportFile(const CommandContext& context, const std::string& path) {
  std::vector<std::uint8_t> bytes;
  if (ReadFile(context.services.files, path, LongestList + 1, bytes) == ReadOutcome::Read &&
      bytes.size() <= LongestList)
    ImportChannels(context, {bytes.begin(), bytes.end()});
  else
    context.Show({MessageIcon::Exclamation, ImportTitle, "The file " + path + " can't be read."});
}

void ImportChannels(const CommandContext& context, const std::string& text) {
  context.panel.CommitCells();
  ChannelList list = ReadChannelList(text, context.panel.Texts());
  Configuration values = context.panel.ShownUnfinished();
  const std::vector<RefusedCell> refused = ApplyCells(values, CellsOf(list.rows), context.panel.Texts());
  list.bad.insert(list.bad.end(), refused.begin(), refused.end());
  if (!list.bad.empty()) {
    Refusals lines;
    for (const std::string& bad : TextsOf(list.bad))
      lines.push_back("Line " + bad);
    context.Show({MessageIcon::Exclamation, ImportTitle, MessageOf(lines)});
    return;
  }
  context.panel.Change(values, ImportTitle);
  if (list.leftOut.empty())
    return context.status.ShowBriefly("Channels imported: " + QString::number(list.rows.size()));
  context.Show({MessageIcon::Information, ImportTitle, MessageOf(list.leftOut, LeftOutText)});
}

void ShowRecentFiles(const CommandContext& context) {
  const RecentFileList list = RecentFiles(context.services.files, context.services.settingsFile);
  for (std::size_t i = 0; i < list.size(); ++i) {
    QAction& item = *context.recentItems[i];
    const std::string path = list[i].value_or("");
    const QFontMetrics font(QApplication::font("QMenu"));
    QString caption = font.elidedText(QString::fromStdString(list[i] ? RecentCaption(i + 1, path) : ""),
                                      Qt::ElideMiddle, RecentCharacters * font.averageCharWidth());
    item.setText(caption.replace(QLatin1Char('&'), QLatin1String("&&"))); // no access key in a path
    item.setData(QString::fromStdString(path));
    item.setVisible(list[i].has_value());
  }
}

bool OpenLeftWork(const CommandContext& context) {
  const std::optional<KeptCopy> copy = context.keeper.TakeLeft(context.image);
  if (!copy) return false;
  context.panel.Fill();
  BelongToNothing(context, *copy);
  return true;
}

void StoreProgramSettings(const CommandContext& context) {
  StoreSettings(context.services.files, context.services.settingsFile, context.state.PortToKeep(),
                context.state.LastFileName);
}

CloseEnd PrepareExit(const CommandContext& context) {
  StoreProgramSettings(context);
  const Answer answer = AskAboutUnsavedData(context);
  if (answer == Answer::Cancel) return CloseEnd::Cancelled;
  if (answer == Answer::No)
    context.keeper.PutAside();
  else
    context.keeper.KeepNow();
  return CloseEnd::Closed;
}

bool MayStore(const CommandContext& context) {
  return !context.state.ImageIsPartial || context.Show(LostDataQuestion, MessageButtons::YesNo) == Answer::Yes;
}

} // namespace commands
} // namespace mr4500x
