// A reporter for figures that are held against each other.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

/// Prints as usual and remembers the median of every benchmark that was repeated.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    MedianReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") {
                medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
            }
        }
    }

    /// Prints the ratio of two medians of processor time, when both were measured.
    void printRatio(const std::string& what, const std::string& ours,
                    const std::string& theirs) const {
        const auto mine = medians_.find(ours);
        const auto other = medians_.find(theirs);
        if (mine != medians_.end() && other != medians_.end()) {
            std::printf("%s = %.2f\n", what.c_str(), mine->second / other->second);
        }
    }

private:
    std::map<std::string, double> medians_;
};
