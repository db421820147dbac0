// The program's rule for errors: a statement that fails is skipped and the next one runs.
#pragma once

#include "base/failure.h"

#include <utility>

namespace base {

// Runs one statement. Returns true on success, false if it threw Failure and was skipped. Wrap single
// statements, never a whole routine: the statements after a failed one must still run.
template <typename Statement>
bool carryOn(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

// The same; `report` receives the message of the failure.
template <typename Statement, typename Report>
bool carryOn(Statement&& statement, Report&& report) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const Failure& failure) {
        std::forward<Report>(report)(failure.what());
        return false;
    }
}

} // namespace base
