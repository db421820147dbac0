// The program's rule for failures: a statement that fails is skipped and the next one runs.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace base {

// What a port or a helper throws when it could not do its work; what() is UTF-8, in the system's own words
// where there are any. It is the only exception that the rooms throw or expect.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Runs one statement; true when it went through, false when it failed and was skipped. Wrap single
// statements, never a whole routine: what stands behind a failed statement has to run.
template <typename Statement>
bool carryOn(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

// The same; `report` gets the system's words when the statement failed.
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
