// Runs check-strings over files that a test writes.
#pragma once

#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

class CheckStringsFixture : public testing::Test {
protected:
    using Lines = std::vector<std::string>;

    struct Result {
        int status;
        std::string output;
        std::string errors;
    };

    /// Runs the program to its end. Relative paths start from `folder_`.
    Result run(const std::vector<std::string>& arguments) const;

    /// Runs the program with its standard output in a file, and its standard error in `errors`.
    /// \return its status, or -1 when it crashed.
    int statusOf(const std::vector<std::string>& arguments, const std::string& output) const;

    /// Runs the program, which must say nothing on standard error and whose status must fit.
    /// \return the findings, a line of output each.
    Lines findings(const std::vector<std::string>& arguments) const;

    /// Checks these bytes as a strings file, against a reference with these keys.
    /// \return each finding as "line: rule", after a look at the file's name.
    Lines findingsIn(std::string_view bytes, const std::vector<std::string>& keys) const;

    /// A strings file with each key as its own text.
    static std::string stringsOf(const std::vector<std::string>& keys);

    TestSupport::TemporaryFolder folder_;

private:
    TestSupport::TemporaryFolder streams_;
};

/// A line of a strings file, and what is found in it.
struct LineCase {
    const char* name;
    /// The one key of the reference.
    std::string key;
    std::string line;
    /// Empty for a line that must pass.
    std::string rule;
};

/// Shows a case by what is to be found.
inline void PrintTo(const LineCase& line, std::ostream* stream) {
    *stream << (line.rule.empty() ? "passes" : line.rule);
}

/// Checks the case's line, which stands on line 2 of its file.
class LineCaseTest : public CheckStringsFixture, public testing::WithParamInterface<LineCase> {
protected:
    void check() const;

public:
    static std::string nameOf(const testing::TestParamInfo<LineCase>& parameter) {
        return parameter.param.name;
    }
};

/// Cases of one entry that is sound but for its text.
inline LineCase found(const char* name, const std::string& key, const std::string& text,
                      const std::string& rule) {
    return {name, key, "\"" + key + "\" = \"" + text + "\"", rule};
}

inline LineCase passes(const char* name, const std::string& key, const std::string& text) {
    return found(name, key, text, "");
}
