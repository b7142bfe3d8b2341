#include "base/checksum.h"

#include <array>
#include <bit>
#include <cstring>

namespace norvale {

void PutNumber(char* to, std::uint64_t value) {
  for (int i = 0; i < 8; ++i, value >>= 8) to[i] = static_cast<char>(value & 0xFF);
}

std::uint64_t GetNumber(const char* from) {
  std::uint64_t value = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&value, from, sizeof value);
  } else {
    for (int i = 7; i >= 0; --i) value = (value << 8) | static_cast<unsigned char>(from[i]);
  }
  return value;
}

// Four sums side by side, because one would wait for each
// multiplication to end. A last word that is not full counts as filled up with 0.
std::uint64_t Checksum(std::uint64_t start, std::string_view bytes) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::array<std::uint64_t, 4> sums = {start, start ^ 0x9E3779B97F4A7C15U, start ^ 0xC2B2AE3D27D4EB4FU, start ^ 0x165667B19E3779F9U};
  const auto mix = [](std::uint64_t& sum, std::uint64_t word) { sum = std::rotl(sum ^ word, 27) * 0xD6E8FEB86659FD93U + word; };
  std::size_t at = 0;
  for (; at + sums.size() * kWord <= bytes.size(); at += sums.size() * kWord)
    for (std::size_t i = 0; i < sums.size(); ++i) mix(sums[i], GetNumber(bytes.data() + at + i * kWord));
  for (; at < bytes.size(); at += kWord) {
    std::array<char, kWord> last{};
    bytes.substr(at, kWord).copy(last.data(), kWord);
    mix(sums[0], GetNumber(last.data()));
  }
  for (std::size_t i = 1; i < sums.size(); ++i) mix(sums[0], sums[i]);
  mix(sums[0], bytes.size());
  return sums[0];
}

}  // namespace norvale
