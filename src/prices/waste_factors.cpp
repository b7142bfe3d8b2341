#include "prices/waste_factors.h"

#include <algorithm>

#include "base/file_error.h"
#include "base/files.h"
#include "data/fields.h"
#include "prices/delivered.h"

namespace norvale {

const WasteFactors& DesignTimeWasteFactors() {
  static const WasteFactors factors = [] {
    WasteFactors made;
    for (const WasteItem& item : DeliveredWasteItems())
      made.percent.at(static_cast<std::size_t>(item.item)) = static_cast<std::int16_t>(item.value);
    return made;
  }();
  return factors;
}

WasteFactors LoadWasteFactors(const std::filesystem::path& folder) {
  WasteFactors factors = DesignTimeWasteFactors();
  const auto path = folder / kWasteFileName;
  const auto bytes = ReadFileIfPresent(path);
  if (!bytes) return factors;
  if (bytes->size() > 2 * kWasteItems)
    throw FileError(path.string(), "the file has " + std::to_string(bytes->size()) + " bytes, more than the " +
                                       std::to_string(2 * kWasteItems) + " of " + std::to_string(kWasteItems) + " waste factors");
  for (std::size_t i = 0; i < bytes->size() / 2; ++i) DecodeValue(bytes->data() + 2 * i, factors.percent[i]);
  return factors;
}

std::string EncodeWasteFactors(const WasteFactors& factors) {
  std::string bytes(2 * kWasteItems, '\0');
  EncodeValue(bytes.data(), factors.percent);
  return bytes;
}

}  // namespace norvale
