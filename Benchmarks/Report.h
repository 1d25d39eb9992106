#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessel::bench {

/// One figure with its budget. Lower is better in every line.
struct Line {
    std::string what;
    std::string unit;
    /// None: it could not be measured, and `remark` says why.
    std::optional<double> measured;
    /// What a bare program of the same run needs; none where that makes no sense.
    std::optional<double> baseline;
    double budget = 0;
    std::string remark;

    bool isWithinBudget() const { return measured && *measured <= budget; }
};

/// The table of all figures.
class Report {
public:
    void add(Line line);
    /// Lines that could not be measured.
    void addFailure(const std::vector<std::string>& lines, const std::string& reason);

    /// Prints the table, and what is wrong with it.
    void print() const;
    bool isComplete() const;
    bool isWithinBudgets() const;

private:
    std::vector<Line> lines_;
};

} // namespace tessel::bench
