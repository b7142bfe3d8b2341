// Notes which rows of the sections there are and which are printed. The build puts this file ahead of each section's
// source, where it turns every call of a row into one that notes its place first. The library itself is compiled without it.
#pragma once

#include <set>
#include <string>
#include <utility>

#include "takeoff/takeoff_run.h"

namespace norvale {

/// Places of rows: the source and the line.
using RowPlaces = std::set<std::pair<std::string, int>>;

/// All rows that the sections can print.
RowPlaces& KnownRows();

/// The rows printed since the set was last cleared.
RowPlaces& PrintedRows();

namespace {

template <int Line>
const bool kIsKnown = KnownRows().emplace(__BASE_FILE__, Line).second;

// Notes a row and gives the run back.
template <int Line>
TakeoffRun& NoteRow(TakeoffRun& run) {
  if (kIsKnown<Line>) PrintedRows().emplace(__BASE_FILE__, Line);
  return run;
}

}  // namespace

}  // namespace norvale

// A macro's own name inside it is not replaced again: these call the functions.
#define Emit(run, ...) Emit(NoteRow<__LINE__>(run), __VA_ARGS__)
#define EmitNails(run, ...) EmitNails(NoteRow<__LINE__>(run), __VA_ARGS__)
#define PrintMaterialLine(run, ...) PrintMaterialLine(NoteRow<__LINE__>(run), __VA_ARGS__)
#define PrintTextLine(run, ...) PrintTextLine(NoteRow<__LINE__>(run), __VA_ARGS__)
