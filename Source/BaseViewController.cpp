#include "BaseViewController.h"

#include "Color.h"
#include "Core/InstallLog.h"
#include "Core/Markup.h"

namespace Vexora {

BaseViewController::BaseViewController(Platform& platform, std::string interfaceName)
    : InterfaceController(platform, std::move(interfaceName)) {
    setLogPaths();
}

void BaseViewController::viewDidLoad() {
    InterfaceController::viewDidLoad();
    initLoggingPath();
}

std::string BaseViewController::removeMarkdown(const std::string& text) const {
    return removeTags(text);
}

StyledText BaseViewController::applyMarkup(const std::string& text, const std::string& separator,
                                           double fontSize, bool color) const {
    return renderMarkup(text, separator, {"QuillaSans-SemiBold", fontSize},
                        color ? std::optional(OndrelFontBlueColor) : std::nullopt);
}

bool BaseViewController::validateLogFolderPath() {
    return validateLogFolder(platform().files, platform().systemLog, logFolderPath());
}

void BaseViewController::log(const std::string& text) {
    appendToLog(platform().files, platform().systemLog, {logFolderPath(), logFilePath()}, text);
}

void BaseViewController::initLoggingPath() {
    setLogPaths();
    validateLogFolderPath();
}

void BaseViewController::setLogPaths() {
    const LogPaths paths = logPathsForHome(platform().environment.homeDirectory());
    setLogFolderPath(paths.folder);
    setLogFilePath(paths.file);
}

std::string BaseViewController::logFolderPath() const {
    const std::lock_guard lock(pathsMutex_);
    return logFolderPath_;
}

void BaseViewController::setLogFolderPath(const std::string& path) {
    const std::lock_guard lock(pathsMutex_);
    logFolderPath_ = path;
}

std::string BaseViewController::logFilePath() const {
    const std::lock_guard lock(pathsMutex_);
    return logFilePath_;
}

void BaseViewController::setLogFilePath(const std::string& path) {
    const std::lock_guard lock(pathsMutex_);
    logFilePath_ = path;
}

} // namespace Vexora
