// Rules that hold for the options of every command.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace mr4500x {

// An option with an empty value is unusable: it is an unset variable of a script.
inline void RefuseEmptyValues(CLI::App& app) {
  const auto check = [](const std::string& value) { return std::string(value.empty() ? "is empty" : ""); };
  for (CLI::Option* const option : app.get_options())
    if (!option->get_positional() && option->get_items_expected_max() > 0) option->check(check);
  for (CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
    RefuseEmptyValues(*command);
}

} // namespace mr4500x
