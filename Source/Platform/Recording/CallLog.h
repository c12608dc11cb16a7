// The one list in which a recording platform writes down what it was asked for.
// Every line is a sentence that a test can compare as it stands. Any thread.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace Vexora::Recording {

using Lines = std::vector<std::string>;

class CallLog {
public:
    void add(std::string line);

    /// Takes no further line: a process that has ended calls nothing any more.
    void end();

    /// Forgets everything, so that a test sees only what follows.
    void clear();

    /// All lines, the oldest first.
    Lines lines() const;

    /// The lines that begin with a text, the oldest first.
    Lines beginningWith(const std::string& start) const;

    /// How often exactly this line was written.
    std::size_t count(const std::string& line) const;

    /// The position of the first line that reads exactly so.
    /// \throws std::out_of_range when there is none.
    std::size_t positionOf(const std::string& line) const;

private:
    mutable std::mutex mutex_;
    Lines lines_;
    bool ended_ = false;
};

/// A number as the call log writes it: 0.5, 200, -1.
std::string written(double number);

/// "true" or "false".
std::string written(bool flag);

} // namespace Vexora::Recording
