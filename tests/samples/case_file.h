// A sample case: a folder with `case.txt`, what is printed, and `expected.txt`, what comes out.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace norvale {

/// One case. `case.txt` holds an option of `norvale-tool print` a line, its name and its value; `list` is what is printed
/// where that is no estimate, `date` the day of the print. A line that begins with "#" tells the reader something.
struct SampleCase {
  std::string name;  // of the folder
  std::filesystem::path folder;
  std::map<std::string, std::string> options;

  /// The value of an option; empty where the case does not give it.
  [[nodiscard]] std::string Option(const std::string& option) const;

  /// Whether the itemised list of a plan is printed.
  [[nodiscard]] bool IsEstimate() const { return options.count("list") == 0; }

  /// Whether what comes out is the paper as text.
  [[nodiscard]] bool IsText() const;
};

/// Reads the case of a folder. Throws std::runtime_error for an option that there is not, or that stands twice.
SampleCase ReadCase(const std::filesystem::path& folder);

/// All cases below a folder, by name.
std::vector<SampleCase> ReadCases(const std::filesystem::path& folder);

/// The bytes of a file. Throws std::runtime_error where it cannot be read.
std::string ReadBytes(const std::filesystem::path& file);

}  // namespace norvale
