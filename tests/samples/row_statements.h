// The rows of the sections as their sources have them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace norvale {

/// One statement that prints a row.
struct RowStatement {
  std::string file;
  int line = 0;
  std::string label;
  std::string item;  // as it is written: a number, a name, or empty
};

/// A text that a row's description is set to ahead of the statement that prints it.
struct RowText {
  std::string file;
  int line = 0;
  std::string label;
  std::string fixed;      // what the text begins with
  bool complete = false;  // nothing follows
};

/// What the sources hold.
struct SectionSources {
  std::vector<RowStatement> rows;
  std::vector<RowText> texts;
  std::vector<std::string> captions;  // of the specifications sheet
};

/// Reads the sources of a folder. The file that defines the row functions has no rows of its own.
SectionSources ReadSectionSources(const std::filesystem::path& folder);

}  // namespace norvale
