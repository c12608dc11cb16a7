// What the checks find, and where.
#pragma once

#include "Rules.h"

#include <compare>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace CheckStrings {

struct Finding {
    std::string file;
    /// Counted from 1; 0 stands for the file as a whole.
    std::size_t line;
    Rule rule;
    std::string text;

    /// Orders by file, line, rule and text.
    auto operator<=>(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

/// Takes down what is found in one file.
class FileReport {
public:
    FileReport(std::string file, Findings& findings)
        : file_(std::move(file)), findings_(findings) {}

    void add(std::size_t line, Rule rule, std::string text) {
        findings_.push_back({file_, line, rule, std::move(text)});
    }

private:
    std::string file_;
    Findings& findings_;
};

} // namespace CheckStrings
