#include "Core/InstallLog.h"

namespace Vexora {

LogPaths logPathsForHome(const std::string& homeDirectory) {
    LogPaths paths;
    paths.folder = homeDirectory + "/Library/Logs/Vexora_Lumiq";
    paths.file = paths.folder + "/vexora-one-click-installer.log";
    return paths;
}

bool validateLogFolder(FileSystem& files, SystemLog& systemLog, const std::string& folder) {
    if (files.fileExistsAtPath(folder)) {
        return true;
    }
    if (files.createDirectoryAtPath(folder)) {
        systemLog.log("Failed to create logging directory: " + folder);
        return false;
    }
    return true;
}

void appendToLog(FileSystem& files, SystemLog& systemLog, const LogPaths& paths,
                 const std::string& text) {
    if (!validateLogFolder(files, systemLog, paths.folder)) {
        return;
    }
    if (!files.fileExistsAtPath(paths.file)) {
        files.createFileAtPath(paths.file);
    }
    if (const auto handle = files.fileHandleForWritingAtPath(paths.file)) {
        handle->seekToEndOfFile();
        handle->writeData(text);
    }
}

} // namespace Vexora
