// Prints one sample case with norvale-tool and compares what comes out with the case's expected.txt, byte for byte:
//   sample_case <norvale-tool> <working folder> <case folder> <folder for what came out>
// `case.txt` holds an option of `norvale-tool print` a line, its name and its value; `list` is what is printed where that
// is no estimate, `date` the day of the print. A line that begins with "#" tells the reader something.
#include <sys/wait.h>

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <vector>

#include "support/scratch_folder.h"

namespace {

namespace fs = std::filesystem;
using norvale::ReadBytes;

// As the shell takes it back for one word.
std::string Quoted(const std::string& word) {
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string CommandLine(const fs::path& tool, const fs::path& workingFolder, const fs::path& caseFile) {
  std::string list = "estimate";
  std::string date;
  std::string options;
  std::istringstream lines(ReadBytes(caseFile));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.front() == '#') continue;
    const std::string option = line.substr(0, line.find(' '));
    const std::string value = line.substr(std::min(option.size() + 1, line.size()));
    if (option == "list")
      list = value;
    else if (option == "date")
      date = value;
    else
      options += " --" + option + (value.empty() ? "" : " " + Quoted(value));
  }
  return Quoted(tool) + " --folder " + Quoted(workingFolder) + " --date " + Quoted(date) + " print " + list + options;
}

int Run(const fs::path& tool, const fs::path& workingFolder, const fs::path& caseFolder, const fs::path& output) {
  const std::string name = caseFolder.filename().string();
  fs::create_directories(output);
  const fs::path printed = output / (name + ".txt");
  const fs::path errors = output / (name + ".err");
  const std::string command = CommandLine(tool, workingFolder, caseFolder / "case.txt");
  const int status = std::system((command + " > " + Quoted(printed) + " 2> " + Quoted(errors)).c_str());
  const std::string said = ReadBytes(errors);
  if (status != 0 || !said.empty()) {
    std::cout << command << "\nended with status " << (WIFEXITED(status) ? WEXITSTATUS(status) : status) << " and said:\n" << said;
    return 1;
  }
  const fs::path expected = caseFolder / "expected.txt";
  if (fs::exists(expected) && ReadBytes(expected) == ReadBytes(printed)) return 0;
  std::cout << name << " prints something else. - is expected, + was printed" << std::endl;
  // Line ends, form feeds and what else cannot be seen are written out.
  if (std::system(("diff -Nu " + Quoted(expected) + " " + Quoted(printed) + " | cat -A | head -200").c_str()) != 0)
    std::cout << "(no diff is installed)\n";
  std::cout << "Where the new text is the right one, by the rules, keep it:\n  cp " << Quoted(printed) << " " << Quoted(expected) << "\n";
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.size() == 4) return Run(words[0], words[1], words[2], words[3]);
  std::cerr << "sample_case <norvale-tool> <working folder> <case folder> <folder for what came out>\n";
  return 2;
}
