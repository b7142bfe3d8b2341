// Which fields of the data-entry form a plan may use: by its type, and by what is chosen in eight of the lists.
//
// The rules are coded lists: a letter (C selection boxes, T number boxes, L caption lines) and two digits for each field.
#pragma once

#include <string_view>

#include "data/estimate_record.h"
#include "entry/form_fields.h"

namespace norvale {

/// Enables or disables the fields of a coded list. An unknown letter, a list of one character, and a number without a field
/// change nothing.
void SetFieldList(PlanForm& form, std::string_view list, bool enable);

/// Shuts what the form's plan type does not have and sets the boxes that the type fixes; for an opened plan also shuts what
/// the choices in `plan` rule out. On a brick-veneer plan it sets the wall finish in `plan` too. Run once for a fresh form,
/// before the field rules of all lines.
void ApplyPlanTypeRules(PlanForm& form, EstimateRecord& plan);

/// Opens and shuts the fields that depend on the list in line `line`: 4, 20, 21, 33, 48, 56, 66 or 82. Other lines do
/// nothing. The rules only look at rows (from 0) and the plan type.
void ApplyFieldRule(PlanForm& form, int line);

/// The rules of all lines, in their order.
void ApplyAllFieldRules(PlanForm& form);

/// Chooses row `row` (from 0; -1: none) of list `box` and marks the plan. Where the list is enabled, the rule of its line
/// runs.
void SelectRow(PlanForm& form, int box, int row);

/// Enables the captions that the rule of `line` may have shut, so that a blank worksheet asks for them.
void EnableLabelsForPrint(PlanForm& form, int line);

/// The next line behind `line` whose caption is enabled, -1 behind the last. -1 begins with line 0.
int NextEnabledLine(const PlanForm& form, int line);

}  // namespace norvale
