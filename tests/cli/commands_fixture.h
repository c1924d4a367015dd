// Runs the commands of the command line tool in this process.
#pragma once

#include "file_commands.h"
#include "files_fixture.h"

#include <sstream>

namespace mr4500x {

class FileCommandsTest : public FilesTest {
protected:
  FileCommandsTest() {
    EXPECT_EQ(Run([&](Terminal& shown) { return RunNew(files, a, false, {}, shown); }), "");
    std::filesystem::copy(a, b);
  }

  // What a command printed, messages first, then its status unless it is 0.
  template<typename Command>
  std::string Run(Command command, const std::string& typed = "") {
    std::ostringstream out, err;
    std::istringstream in(typed);
    Terminal terminal{out, err, in, false, false};
    const ExitStatus status = command(terminal);
    const std::string end = status == ExitStatus::Done ? "" : "status " + std::to_string(static_cast<int>(status));
    return err.str() + out.str() + end;
  }

  const std::string a = Path("a.K4X"), b = Path("b.K4X");
};

} // namespace mr4500x
