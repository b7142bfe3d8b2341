// The customers of a working folder and the company that runs the program: `customer.db` and its index `customer.ix`.
//
// Each operation opens the files and closes them again. An operation that changes them has happened wholly, and is on the
// disk, when it returns; where it throws FileError, files and session are as they were.
#pragma once

#include <string_view>

#include "data/data_folder.h"
#include "data/session.h"

namespace norvale {

inline constexpr std::string_view kDeleteCustomerQuestion = "2 Delete this Customer?";

/// What stands ahead of the message title when a customer's number is 0 or above 32766.
inline constexpr std::string_view kNumberReserved = "0 The value 0 is reserved,  use a number from 1 to 32767!|";
inline constexpr std::int16_t kHighestCustomerNumber = 32766;

/// Reads the entry and the record at the cursor into the session. Returns whether there is one.
bool ReadCustomerAtCursor(DataFolder& folder, Session& session);

/// Puts the session on the company, for its form: both cursors on 1.
void OpenCompany(DataFolder& folder, Session& session);

/// Puts the session back on the first customer when the company's form closes.
void CloseCompany(DataFolder& folder, Session& session);

/// Steps to the next (+1) or previous (-1) customer whose name holds `CustomerSearchText`, or to the neighbour where no
/// search is set. At an end the notice says so: without a search the session stands on the last or first customer, with
/// one it stays where it was.
StepResult MoveCustomer(DataFolder& folder, Session& session, int direction);

/// Puts the session on the customer of that number or, where `CustomerSearchText` is set, on the first whose name holds
/// it, and sets `CustomerFound`. A miss clears it, leaves all else and, in a search, returns a notice.
StepResult FindCustomer(DataFolder& folder, Session& session, int number);

enum class [[nodiscard]] AddCustomer{Added, AlreadyAdding, NoNumberLeft};

/// Writes a blank customer under the number after the last one (past 32766 the lowest that is free) and puts the session
/// on him. Until he is saved, `customerIsNew` is set and `AbandonNewCustomer` takes him back.
AddCustomer AddBlankCustomer(DataFolder& folder, Session& session);

enum class [[nodiscard]] SaveCustomerResult{
    Saved,
    NumberReserved,  // 0, or not within 1 to 32766: show `kNumberReserved`
    NumberInUse,     // another customer has it
};

/// Writes the current customer over the record at the cursor. A changed number moves his entry to its place, the cursor
/// with it, and all his plans to the new number. Where the cursor stands on no entry he is added.
SaveCustomerResult SaveCustomer(DataFolder& folder, Session& session);

/// Writes the current customer as the company, number 0 at position 1 of both files, and copies it to `CompanyRecord`.
void SaveCompany(DataFolder& folder, Session& session);

enum class [[nodiscard]] DeleteCustomerResult{Deleted, Abandoned, NoCustomer};

/// Removes the customer at the cursor, without asking, and hands his plans to the company. The session stands on the first
/// customer that is left, or holds a blank one. A new customer that was never saved is abandoned.
DeleteCustomerResult DeleteCustomer(DataFolder& folder, Session& session);

/// Takes a new customer back that was never saved. Returns whether there was one.
bool AbandonNewCustomer(DataFolder& folder, Session& session);

}  // namespace norvale
