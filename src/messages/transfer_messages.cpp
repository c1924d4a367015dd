#include "transfer_messages.h"

#include <algorithm>
#include <array>

namespace mr4500x {
namespace {

using enum Transfer;
using enum Outcome;
using enum MessageIcon;

struct ProgressRow {
  Transfer transfer;
  ProgressWords words;
};

struct MessageRow {
  Transfer transfer;
  Outcome outcome;
  MessageIcon icon;
  const char* title;
  const char* text;
};

struct CommonRow { // for every transfer
  Outcome outcome;
  MessageIcon icon;
  const char* title;
  const char* text; // follows the port's name if it begins with ":" or a blank
};

// clang-format off
constexpr std::array ProgressRows = {
    ProgressRow{Read,      {"Read", "Reading data from the radio ..."}},
    ProgressRow{Write,     {"Write", "Write data to the radio ..."}},
    ProgressRow{ReadInfo,  {"Read Emedded Information", "Reading embedded information from the radio ..."}}, // "Emedded": misspelt on purpose
    ProgressRow{WriteInfo, {"Write Embedded Information", "Write embedded information to radio ..."}},
};

constexpr std::array CommonRows = {
    CommonRow{PortNotOpened, Critical,    "Error", ": "}, // plus the system's description
    CommonRow{NoResponse,    Exclamation, "Communication port error", " port don't respond, please check your connection!"},
    CommonRow{WrongModel,    Exclamation, "Error", "The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!"},
};

constexpr std::array MessageRows = {
    MessageRow{Read,      Complete,     None,        "Read Complete", "Read data is complete. Press OK button to continue ..."},
    MessageRow{Read,      Interrupted,  Exclamation, "Read Interrupt", "Reading is interrupted, please retry Read."},
    MessageRow{Read,      DataError,    Exclamation, "Data Error", "Read data error, please retry Read."},
    MessageRow{Read,      DisplayError, Exclamation, "Data Error", "Data read can't display correctly. Please confirm."},
    MessageRow{Write,     Complete,     None,        "Write Complete", "Write data is complete. Press OK button to continue ..."},
    MessageRow{Write,     Interrupted,  Exclamation, "Write Interrupt", "Writing is interrupted, please retry Write."},
    MessageRow{Write,     DataError,    Exclamation, "Data Error", "Writing data error, please retry Write."},
    MessageRow{ReadInfo,  Complete,     None,        "Read Information Completely", "Read information is complete. Press OK button to continue ..."},
    MessageRow{ReadInfo,  DataError,    Exclamation, "Read Information Error", "Read information error, please try again."},
    MessageRow{ReadInfo,  DisplayError, Exclamation, "Information Error", "Data that has been read can't correctly display!"},
    MessageRow{WriteInfo, Complete,     None,        "Write Information Completely", "Write information completely. Press OK to continue."},
    MessageRow{WriteInfo, Interrupted,  Exclamation, "Information Error", "Writing information is interrupted, please try again."},
    MessageRow{WriteInfo, DataError,    Exclamation, "Write Information Error", "Writing information error, please try again."},
};
// clang-format on

constexpr char FailedAfterOpening[] = "The port failed while it was being set up.";

Message CommonMessage(const CommonRow& row, const ExchangeResult& result) {
  const std::string text = row.text;
  const bool namesPort = text.starts_with(':') || text.starts_with(' ');
  Message message = {row.icon, row.title, namesPort ? result.port + text : text};
  if (result.outcome == PortNotOpened)
    message.text += result.systemDescription.empty() ? FailedAfterOpening : result.systemDescription;
  return message;
}

std::optional<Message> MessageOf(Transfer transfer, Outcome outcome) {
  const auto row = std::ranges::find_if(
      MessageRows, [&](const MessageRow& each) { return each.transfer == transfer && each.outcome == outcome; });
  if (row == MessageRows.end()) return std::nullopt;
  return Message{row->icon, row->title, row->text};
}

} // namespace

ProgressWords ProgressOf(Transfer transfer) {
  return std::ranges::find(ProgressRows, transfer, &ProgressRow::transfer)->words;
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
  const auto common = std::ranges::find(CommonRows, result.outcome, &CommonRow::outcome);
  if (common != CommonRows.end()) return CommonMessage(*common, result);
  return MessageOf(result.transfer, result.outcome);
}

} // namespace mr4500x
