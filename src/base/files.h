// Whole files, read and replaced in one piece.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/disk.h"

namespace norvale {

/// The largest file that is read in one piece. Every file of the working folder that is read whole is far smaller; a
/// larger one is some other file under its name.
inline constexpr std::size_t kLargestWholeFile = std::size_t{64} * 1024 * 1024;

/// The path that a text names. The path's own constructor takes a text for what the system's code page makes of it.
std::filesystem::path PathFromUtf8(std::string_view utf8);

/// The bytes of the file. Throws FileError where it cannot be read or is larger than `kLargestWholeFile`.
std::string ReadWholeFile(const std::filesystem::path& path);

/// The bytes of the file, or nothing where there is no such file. Throws FileError for any other failure.
std::optional<std::string> ReadFileIfPresent(const std::filesystem::path& path);

/// Puts `bytes` in the place of the file: written beside it, synced, then renamed over it, so that a crash leaves the old
/// file or the new one. When it returns, the new one is on the disk. Throws FileError and leaves the old one; a file that may
/// not be written is not replaced either.
void ReplaceFile(Disk& disk, const std::filesystem::path& path, std::string_view bytes);

/// The same, and what the file held before stands in the file `backup` then. The backup is whole before the new file takes
/// its place, so that neither name is ever without one. Where there was no file, the backup stays as it is.
void ReplaceFileWithBackup(Disk& disk, const std::filesystem::path& path, const std::filesystem::path& backup, std::string_view bytes);

}  // namespace norvale
