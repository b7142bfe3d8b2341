// What both floors share about joist texts: completing a cut text, I-joist keys, pieces per bay, stock lengths.
#pragma once

#include <string>
#include <string_view>

#include "takeoff/takeoff_run.h"

namespace norvale {

/// The stock length of row `i` (0 to 4) of a five-row table, in feet: 8, 10, 12, 14, 16.
constexpr int StockLength(std::size_t i) { return 8 + 2 * static_cast<int>(i); }

/// A length as a price key holds it: a hyphen, a blank, the number.
std::string KeyLength(int feet);

/// The joist text in full. The record holds 20 characters of it, which cuts the longer I-joist texts.
std::string CompleteJoistText(std::string_view recorded);

/// Whether the text names an I-joist.
bool IsIJoist(std::string_view joistText);

/// The price key of an I-joist, by the depth in its text; the key of the row before where it names none.
std::string IJoistKey(const TakeoffRun& run, std::string_view joistText);

/// I-joists for each foot of bay, by the spacing in the text; 0 where it names none.
double JoistsPerFoot(std::string_view joistText);

/// `text` up to and with the first `mark`; empty where it holds none.
std::string UpToAndWith(std::string_view text, std::string_view mark);

/// The rim board that goes with an I-joist, 24 feet long.
std::string RimBoard(std::string_view joistText);

}  // namespace norvale
