// The one kind of exception for files.
#pragma once

#include <stdexcept>
#include <string>

namespace norvale {

/// A file that cannot be used: its name and the reason, in words that an operator understands. It ends the operation and
/// is shown where the operation began.
class FileError : public std::runtime_error {
 public:
  FileError(std::string file, const std::string& reason)
      : std::runtime_error(file + ": " + reason), file_(std::move(file)), reason_(reason) {}

  [[nodiscard]] const std::string& File() const { return file_; }
  [[nodiscard]] const std::string& Reason() const { return reason_; }

 private:
  std::string file_;
  std::string reason_;
};

}  // namespace norvale
