#include "BaseViewController.h"

#include "Color.h"
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
    appendToLog(platform().files, platform().systemLog, logPaths(), text);
}

void BaseViewController::initLoggingPath() {
    setLogPaths();
    validateLogFolderPath();
}

void BaseViewController::setLogPaths() {
    setLogFolderPath(logFolderForHome(platform().environment.homeDirectory()));
    setLogFilePath(logFileInFolder(logFolderPath()));
}

LogPaths BaseViewController::logPaths() const {
    const std::lock_guard lock(logPathsMutex_);
    return logPaths_;
}

std::string BaseViewController::logFolderPath() const {
    return logPaths().folder;
}

void BaseViewController::setLogFolderPath(const std::string& path) {
    const std::lock_guard lock(logPathsMutex_);
    logPaths_.folder = path;
}

std::string BaseViewController::logFilePath() const {
    return logPaths().file;
}

void BaseViewController::setLogFilePath(const std::string& path) {
    const std::lock_guard lock(logPathsMutex_);
    logPaths_.file = path;
}

} // namespace Vexora
