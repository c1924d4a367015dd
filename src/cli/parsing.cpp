#include "parsing.h"

#include "arguments.h"
#include "text.h"
#include "utf8.h"

#include <span>

namespace mr4500x {
namespace {

// Empty ones, -o=OUT, which would mean "=OUT", an option in the place of a value, and a value of a flag.
void RefuseUnusableValues(CLI::App& app) {
  for (CLI::Option* const option : app.get_options()) {
    const auto check = [option, &app](const std::string& value) -> std::string {
      if (!option->get_snames().empty() && value.starts_with('='))
        return "the value of a short option follows without =, as in -oOUT";
      if (!option->get_positional() && value.starts_with('-') && app.get_option_no_throw(value) != nullptr)
        return "has no value before " + value;
      return Trimmed(value).empty() ? "is empty" : "";
    };
    if (option->get_items_expected_max() == 0)
      option->disable_flag_override();
    else if (option->get_name() != "TEXT")
      option->check(check);
  }
  for (CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
    RefuseUnusableValues(*command);
}

// The message for a word that is not a command, or "" if all words are commands.
std::string UnknownCommand(const CLI::App* at, std::span<char* const> words) {
  for (const std::string_view word : words) {
    if (at->get_require_subcommand_min() == 0 || word.starts_with('-')) return "";
    std::vector<std::string> names;
    const CLI::App* next = nullptr;
    for (const CLI::App* const sub : at->get_subcommands([](const CLI::App*) { return true; })) {
      if (!sub->get_name().empty()) names.push_back(sub->get_name()); // otherwise it is a group of options
      if (sub->get_name() == word) next = sub;
    }
    const std::string nearest = NearestOf(word, names);
    const std::string hint = nearest.empty() ? "--help lists the commands" : "did you mean \"" + nearest + "\"?";
    if (next == nullptr) return '"' + Printable(word) + "\" is not a command; " + hint;
    at = next;
  }
  return "";
}

// The message for an unknown option, or "".
std::string UnknownOption(const CLI::App& app, std::span<char* const> words) {
  const CLI::App* at = &app;
  for (const std::string_view word : words) {
    const auto isIt = [&](const CLI::App* sub) { return sub->get_name() == word; };
    if (const auto subs = at->get_subcommands(isIt); !subs.empty()) at = subs.front();
    std::vector<std::string> names;
    const std::string_view name = word.substr(0, word.find('='));
    for (const CLI::Option* const option : at->get_options())
      for (const std::string& known : option->get_lnames()) {
        names.push_back("--" + known);
        const bool isFlag = option->get_items_expected_max() == 0;
        if (isFlag && names.back() == name && name != word) return names.back() + ": takes no value";
      }
    if (!name.starts_with("--") || std::ranges::find(names, name) != names.end()) continue;
    const std::string nearest = NearestOf(name, names);
    if (!nearest.empty()) return Printable(name) + ": unknown option; did you mean " + nearest + "?";
  }
  for (const std::string& word : app.remaining(true))
    if (word.starts_with('-') && word != "--") // after "-=" the flags before it are missing
      return Printable(word) + (word.starts_with("-=") ? ": an option before it takes no value" : ": unknown option");
  return "";
}

// The message for "--name=", whose value the parser would take from the next word, or "".
std::string EmptyValue(std::span<char* const> words) {
  for (const std::string_view word : words) {
    if (word == "--") return "";
    if (word.starts_with("--") && word.find('=') == word.size() - 1)
      return Printable(word.substr(0, word.size() - 1)) + ": is empty";
  }
  return "";
}

// The message for a word that the parser has misread, or "": it splits a word in brackets at its commas, and takes an
// unknown option that is a digit for an argument.
std::string MisreadWord(const CLI::App* at, std::span<char* const> words) {
  const bool hasDashes = std::ranges::any_of(words, [](std::string_view word) { return word == "--"; });
  std::vector<std::string> values;
  for (; at != nullptr; at = at->get_subcommands().empty() ? nullptr : at->get_subcommands().front())
    for (const CLI::Option* const option : at->get_options()) {
      values.insert(values.end(), option->results().begin(), option->results().end());
      for (const std::string& value : option->results())
        if (!hasDashes && option->get_positional() && value.starts_with('-') && value != Stream)
          return Printable(value) + ": unknown option";
    }
  for (const std::string_view word : words)
    if (word.starts_with('[') && std::ranges::find(values, word) == values.end())
      return Printable(word) + ": can't be in brackets";
  return "";
}

} // namespace

ValueCheck EachItem(const ValueCheck& check) {
  return [check](const std::string& list) {
    for (const std::string& item : CLI::detail::split(list + ',', ',')) // which drops what is empty at the end
      if (std::string problem = item.empty() ? "has an empty item" : check(item); !problem.empty()) return problem;
    return std::string();
  };
}

void ExcludeEachOther(CLI::App& command, std::initializer_list<const char*> options) {
  for (const char* const name : options)
    for (const char* const otherName : options) {
      CLI::Option* const one = command.get_option_no_throw(name);
      CLI::Option* const other = command.get_option_no_throw(otherName);
      if (one != nullptr && other != nullptr && one != other) one->excludes(other);
    }
}

std::optional<ExitStatus> Parse(CLI::App& app, int argc, char** argv, Terminal& terminal) {
  RefuseUnusableValues(app);
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    constexpr std::size_t MostCharacters = 400; // of a message that names what was given
    return Printable(error.what(), MostCharacters) + "\nRun with --help for more information.\n";
  });
  const auto words = std::span(argv, static_cast<std::size_t>(argc)).subspan(1);
  if (const std::string empty = EmptyValue(words); !empty.empty()) return Refuse(terminal, empty);
  try {
    app.parse(argc, argv);
    const std::string misread = MisreadWord(&app, words);
    return misread.empty() ? std::nullopt : std::optional(Refuse(terminal, misread));
  } catch (const CLI::ParseError& error) {
    const bool isHelp = error.get_exit_code() == 0;
    std::string unknown = UnknownCommand(&app, words);
    if (unknown.empty() && !isHelp) unknown = UnknownOption(app, words);
    if (!unknown.empty()) return Refuse(terminal, unknown);
    app.exit(error, terminal.out, terminal.err);
    return isHelp ? PrintData(terminal) : ExitStatus::UnusableArguments;
  }
}

} // namespace mr4500x
