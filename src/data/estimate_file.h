// The plans of a working folder: `estimate.dbr` and its index `estimate.ix`.
//
// Each operation opens the files and closes them again. An operation that changes them has happened wholly, and is on the
// disk, when it returns; where it throws FileError, files and session are as they were.
#pragma once

#include <string_view>

#include "data/data_folder.h"
#include "data/session.h"

namespace norvale {

inline constexpr std::string_view kDeleteEstimateQuestion = "2 Delete this Estimate?";

/// Appends the current plan and inserts its entry behind those of the same key. The cursor stands on the new entry.
void AddEstimate(DataFolder& folder, Session& session);

enum class [[nodiscard]] EstimateChange{Done, NothingOnFile};

/// Writes the current plan over the record of the entry at the cursor and moves the entry where its key has changed; the
/// cursor follows. NothingOnFile where no entry is at the cursor.
EstimateChange UpdateEstimate(DataFolder& folder, Session& session);

/// Removes the plan at the cursor, without asking. Both files stand in index order afterwards, and the session holds the
/// first plan that is left. NothingOnFile where no entry is at the cursor.
EstimateChange DeleteEstimate(DataFolder& folder, Session& session);

/// Moves the cursor `direction` entries (+1, -1; 0 reads the current one again) and reads the plan there. Past an end the
/// cursor stays on the last or the first plan and the result says so.
StepResult MoveEstimate(DataFolder& folder, Session& session, int direction);

/// Puts the cursor on the customer's first plan. `number` becomes -1 where he has none; then the cursor stays.
void FindFirstEstimateOfCustomer(DataFolder& folder, Session& session, int& number);

/// Puts the cursor on the first plan of exactly that customer and plan number (Windows-1252) and reads it. Returns whether
/// there is one; where there is none, the session stays as it was.
[[nodiscard]] bool FindEstimateOfPlan(DataFolder& folder, Session& session, int customer, std::string_view planNumber);

/// Puts the cursor on the plan whose record stands at `recordPosition`, wherever its entry has moved, and reads it. Returns
/// whether there is one; where there is none, the session stays as it was.
[[nodiscard]] bool FindEstimateAt(DataFolder& folder, Session& session, std::int32_t recordPosition);

/// Puts the cursor on the first plan whose number holds `text`, in any case, and reads it. Where there is none, the notice
/// says so and the session stays as it was.
StepResult FindEstimateByPlanText(DataFolder& folder, Session& session, std::string_view text);

/// Hands all plans of a customer to the company: number 0 in record and key, in key order at the head of the index.
void ReassignEstimatesToCompany(DataFolder& folder, int number);

class Replacement;

/// Adds to a change that every plan of the customer `from` gets the number `to`. The plans go where their new keys belong,
/// behind plans of the same key. Returns how many there are.
std::size_t MovePlans(Replacement& change, DataFolder& folder, std::int16_t from, std::int16_t to);

/// How many plans the customer has.
std::size_t CountEstimatesOfCustomer(DataFolder& folder, std::int16_t number);

}  // namespace norvale
