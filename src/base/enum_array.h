// An array with one element for each value of an enumeration.
#pragma once

#include <array>
#include <cstddef>

namespace norvale {

/// Elements of `T` by the values of `Enum`, which count from 0 to `Size` - 1 without a gap.
template <typename Enum, typename T, std::size_t Size>
struct EnumArray {
  std::array<T, Size> values{};

  constexpr T& operator[](Enum key) { return values[static_cast<std::size_t>(key)]; }
  constexpr const T& operator[](Enum key) const { return values[static_cast<std::size_t>(key)]; }

  constexpr auto begin() { return values.begin(); }
  constexpr auto begin() const { return values.begin(); }
  constexpr auto end() { return values.end(); }
  constexpr auto end() const { return values.end(); }

  bool operator==(const EnumArray&) const = default;
};

/// The values of an enumeration that count from 0 to `Size` - 1, in their order.
template <typename Enum, std::size_t Size>
constexpr std::array<Enum, Size> EnumValues() {
  std::array<Enum, Size> all{};
  for (std::size_t i = 0; i < Size; ++i) all[i] = static_cast<Enum>(i);
  return all;
}

}  // namespace norvale
