#include "row_probe.h"

namespace norvale {

RowPlaces& KnownRows() {
  static RowPlaces rows;
  return rows;
}

RowPlaces& PrintedRows() {
  static RowPlaces rows;
  return rows;
}

}  // namespace norvale
