#pragma once

namespace mr4500x {

enum class ExitStatus : int {
  Done = 0,
  Failed = 1, // with a message on standard error and the files unchanged
  UnusableArguments = 2,
};

} // namespace mr4500x
