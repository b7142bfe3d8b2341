// The percentages by which take-off rows are raised or lowered, as `NVdata04.dat` holds them.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace norvale {

inline constexpr std::size_t kWasteItems = 95;
inline constexpr std::string_view kWasteFileName = "NVdata04.dat";

/// Percentage of each item, index = item number. A stored value is used as it is, whatever its size.
struct WasteFactors {
  std::array<std::int16_t, kWasteItems> percent{};

  bool operator==(const WasteFactors&) const = default;
};

/// What the program has while a dealer has stored nothing.
const WasteFactors& DesignTimeWasteFactors();

/// The factors of a working folder. A missing or short file leaves the rest at the design-time values, an odd last byte
/// is ignored. Throws FileError for a file that is too long or cannot be read. Never writes.
WasteFactors LoadWasteFactors(const std::filesystem::path& folder);

/// The bytes of the file: 95 16-bit numbers, low byte first.
std::string EncodeWasteFactors(const WasteFactors& factors);

}  // namespace norvale
