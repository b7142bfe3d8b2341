// The plan type: what kind of house a plan is, a sum of bits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace norvale {

inline constexpr int kOneStorySlab = 1;
inline constexpr int kTwoLevelSlab = 2;
inline constexpr int kOneStoryCrawl = 4;
inline constexpr int kTwoLevelCrawl = 8;
inline constexpr int kAttachedGarage = 16;
inline constexpr int kDetachedGarage = 32;
inline constexpr int kCarport = 64;
inline constexpr int kPorch = 128;
inline constexpr int kBrickVeneer = 512;
inline constexpr int kFieldFramedHalfStory = 1024;
inline constexpr int kAtticTrussHalfStory = 2048;

// The checklist never sets the bit between the porches and the brick; a plan that holds it has its wall finish fixed as well.
inline constexpr int kFixedWallFinish = kBrickVeneer | 256;
inline constexpr int kOneStory = kOneStorySlab | kOneStoryCrawl;
inline constexpr int kTwoLevel = kTwoLevelSlab | kTwoLevelCrawl;
inline constexpr int kSlab = kOneStorySlab | kTwoLevelSlab;
inline constexpr int kCrawlSpace = kOneStoryCrawl | kTwoLevelCrawl;
inline constexpr int kHalfStory = kFieldFramedHalfStory | kAtticTrussHalfStory;

/// The text by which a plan says that the inside of its slab building is listed too.
inline constexpr std::string_view kFinishedInterior = "FINISHED";

/// The one-line text of a plan, such as "2S Slab W/ Att Garage, Porch(s)". With more than one foundation bit the lowest
/// counts; a type without any begins with its additions.
std::string PlanDescription(std::int16_t planType);

}  // namespace norvale
