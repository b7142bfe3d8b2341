#include "row_statements.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "case_file.h"

namespace norvale {

namespace {

// A string literal of C++ and its text without the backslashes.
const char* const kLiteral = R"re("((?:[^"\\]|\\.)*)")re";

std::string Plain(const std::string& literal) { return std::regex_replace(literal, std::regex(R"(\\(.))"), "$1"); }

void ReadSource(const std::filesystem::path& path, SectionSources& sources) {
  static const std::regex row(R"(\b(?:Emit|EmitNails|PrintMaterialLine|PrintTextLine)\(run,)");
  static const std::regex label(std::string(R"(\.label = )") + kLiteral);
  static const std::regex item(R"(\.item = (\w+))");
  static const std::regex text(std::string(R"(\w\.description = )") + kLiteral + "(;?)");
  static const std::regex caption(std::string(R"(\b(?:NumberRow|TextRow)\(run, )") + kLiteral);
  const std::string file = path.filename().string();
  std::istringstream lines(ReadBytes(path));
  std::string lastLabel;
  std::string lastItem;
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    std::smatch found;
    if (std::regex_search(line, found, label)) {
      lastLabel = Plain(found[1]);
      lastItem.clear();
    }
    if (std::regex_search(line, found, item)) lastItem = found[1];
    // A statement that prints a row made in the lines above it has their label.
    if (std::regex_search(line, row)) sources.rows.push_back({file, number, lastLabel, lastItem});
    if (std::regex_search(line, found, text)) sources.texts.push_back({file, number, lastLabel, Plain(found[1]), found[2].length() > 0});
    if (std::regex_search(line, found, caption)) sources.captions.push_back(Plain(found[1]));
  }
}

}  // namespace

SectionSources ReadSectionSources(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".cpp" && entry.path().filename() != "takeoff_run.cpp") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  SectionSources sources;
  for (const auto& file : files) ReadSource(file, sources);
  return sources;
}

}  // namespace norvale
