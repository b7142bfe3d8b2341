// One plan, as it lies in `estimate.dbr`: everything that the take-off needs.
#pragma once

#include "data/fields.h"

namespace norvale {

inline constexpr std::size_t EstimateRecordSize = 1462;
inline constexpr std::size_t kRoofPlanes = 64;

/// A five-row table. The rows of the length tables stand for stock of 8, 10, 12, 14 and 16 feet.
using FiveRows = std::array<std::int16_t, 5>;

/// One section of a stick-framed roof, as the roof calculator stores it. Lengths are in inches.
struct RoofPlane {
  std::uint8_t SectionType{};  // 1 gable, 2 gable with valley, 3 hip, 4 hip with valley, 5 shed; others: unused
  std::uint8_t FramingType{};  // species: position in the framing list, from 0
  std::uint8_t PitchIndex{};   // rise in inches per foot, less 3
  std::uint8_t RafterIndex{};  // 0 2X6, 1 2X8, 2 2X10, 3 2X12
  std::int16_t SectionLength{};
  std::int16_t RafterRun{};
  std::int16_t LoadWallRun{};  // peak to load-bearing wall; above 0: two-piece rafters

  bool operator==(const RoofPlane&) const = default;
};

template <>
struct RecordFields<RoofPlane> {
  static constexpr auto table = std::tuple{
      Field{"SectionType", 0, &RoofPlane::SectionType},     Field{"FramingType", 1, &RoofPlane::FramingType},
      Field{"PitchIndex", 2, &RoofPlane::PitchIndex},       Field{"RafterIndex", 3, &RoofPlane::RafterIndex},
      Field{"SectionLength", 4, &RoofPlane::SectionLength}, Field{"RafterRun", 6, &RoofPlane::RafterRun},
      Field{"LoadWallRun", 8, &RoofPlane::LoadWallRun},
  };
};

template <>
struct FieldWidth<RoofPlane> {
  static constexpr std::size_t value = 10;
};

static_assert(FieldsTile(RecordFields<RoofPlane>::table, FieldWidth<RoofPlane>::value), "no gap, no overlap, the whole row");

/// The sections of a stick-framed roof; unused ones have a type that is none.
using RoofSections = std::array<RoofPlane, kRoofPlanes>;

/// The record of one plan; estimate_record.def tells what each field means. A `...Index` is a place in a list, counted from 1,
/// 0 where nothing is chosen; a text is the stock chosen.
struct EstimateRecord {
#define FIELD(offset, type, name, unit, meaning) type name{};
#include "data/estimate_record.def"

  bool operator==(const EstimateRecord&) const = default;
};

template <>
struct RecordFields<EstimateRecord> {
  static constexpr auto table = std::tuple_cat(
#define FIELD(offset, type, name, unit, meaning) std::tuple{Field{#name, offset, &EstimateRecord::name}},
#include "data/estimate_record.def"
      std::tuple<>{});
};

/// What a field of a plan holds, for the description of the file.
struct FieldMeaning {
  std::string_view name;
  std::size_t offset;
  std::string_view type;
  std::string_view unit;
  std::string_view meaning;
};
inline constexpr FieldMeaning kEstimateFieldMeanings[] = {
#define FIELD(offset, type, name, unit, meaning) {#name, offset, #type, unit, meaning},
#include "data/estimate_record.def"
};

static_assert(FieldsTile(RecordFields<EstimateRecord>::table, EstimateRecordSize), "no gap, no overlap, the whole record");

}  // namespace norvale
