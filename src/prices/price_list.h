// The dealer's price list, as the text file `NVdata03.db` holds it.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace norvale {

inline constexpr std::string_view kPriceFileName = "NVdata03.db";
inline constexpr std::size_t kPriceLevels = 5;
inline constexpr std::size_t kMostPriceItems = 1400;

// The columns of a line, widths in characters.
inline constexpr std::size_t kPriceKeyWidth = 35;
inline constexpr std::size_t kPriceSkuWidth = 20;
inline constexpr std::size_t kPriceWidth = 10;
inline constexpr std::size_t kPriceOptionalWidth = 25;
inline constexpr std::size_t kPriceLineWidth = kPriceKeyWidth + kPriceSkuWidth + kPriceLevels * kPriceWidth + kPriceOptionalWidth;

/// One stock item, all fields trimmed. Prices stay the texts that the dealer entered; `Val` reads them.
struct PriceItem {
  std::string PriceItemKey;  // compared with the price key of a material line; case counts
  std::string PriceItemSku;
  std::array<std::string, kPriceLevels> PriceItemPrice;
  std::string PriceItemOptionalText;

  bool operator==(const PriceItem&) const = default;
};

/// The items in the order of the file, with the look-up that pricing needs.
class PriceList {
 public:
  PriceList() = default;
  explicit PriceList(std::vector<PriceItem> items);

  [[nodiscard]] const std::vector<PriceItem>& Items() const { return items_; }

  /// The first item with this key, blanks at both ends aside; null where there is none. A blank key finds a blank key.
  [[nodiscard]] const PriceItem* Find(std::string_view key) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
  };

  std::vector<PriceItem> items_;
  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> first_;
};

/// Reads the lines of a price file: LF or CR LF ends a line, the last one needs no end. Columns beyond the end of a short
/// line are blank; the optional text is the last 25 characters of what is there. `name` is the file in a FileError, which
/// is thrown for more than 1400 lines.
PriceList ParsePriceList(std::string_view text, const std::string& name);

/// The price list of a working folder. Throws FileError where it is missing, unreadable or too long.
PriceList LoadPriceList(const std::filesystem::path& folder);

/// The lines of the file, 130 characters each, ended by CR LF. A field that is too long is cut.
std::string EncodePriceList(const std::vector<PriceItem>& items);

}  // namespace norvale
