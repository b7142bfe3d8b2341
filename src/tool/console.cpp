#include "tool/console.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Needs the types of windows.h.
#include <shellapi.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#endif

namespace norvale {

#ifdef _WIN32

Console::Console() : codePage_(GetConsoleOutputCP()) {
  for (std::FILE* const out : {stdout, stderr}) (void)_setmode(_fileno(out), _O_BINARY);
  (void)SetConsoleOutputCP(CP_UTF8);
}

Console::~Console() {
  if (codePage_ != 0) (void)SetConsoleOutputCP(codePage_);
}

std::vector<std::string> WordsOfCall(int /*argc*/, char** /*argv*/) {
  // The words that the program is given have lost every letter that the system's code page lacks.
  int count = 0;
  const std::unique_ptr<wchar_t*[], decltype(&LocalFree)> wide(CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  std::vector<std::string> words;
  for (int i = 1; i < count; ++i) {
    const std::u8string utf8 = std::filesystem::path(wide[static_cast<std::size_t>(i)]).u8string();
    words.emplace_back(utf8.begin(), utf8.end());
  }
  return words;
}

#else

Console::Console() = default;

Console::~Console() = default;

std::vector<std::string> WordsOfCall(int argc, char** argv) { return {argv + 1, argv + argc}; }

#endif

}  // namespace norvale
