#include "messages.h"

#include <algorithm>
#include <system_error>

namespace mr4500x {
namespace {

using enum Transfer;
using enum Outcome;
using enum MessageIcon;

constexpr int MostDifferencesShown = 8;

struct MessageRow {
  std::optional<Transfer> transfer; // none: every transfer
  Outcome outcome;
  Message message; // its text follows the port's name if it begins with ":" or a blank
};

// clang-format off
const MessageRow Rows[] = {
    {{},        PortNotOpened, {Critical,    "Error", ": "}}, // plus the system's description
    {{},        NoResponse,    {Exclamation, "Communication port error", " port don't respond, please check your connection!"}},
    {{},        WrongModel,    {Exclamation, "Error", "The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!"}},
    {Read,      Complete,      {None,        "Read Complete", "Read data is complete. Press OK button to continue ..."}},
    {Read,      Interrupted,   {Exclamation, "Read Interrupt", "Reading is interrupted, please retry Read."}},
    {Read,      DataError,     {Exclamation, "Data Error", "Read data error, please retry Read."}},
    {Read,      DisplayError,  {Exclamation, "Data Error", "Data read can't display correctly. Please confirm."}},
    {Write,     Complete,      {None,        "Write Complete", "Write data is complete. Press OK button to continue ..."}},
    {Write,     Interrupted,   {Exclamation, "Write Interrupt", "Writing is interrupted, please retry Write."}},
    {Write,     DataError,     {Exclamation, "Data Error", "Writing data error, please retry Write."}},
    {ReadInfo,  Complete,      {None,        "Read Information Completely", "Read information is complete. Press OK button to continue ..."}},
    {ReadInfo,  DataError,     {Exclamation, "Read Information Error", "Read information error, please try again."}},
    {ReadInfo,  DisplayError,  {Exclamation, "Information Error", "Data that has been read can't correctly display!"}},
    {WriteInfo, Complete,      {None,        "Write Information Completely", "Write information completely. Press OK to continue."}},
    {WriteInfo, Interrupted,   {Exclamation, "Information Error", "Writing information is interrupted, please try again."}},
    {WriteInfo, DataError,     {Exclamation, "Write Information Error", "Writing information error, please try again."}},
};
// clang-format on

std::optional<Message> MessageOf(Transfer transfer, Outcome outcome) {
  const auto row = std::ranges::find_if(Rows, [&](const MessageRow& each) {
    return each.transfer.value_or(transfer) == transfer && each.outcome == outcome;
  });
  return row != std::end(Rows) ? std::optional(row->message) : std::nullopt;
}

// The reason why nothing was loaded, if the message does not contain it.
std::string ReasonFor(const LoadResult& result) {
  if (result.outcome != LoadOutcome::Missing && result.outcome != LoadOutcome::Damaged) return "";
  if (result.damagedItem == 0) return " (" + result.systemReason + ')';
  const std::string item = "item " + std::to_string(result.damagedItem);
  return result.endsInItem ? " (ends within " + item + ')' : " (" + item + " is not what belongs there)";
}

} // namespace

std::optional<Message> MessageFor(LoadOutcome outcome) {
  if (outcome == LoadOutcome::Loaded) return std::nullopt;
  if (outcome == LoadOutcome::LaterVersion) return Message{Information, "Error", "Later Version of this File!"};
  if (outcome == LoadOutcome::ErrorVersion) return Message{Information, "Error", "Error Version of this File!"};
  return Message{Exclamation, "Open File Error", "File has been damaged!"};
}

std::vector<std::string> LinesFor(const LoadResult& result) {
  const std::string reason = ReasonFor(result);
  std::vector<std::string> lines;
  if (result.markerNotEmpty) lines.push_back(NewVersionNotice.text);
  if (const auto failure = MessageFor(result.outcome)) lines.push_back(failure->text + reason);
  return lines;
}

std::string LineFor(const TextInput& input) {
  if (input.outcome == TextInput::Outcome::Failed) return "can't be read (" + input.reason + ')';
  return input.outcome == TextInput::Outcome::TooLong ? "is too long" : "";
}

Message MessageForFailed(SaveCommand command) {
  return {Exclamation, "Save File Error",
          command == SaveCommand::SaveAs ? "File hasn't been saved. Please redo!"
                                         : "File hasn't been saved. Please try again!"};
}

std::string PortHint(const std::string& device, const std::optional<std::string>& failure, const std::string& user) {
  const auto isFor = [&](std::errc reason) { return *failure == std::make_error_code(reason).message(); };
  if (device.empty()) return "There is no device for this port. Plug in the cable, and choose Port again.";
  if (!failure) return device;
  if (isFor(std::errc::device_or_resource_busy))
    return device + " is in use by " + (user.empty() ? "another program" : user) + ". Close that program first.";
  if (isFor(std::errc::permission_denied))
    return device + ": you have no permission to use it. Join the group dialout, then log in again.";
  return device + ": " + *failure + '.';
}

ProgressWords ProgressOf(Transfer transfer) {
  if (transfer == Read) return {"Read", "Reading data from the radio ..."};
  if (transfer == Write) return {"Write", "Write data to the radio ..."};
  if (transfer == WriteInfo) return {"Write Embedded Information", "Write embedded information to radio ..."};
  // "Emedded": misspelt on purpose
  return {"Read Emedded Information", "Reading embedded information from the radio ..."};
}

Message BandQuestion() {
  return {Exclamation, "Frequency Band",
          "The frequency band is different from the destination radio model.Are you still continue?"};
}

Message CompletionOf(Transfer transfer) {
  return MessageOf(transfer, Complete).value();
}

std::optional<Message> FailureOf(const ExchangeResult& result) {
  if (result.outcome == Complete) return std::nullopt;
  auto message = MessageOf(result.transfer, result.outcome);
  if (message && (message->text[0] == ':' || message->text[0] == ' ')) message->text.insert(0, result.port);
  if (result.outcome == PortNotOpened)
    message->text +=
        result.systemDescription.empty() ? "The port failed while it was being set up." : result.systemDescription;
  return message;
}

Message KeptWorkQuestion(const KeptCopy& copy) {
  std::string text = "Unsaved work was kept on " + copy.at + ". It came from " + copy.source + ". Differences:\n\n";
  std::size_t end = 0;
  for (int line = 0; line < MostDifferencesShown && end < copy.differences.size(); ++line)
    end = std::min(copy.differences.find('\n', end), copy.differences.size() - 1) + 1;
  text.append(copy.differences, 0, end);
  const auto more =
      std::count(copy.differences.begin() + static_cast<std::ptrdiff_t>(end), copy.differences.end(), '\n');
  if (more > 0) text += "and " + std::to_string(more) + " more\n";
  return {Exclamation, "Unsaved Work", text + "\nDo you want to open it? No keeps it under File, Recover..."};
}

Message UnreadableCopiesNotice(const std::vector<std::string>& paths) {
  std::string text = "Unsaved work was kept, but can't be opened: it is damaged or was made by a newer version.\n";
  for (const std::string& path : paths)
    text += '\n' + path;
  return {Exclamation, "Unsaved Work", text};
}

Message OpenTwiceNotice(const std::string& path) {
  return {Information, "Open Twice",
          "The file " + path + " is also open in another window. Each save replaces what the other window has saved."};
}

Message OtherDriveQuestion(const std::string& path) {
  return {Exclamation, "Save",
          "The folder of " + path +
              " is on another drive than when the file was opened. The drive may have been unplugged. Do you want to "
              "save there?"};
}

Message ChangedFileQuestion(const std::string& path) {
  return {Exclamation, "Save",
          "Another program has changed the file " + path + " since it was opened. Do you want to replace it?"};
}

} // namespace mr4500x
