// Which fields of the data-entry form a plan may use: by its type, and by what is chosen in eight of the lists.
#pragma once

#include "data/estimate_record.h"
#include "entry/form_fields.h"

namespace norvale {

/// Enables or disables fields and the captions of their lines.
void SetFields(PlanForm& form, const FieldSet& fields, bool enable);

/// Shuts what the form's plan type does not have and chooses the rows that the type fixes; for an opened plan also shuts what
/// the choices in `plan` rule out. On a brick-veneer plan it sets the wall finish in `plan` too. Run once for a fresh form,
/// before the field rules of all lists.
void ApplyPlanTypeRules(PlanForm& form, EstimateRecord& plan);

/// Opens and shuts the fields that depend on what is chosen in `list`: wall sheathing, foundation, girder, drop girder, floor
/// joists, oak flooring, framing of the second floor, or wall finish. Other lists do nothing. The rules only look at rows
/// (from 0) and the plan type.
void ApplyFieldRule(PlanForm& form, SelectionList list);

/// The rules of all lists, in the order of their lines.
void ApplyAllFieldRules(PlanForm& form);

/// Chooses row `row` (from 0; -1: none) of a list and marks the plan. Where the list is enabled, its rule runs.
void SelectRow(PlanForm& form, SelectionList list, int row);

}  // namespace norvale
