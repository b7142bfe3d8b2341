// A plan on its way from the record into the data-entry form and back.
#pragma once

#include <string>
#include <vector>

#include "data/estimate_record.h"
#include "entry/form_fields.h"
#include "prices/material_lists.h"

namespace norvale {

/// Whether the screen file has all its lines, and one for each number box.
bool HaveEveryBox(const std::vector<ScreenLine>& lines);

/// Whether the material file has rows for each list.
bool HaveEveryList(const std::vector<MaterialRow>& rows);

/// The notice with which opening a plan is refused, empty where lines and lists are there: a form without them would write
/// zeros over a plan's choices.
std::string RefusalOfPlan(const std::vector<ScreenLine>& lines, const std::vector<MaterialRow>& rows);

/// Fills the lists and all boxes. A new plan has the default rows, empty number boxes and joists of 8 to 16 feet; an opened
/// one has what its record holds. A stored choice is found by its row where that row still has the stored text, else by the
/// text; a row beyond the list is no choice. Leaves no mark.
void LoadPlanIntoForm(PlanForm& form, PlanMode mode, const EstimateRecord& plan, const std::vector<MaterialRow>& rows);

/// Puts the form's lines, choices and numbers into the record's fields; the reverse of `LoadPlanIntoForm`. What no box of
/// the form holds stays as it is. A number that the record cannot hold is stored as the nearest one that it can.
void StorePlanFromForm(const PlanForm& form, EstimateRecord& plan);

/// A form ready to be shown: lines placed, the plan loaded, the rules of its type and of all lines applied, no mark.
/// `isTypeChanged`: the type of an opened plan has just been changed on the checklist.
PlanForm OpenPlanForm(PlanMode mode, bool isTypeChanged, EstimateRecord& plan, const std::vector<ScreenLine>& lines,
                      const std::vector<MaterialRow>& rows);

/// A record for a new plan: nothing in it, pricing level 1.
EstimateRecord BlankPlan();

/// The number boxes that the plan type has shut although they hold a value, which still counts. Walls that only the choice
/// of a finish has shut are left out.
std::vector<NumberBox> ShutBoxesWithValues(const PlanForm& form);

/// What is asked, once, when a changed plan type leaves such boxes. Yes: `ClearShutBoxes`.
inline constexpr std::string_view kClearShutBoxesQuestion =
    "2 Entries that the new plan type has shut still count in the estimate. Set them to 0?|CHANGE PLAN TYPE";

void ClearShutBoxes(PlanForm& form);

/// Chooses vinyl as the wall finish of a new plan for a whole house of vinyl; nothing where the finish is fixed.
void ChooseWholeHouseVinyl(PlanForm& form);

}  // namespace norvale
