#include "processes.h"

#include <csignal>

#include <unistd.h>

namespace mr4500x {

void BecomeProgram(const std::string& program, std::vector<std::string> arguments) {
  std::vector<char*> words;
  words.reserve(arguments.size() + 1);
  for (std::string& argument : arguments)
    words.push_back(argument.data());
  words.push_back(nullptr);
  execv(program.c_str(), words.data());
}

void IgnoreBrokenPipes() {
  std::signal(SIGPIPE, SIG_IGN);
}

} // namespace mr4500x
