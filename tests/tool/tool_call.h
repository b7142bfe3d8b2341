// Calls the companion command as a script does.
#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "support/scratch_folder.h"

namespace norvale {

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

/// Runs the command with these words of a shell. Its two outputs go through files in `scratch`; with `out`, the first goes there.
inline Outcome CallTool(const ScratchFolder& scratch, const std::string& words, const std::string& out = {}) {
  const std::string target = out.empty() ? (scratch / "out").string() : out;
  const std::string command = std::string("'") + NORVALE_TOOL + "' " + words + " >'" + target + "' 2>'" + (scratch / "err").string() + "'";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out.empty() ? ReadBytes(target) : std::string(), ReadBytes(scratch / "err")};
}

}  // namespace norvale
