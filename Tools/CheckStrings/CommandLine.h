// What the user asks of check-strings.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CheckStrings {

/// Thrown when the arguments make no sense; says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Request {
    bool wantsHelp = false;
    std::optional<std::filesystem::path> reference;
    /// At least one, unless help is wanted; without a reference exactly one.
    std::vector<std::filesystem::path> paths;
};

/// Help comes first, wherever it is asked for.
/// \param arguments without the program's name.
/// \throws UsageError.
Request readArguments(const std::vector<std::string>& arguments);

/// How to call the program, what its statuses mean, and every rule.
std::string helpText();

} // namespace CheckStrings
