// The command line as the tool needs it on every system: words in UTF-8, output byte for byte.
#pragma once

#include <string>
#include <vector>

namespace norvale {

/// Makes the standard outputs take bytes as they are, and a console show UTF-8, as long as it lives.
class Console {
 public:
  Console();
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

 private:
  [[maybe_unused]] unsigned codePage_ = 0;
};

/// The words behind the program's name, in UTF-8.
std::vector<std::string> WordsOfCall(int argc, char** argv);

}  // namespace norvale
