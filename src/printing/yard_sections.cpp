#include "printing/yard_sections.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace norvale {

namespace {

struct YardWord {
  std::string_view word;
  YardSection section;
};

// The first word that is in the description decides; so a word stands ahead of those that it is an exception to.
constexpr std::array<YardWord, 60> kWords = {{
    {"TREATED", YardSection::TreatedLumber},
    {"LVL", YardSection::EngineeredWood},
    {"PRI-400", YardSection::EngineeredWood},
    {"I JOIST", YardSection::EngineeredWood},
    {"RIM BOARD", YardSection::EngineeredWood},
    {"NAILS", YardSection::Hardware},
    {"BRACING", YardSection::Hardware},
    {"PLYCLIPS", YardSection::Hardware},
    {"WALL TIES", YardSection::Hardware},
    {"ADHESIVE", YardSection::Hardware},
    {"SEALER", YardSection::Hardware},
    {"VAPOR FILM", YardSection::Hardware},
    {"HOUSE WRAP", YardSection::Hardware},
    {"SHINGLE", YardSection::Roofing},
    {"ARCHITECTURAL", YardSection::Roofing},
    {"SHAKES", YardSection::Roofing},
    {"ROOFING", YardSection::Roofing},
    {"STANDING SEAM", YardSection::Roofing},
    {"FELT", YardSection::Roofing},
    {"GALV.", YardSection::Roofing},
    {"DRIP CAP", YardSection::Roofing},
    {"FLASHING", YardSection::Roofing},
    {"SHEETROCK", YardSection::SheetrockAndFlooring},
    {"OAK", YardSection::SheetrockAndFlooring},
    {"FLG.", YardSection::SheetrockAndFlooring},
    {"VINYL", YardSection::Siding},
    {"SOFFIT", YardSection::Siding},
    {"T1-11", YardSection::Siding},
    {" PANEL", YardSection::Siding},
    {"HARDBOARD", YardSection::Siding},
    {" LAP", YardSection::Siding},
    {"BEVEL", YardSection::Siding},
    {"SHIPLAP", YardSection::Siding},
    {"' FIBER CEM", YardSection::Siding},
    {"MOULD", YardSection::BoardsAndMoulding},
    {"BASE", YardSection::BoardsAndMoulding},
    {"ROUND", YardSection::BoardsAndMoulding},
    {"LATTICE", YardSection::BoardsAndMoulding},
    {"PRIMED", YardSection::BoardsAndMoulding},
    {"CEDAR", YardSection::BoardsAndMoulding},
    {"COIL", YardSection::BoardsAndMoulding},
    {"VENT", YardSection::BoardsAndMoulding},
    {"5/4X", YardSection::BoardsAndMoulding},
    {"Lft.", YardSection::BoardsAndMoulding},
    {"OSB", YardSection::Panels},
    {"PLYWOOD", YardSection::Panels},
    {"REGULAR", YardSection::Panels},
    {"REG. INS.", YardSection::Panels},
    {"FOAM BOARD", YardSection::Panels},
    {"FIBER CEM", YardSection::Panels},
    {"PARTICLEBOARD", YardSection::Panels},
    {"UNDERLAYMENT", YardSection::Panels},
    {"STUDS", YardSection::FramingLumber},
    // Framing is sold by length, "2X6- 12 #2 SYP"; a size without one is a board, by the foot.
    {"1X", YardSection::BoardsAndMoulding},
    {"- ", YardSection::FramingLumber},
    {"SYP", YardSection::BoardsAndMoulding},
    {"SPF", YardSection::BoardsAndMoulding},
    {"HEM-FIR", YardSection::BoardsAndMoulding},
    {"LARCH", YardSection::BoardsAndMoulding},
    {"SPRUCE", YardSection::BoardsAndMoulding},
}};

}  // namespace

std::string_view NameOf(YardSection section) {
  constexpr std::array<std::string_view, 10> kNames = {
      "FRAMING LUMBER",        "TREATED LUMBER",      "ENGINEERED WOOD",        "SHEATHING AND PANELS", "ROOFING AND FLASHING",
      "SIDING, VINYL, SOFFIT", "BOARDS AND MOULDING", "SHEETROCK AND FLOORING", "NAILS AND HARDWARE",   "OTHER STOCK",
  };
  return kNames[static_cast<std::size_t>(section)];
}

YardSection YardSectionOf(std::string_view description) {
  const auto found = std::ranges::find_if(kWords, [description](const YardWord& word) { return Has(description, word.word); });
  return found == kWords.end() ? YardSection::Other : found->section;
}

}  // namespace norvale
