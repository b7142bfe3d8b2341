// A packed record described once: a table of its fields with offset, width and name, from which the codec, the JSON
// tables and the compile-time checks are made.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "base/text.h"

namespace norvale {

/// Bytes of a field type on disk: 16-bit numbers, fixed texts, and arrays of anything that has a width.
template <typename T>
struct FieldWidth;

template <>
struct FieldWidth<std::uint8_t> {
  static constexpr std::size_t value = 1;
};
template <>
struct FieldWidth<std::int16_t> {
  static constexpr std::size_t value = 2;
};
template <>
struct FieldWidth<std::int32_t> {
  static constexpr std::size_t value = 4;
};
template <std::size_t Width>
struct FieldWidth<FixedText<Width>> {
  static constexpr std::size_t value = Width;
};
template <typename T, std::size_t N>
struct FieldWidth<std::array<T, N>> {
  static constexpr std::size_t value = N * FieldWidth<T>::value;
};

/// One field of `Record`: its name, its offset from 0, and the member that holds it. The width follows from the type.
template <typename Record, typename T>
struct Field {
  using Type = T;
  static constexpr std::size_t kWidth = FieldWidth<T>::value;

  std::string_view name;
  std::size_t offset;
  T Record::*member;
};

// Said aloud for compilers that do not deduce it for an aggregate.
template <typename Record, typename T>
Field(std::string_view, std::size_t, T Record::*) -> Field<Record, T>;

/// Whether the fields of a table follow one another from 0 to `size` without gap or overlap.
template <typename... Fields>
constexpr bool FieldsTile(const std::tuple<Fields...>& fields, std::size_t size) {
  std::size_t next = 0;
  bool tile = true;
  const auto check = [&](const auto& field) {
    tile = tile && field.offset == next;
    next += std::decay_t<decltype(field)>::kWidth;
  };
  std::apply([&](const auto&... field) { (check(field), ...); }, fields);
  return tile && next == size;
}

/// Calls `visit` with each field of the table, in its order.
template <typename Fields, typename Visit>
constexpr void ForEachField(const Fields& fields, Visit&& visit) {
  std::apply([&](const auto&... field) { (visit(field), ...); }, fields);
}

/// A record type names its table of fields in a `RecordFields<Record>::table`.
template <typename Record>
struct RecordFields;

inline void DecodeValue(const char* from, std::uint8_t& value) { value = static_cast<std::uint8_t>(*from); }
inline void EncodeValue(char* to, std::uint8_t value) { *to = static_cast<char>(value); }

inline void DecodeValue(const char* from, std::int16_t& value) {
  value = static_cast<std::int16_t>(static_cast<unsigned char>(from[0]) | (static_cast<unsigned char>(from[1]) << 8));
}
inline void EncodeValue(char* to, std::int16_t value) {
  to[0] = static_cast<char>(value & 0xFF);
  to[1] = static_cast<char>((value >> 8) & 0xFF);
}

inline void DecodeValue(const char* from, std::int32_t& value) {
  std::uint32_t bits = 0;
  for (int i = 3; i >= 0; --i) bits = (bits << 8) | static_cast<unsigned char>(from[i]);
  value = static_cast<std::int32_t>(bits);
}
inline void EncodeValue(char* to, std::int32_t value) {
  auto bits = static_cast<std::uint32_t>(value);
  for (int i = 0; i < 4; ++i, bits >>= 8) to[i] = static_cast<char>(bits & 0xFF);
}

template <std::size_t Width>
void DecodeValue(const char* from, FixedText<Width>& value) {
  std::copy_n(from, Width, value.bytes.begin());
}
template <std::size_t Width>
void EncodeValue(char* to, const FixedText<Width>& value) {
  std::copy_n(value.bytes.begin(), Width, to);
}

template <typename Record>
requires requires { RecordFields<Record>::table; }
void DecodeValue(const char* from, Record& record);
template <typename Record>
requires requires { RecordFields<Record>::table; }
void EncodeValue(char* to, const Record& record);

template <typename T, std::size_t N>
void DecodeValue(const char* from, std::array<T, N>& values) {
  for (std::size_t i = 0; i < N; ++i) DecodeValue(from + i * FieldWidth<T>::value, values[i]);
}
template <typename T, std::size_t N>
void EncodeValue(char* to, const std::array<T, N>& values) {
  for (std::size_t i = 0; i < N; ++i) EncodeValue(to + i * FieldWidth<T>::value, values[i]);
}

/// Reads a record from its packed bytes: integers low byte first, texts as they stand, no padding between fields.
template <typename Record>
requires requires { RecordFields<Record>::table; }
void DecodeValue(const char* from, Record& record) {
  ForEachField(RecordFields<Record>::table, [&](const auto& field) { DecodeValue(from + field.offset, record.*field.member); });
}

/// Writes a record as its packed bytes; the exact reverse of `DecodeValue`.
template <typename Record>
requires requires { RecordFields<Record>::table; }
void EncodeValue(char* to, const Record& record) {
  ForEachField(RecordFields<Record>::table, [&](const auto& field) { EncodeValue(to + field.offset, record.*field.member); });
}

}  // namespace norvale
