// Notes which rows of the sections are printed. The build puts this file ahead of each section's source, where it turns
// every call of a row into one that notes its place first. The library itself is compiled without it.
#pragma once

#include <set>
#include <string>
#include <utility>

#include "takeoff/takeoff_run.h"

namespace norvale {

/// The places, file name and line, of the rows printed since the set was last cleared.
std::set<std::pair<std::string, int>>& PrintedRows();

/// Notes a row and gives the run back.
TakeoffRun& NoteRow(TakeoffRun& run, const char* file, int line);

}  // namespace norvale

// A macro's own name inside it is not replaced again: these call the functions.
#define Emit(run, ...) Emit(NoteRow(run, __FILE__, __LINE__), __VA_ARGS__)
#define EmitNails(run, ...) EmitNails(NoteRow(run, __FILE__, __LINE__), __VA_ARGS__)
#define PrintMaterialLine(run, ...) PrintMaterialLine(NoteRow(run, __FILE__, __LINE__), __VA_ARGS__)
#define PrintTextLine(run, ...) PrintTextLine(NoteRow(run, __FILE__, __LINE__), __VA_ARGS__)
