#include "row_probe.h"

#include <filesystem>

namespace norvale {

std::set<std::pair<std::string, int>>& PrintedRows() {
  static std::set<std::pair<std::string, int>> rows;
  return rows;
}

TakeoffRun& NoteRow(TakeoffRun& run, const char* file, int line) {
  PrintedRows().emplace(std::filesystem::path(file).filename().string(), line);
  return run;
}

}  // namespace norvale
