#include "Core/InstallLog.h"

namespace Vexora {

std::string logFolderForHome(const std::string& homeDirectory) {
    return homeDirectory + "/Library/Logs/Vexora_Lumiq";
}

std::string logFileInFolder(const std::string& folder) {
    return folder + "/vexora-one-click-installer.log";
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
