// The install log: one plain-text file in the user's library log folder, and how the application
// appends to it. Whatever fails here never disturbs the user.
#pragma once

#include "Platform/FileSystem.h"
#include "Platform/Services.h"

#include <string>

namespace Vexora {

/// Where the log lies.
struct LogPaths {
    std::string folder;
    std::string file;
};

/// The log's folder for a user's home directory, by plain concatenation.
std::string logFolderForHome(const std::string& homeDirectory);

/// The log file in that folder, by plain concatenation.
std::string logFileInFolder(const std::string& folder);

/// Makes sure that the log folder exists. Anything that exists at its path counts.
/// \return false when it had to be created and could not be; one system-log line then tells the
/// folder.
bool validateLogFolder(FileSystem& files, SystemLog& systemLog, const std::string& folder);

/// Appends the text to the log file as it is, without a line end. Text that cannot be written is
/// dropped.
void appendToLog(FileSystem& files, SystemLog& systemLog, const LogPaths& paths,
                 const std::string& text);

} // namespace Vexora
