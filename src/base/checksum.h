// Telling bytes that were written whole from those that were not.
#pragma once

#include <cstdint>
#include <string_view>

namespace norvale {

/// A number of eight bytes, low byte first.
void PutNumber(char* to, std::uint64_t value);
std::uint64_t GetNumber(const char* from);

/// A checksum of `bytes`; `start` is that of what comes before them, where that is a multiple of 32 bytes long.
std::uint64_t Checksum(std::uint64_t start, std::string_view bytes);

}  // namespace norvale
