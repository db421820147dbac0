// The table of bench/run; each bench program adds its rows.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace bench {

// One row: what was measured, the values of the program and of the baseline in the same run, and their
// comparison.
struct Row {
    std::string what;
    std::string program;
    std::string bare;
    std::string compared;
    std::string goal; // empty: no goal
    bool reached = true;
};

inline void print(const Row& row) {
    const char* const verdict = row.goal.empty() ? "" : row.reached ? "reached" : "MISSED";
    std::printf("%-60s %11s %11s %10s %11s  %s\n", row.what.c_str(), row.program.c_str(), row.bare.c_str(),
                row.compared.c_str(), row.goal.c_str(), verdict);
    std::fflush(stdout);
}

// Formats a number with its unit.
inline std::string measure(const char* format, double value) {
    char text[64]; // NOLINT(modernize-avoid-c-arrays): a buffer for snprintf
    std::snprintf(text, sizeof text, format, value);
    return text;
}

// The shortest time of five runs, in ms.
double bestOfFive(const auto& work) {
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// A row of memory, in MB: `goal` is how much more than the baseline the program may use.
inline Row memoryRow(const std::string& what, const std::vector<double>& program,
                     const std::vector<double>& bare, double goal) {
    const double more = median(program) - median(bare);
    return {what,
            measure("%.1f MB", median(program)),
            measure("%.1f MB", median(bare)),
            measure("%+.1f MB", more),
            measure("<= %+.0f MB", goal),
            more <= goal};
}

} // namespace bench
