#include "Report.h"

#include <algorithm>
#include <cstdio>

namespace tessel::bench {

namespace {

std::string number(std::optional<double> value)
{
    if (!value)
        return "-";
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", *value);
    return text;
}

const char* verdict(const Line& line)
{
    if (!line.measured)
        return "NOT MEASURED";
    return line.isWithinBudget() ? "ok" : "OVER";
}

} // namespace

void Report::add(Line line)
{
    std::fprintf(stderr, "  %s: %s %s\n", line.what.c_str(), number(line.measured).c_str(),
                 line.unit.c_str());
    lines_.push_back(std::move(line));
}

void Report::addFailure(const std::vector<std::string>& lines, const std::string& reason)
{
    for (const auto& what : lines)
        add({.what = what, .unit = "", .measured = {}, .baseline = {}, .budget = 0, .remark = reason});
}

void Report::print() const
{
    std::printf("%-70s %10s %10s %10s  %-5s %s\n", "what", "measured", "baseline", "budget", "unit", "");
    for (const auto& line : lines_) {
        std::printf("%-70s %10s %10s %10s  %-5s %s\n", line.what.c_str(), number(line.measured).c_str(),
                    number(line.baseline).c_str(), line.measured ? number(line.budget).c_str() : "-",
                    line.unit.c_str(), verdict(line));
        if (!line.remark.empty())
            std::printf("    %s\n", line.remark.c_str());
    }
    if (!isComplete())
        std::printf("\nFAILED: not every line could be measured.\n");
    else if (!isWithinBudgets())
        std::printf("\nSome figures are over their budgets.\n");
    else
        std::printf("\nEvery figure is within its budget.\n");
}

bool Report::isComplete() const
{
    return !lines_.empty() &&
           std::all_of(lines_.begin(), lines_.end(), [](const Line& line) { return line.measured; });
}

bool Report::isWithinBudgets() const
{
    return std::all_of(lines_.begin(), lines_.end(), [](const Line& line) { return line.isWithinBudget(); });
}

} // namespace tessel::bench
