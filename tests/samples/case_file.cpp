#include "case_file.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace norvale {

namespace {

constexpr std::array<std::string_view, 13> kOptions = {"list",   "customer", "plan", "date", "sections",  "prices", "copies",
                                                       "format", "order",    "from", "to",   "plan-type", "kind"};

}  // namespace

std::string SampleCase::Option(const std::string& option) const {
  const auto found = options.find(option);
  return found == options.end() ? std::string() : found->second;
}

bool SampleCase::IsText() const { return options.count("format") == 0 || Option("format") == "text"; }

std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error(file.string() + ": cannot be read");
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

SampleCase ReadCase(const std::filesystem::path& folder) {
  SampleCase read{.name = folder.filename().string(), .folder = folder, .options = {}};
  const std::filesystem::path file = folder / "case.txt";
  std::istringstream lines(ReadBytes(file));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.front() == '#') continue;
    const std::size_t blank = line.find(' ');
    const std::string option = line.substr(0, blank);
    const std::string value = blank == std::string::npos ? std::string() : line.substr(blank + 1);
    if (std::find(kOptions.begin(), kOptions.end(), option) == kOptions.end())
      throw std::runtime_error(file.string() + ": there is no option \"" + option + "\"");
    if (!read.options.emplace(option, value).second) throw std::runtime_error(file.string() + ": \"" + option + "\" stands twice");
  }
  return read;
}

std::vector<SampleCase> ReadCases(const std::filesystem::path& folder) {
  std::vector<SampleCase> cases;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (std::filesystem::exists(entry.path() / "case.txt")) cases.push_back(ReadCase(entry.path()));
  std::sort(cases.begin(), cases.end(), [](const SampleCase& a, const SampleCase& b) { return a.name < b.name; });
  return cases;
}

}  // namespace norvale
