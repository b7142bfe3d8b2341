// Telling bytes that were written whole from those that were not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace norvale {

/// A number of eight bytes, low byte first.
void PutNumber(char* to, std::uint64_t value);
std::uint64_t GetNumber(const char* from);

/// Bytes that are summed piece by piece come in pieces of a multiple of this, the last one aside.
inline constexpr std::size_t kChecksumPiece = 32;

/// The checksum of what has the checksum `start` and is followed by `bytes`; `start` is 0 at the beginning. It is the same on
/// every machine, and no defence against somebody who means harm.
std::uint64_t Checksum(std::uint64_t start, std::string_view bytes);

}  // namespace norvale
