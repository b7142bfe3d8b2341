// Prints one sample case with norvale-tool and compares what comes out with the case's expected.txt, byte for byte:
//   sample_case <norvale-tool> <working folder> <case folder> <folder for what came out>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "case_file.h"

namespace {

namespace fs = std::filesystem;
using norvale::ReadBytes;
using norvale::SampleCase;

std::string Quoted(const std::string& word) {
  std::string quoted = "'";
  for (const char c : word) {
    if (c == '\'')
      quoted += "'\\''";
    else
      quoted += c;
  }
  return quoted + "'";
}

std::string CommandLine(const fs::path& tool, const fs::path& workingFolder, const SampleCase& sample) {
  std::ostringstream command;
  command << Quoted(tool.string()) << " --folder " << Quoted(workingFolder.string()) << " --date " << Quoted(sample.Option("date"))
          << " print " << (sample.IsEstimate() ? "estimate" : sample.Option("list"));
  for (const auto& [option, value] : sample.options) {
    if (option == "date" || option == "list") continue;
    command << " --" << option;
    if (!value.empty()) command << " " << Quoted(value);
  }
  return command.str();
}

// What cannot be seen is written out, so that a difference in it shows.
std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\f')
      lines.back() += "<FF>";
    else if (c == '\r')
      lines.back() += "<CR>";
    else if (c == '\n')
      lines.emplace_back();
    else
      lines.back() += c;
  }
  if (lines.back().empty())
    lines.pop_back();
  else if (!text.ends_with('\f'))
    lines.back() += "<no line end>";
  return lines;
}

// The lines of both texts along their longest common part: "-" only expected, "+" only printed.
void PrintDiff(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
  const std::size_t rows = expected.size();
  const std::size_t columns = actual.size();
  std::vector<std::vector<std::size_t>> common(rows + 1, std::vector<std::size_t>(columns + 1));
  for (std::size_t i = rows; i-- > 0;)
    for (std::size_t j = columns; j-- > 0;)
      common[i][j] = expected[i] == actual[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);

  constexpr std::size_t kMostLines = 200;
  std::size_t shown = 0;
  std::size_t i = 0;
  std::size_t j = 0;
  std::size_t equal = 0;
  while ((i < rows || j < columns) && shown < kMostLines) {
    if (i < rows && j < columns && expected[i] == actual[j]) {
      ++i;
      ++j;
      ++equal;
      continue;
    }
    if (equal > 0 || shown == 0) std::cout << "@ line " << i + 1 << " of expected.txt\n";
    equal = 0;
    ++shown;
    if (i < rows && (j == columns || common[i + 1][j] >= common[i][j + 1]))
      std::cout << "-" << expected[i++] << "\n";
    else
      std::cout << "+" << actual[j++] << "\n";
  }
  if (i < rows || j < columns) std::cout << "... and more\n";
}

int Run(const fs::path& tool, const fs::path& workingFolder, const fs::path& caseFolder, const fs::path& output) {
  const SampleCase sample = norvale::ReadCase(caseFolder);
  fs::create_directories(output);
  const fs::path printed = output / (sample.name + ".txt");
  const fs::path errors = output / (sample.name + ".err");
  const std::string command = CommandLine(tool, workingFolder, sample);
  const int status = std::system((command + " > " + Quoted(printed.string()) + " 2> " + Quoted(errors.string())).c_str());
  const std::string said = ReadBytes(errors);
  if (status != 0 || !said.empty()) {
    std::cout << command << "\nended with status " << (WIFEXITED(status) ? WEXITSTATUS(status) : status) << " and said:\n" << said;
    return 1;
  }
  const fs::path expectedFile = caseFolder / "expected.txt";
  if (!fs::exists(expectedFile)) {
    std::cout << sample.name << " has no expected.txt. Read what was printed against the rules and, where it is right, keep it:\n  cp "
              << Quoted(printed.string()) << " " << Quoted(expectedFile.string()) << "\n";
    return 1;
  }
  const std::string expected = ReadBytes(expectedFile);
  const std::string actual = ReadBytes(printed);
  if (expected == actual) return 0;
  std::cout << sample.name << " prints something else. - is expected, + was printed\n";
  PrintDiff(Lines(expected), Lines(actual));
  std::cout << "What was printed lies in " << printed.string() << ". Where the new text is the right one, keep it:\n  cp "
            << Quoted(printed.string()) << " " << Quoted(expectedFile.string()) << "\n";
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.size() != 4) {
    std::cerr << "sample_case <norvale-tool> <working folder> <case folder> <folder for what came out>\n";
    return 2;
  }
  try {
    return Run(words[0], words[1], words[2], words[3]);
  } catch (const std::exception& error) {
    std::cout << error.what() << "\n";
    return 1;
  }
}
