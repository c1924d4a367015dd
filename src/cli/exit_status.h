// How a command ended, as its exit status.
#pragma once

namespace mr4500x {

enum class ExitStatus : int {
  Done = 0,
  Failed = 1, // with its message on standard error; the files are as they were
  UnusableArguments = 2,
};

} // namespace mr4500x
