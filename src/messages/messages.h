// The messages about data files, kept copies and transfers.
#pragma once

#include "data_file.h"
#include "exchange.h"
#include "input.h"
#include "kept_copies.h"
#include "message_view.h"

namespace mr4500x {

struct Message {
  MessageIcon icon;
  std::string title;
  std::string text;
  bool operator==(const Message&) const = default;
};

enum class SaveCommand : std::uint8_t { Save, SaveAs };

inline const Message NewVersionNotice = {MessageIcon::Exclamation, "New Version File",
                                         "This software version isn't applied to the radio, please use new software."};
[[nodiscard]] std::optional<Message> MessageFor(LoadOutcome outcome); // nullopt for Loaded
// The messages with their reasons, one per line.
[[nodiscard]] std::vector<std::string> LinesFor(const LoadResult& result);
[[nodiscard]] std::string LineFor(const TextInput& input); // "" if it was read
[[nodiscard]] Message MessageForFailed(SaveCommand command);

// Offers a copy of unsaved work that an earlier window has left.
[[nodiscard]] Message KeptWorkQuestion(const KeptCopy& copy);
// Lists the paths of copies that can't be opened.
[[nodiscard]] Message UnreadableCopiesNotice(const std::vector<std::string>& paths);
[[nodiscard]] Message OpenTwiceNotice(const std::string& path);
[[nodiscard]] Message OtherDriveQuestion(const std::string& path);
[[nodiscard]] Message ChangedFileQuestion(const std::string& path);
// Shown before saving or writing data whose hidden part was lost, and before writing such embedded information.
inline const Message LostDataQuestion = {
    MessageIcon::Exclamation, "Data Lost",
    "The read was interrupted, or the file could not be opened. The editor still shows the settings, but data that it "
    "doesn't show was lost. To get it back, answer No, then read the radio again or open the file again. Write sends "
    "no "
    "embedded information, so the radio keeps its own. Do you want to continue?"};
inline const Message LostInfoQuestion = {
    MessageIcon::Exclamation, "Data Lost",
    "The read was interrupted, and the embedded information was lost. To get it back, answer No, then read it from the "
    "radio again or enter it again. Do you want to write what is left of it?"};

// The device of a port, or the reason why the port can't be chosen and what to do. `device` is empty if there is none,
// `failure` is the system's reason, and `user` is the program that uses the port, if known.
[[nodiscard]] std::string PortHint(const std::string& device, const std::optional<std::string>& failure,
                                   const std::string& user);

struct ProgressWords {
  std::string_view title;
  std::string_view text;
};

[[nodiscard]] ProgressWords ProgressOf(Transfer transfer);
[[nodiscard]] Message BandQuestion();
// Shown while the port is still open.
[[nodiscard]] Message CompletionOf(Transfer transfer);
// Shown at the end; nullopt for a transfer that completed or that the user declined.
[[nodiscard]] std::optional<Message> FailureOf(const ExchangeResult& result);

} // namespace mr4500x
