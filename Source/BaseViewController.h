// The common base of the four screen controllers: the paths of the install log, and the markup
// renderer. The renderer uses no state of the controller, so a temporary one will do.
#pragma once

#include "Core/InstallLog.h"
#include "InterfaceController.h"

#include <mutex>
#include <string>

namespace Vexora {

/// The positions of the screens among the children of the main window's content controller. They
/// are a contract: nothing may be inserted before the last of them.
enum ChildPosition : std::size_t { StartChild, InstallChild, LicenseChild, FailChild };

class BaseViewController : public InterfaceController {
public:
    /// Sets the log paths, so that a text can be logged before the view is loaded.
    explicit BaseViewController(Platform& platform,
                                std::string interfaceName = "BaseViewController");

    void viewDidLoad() override;

    /// The text without its tags, see removeTags.
    std::string removeMarkdown(const std::string& text) const;

    /// Renders a tagged text: the words between the tags become semibold.
    /// \param separator the opening tag, such as "<b>"; at least one character long.
    /// \param fontSize size of the marked words in points.
    /// \param color whether the marked words are also coloured OndrelFontBlueColor.
    StyledText applyMarkup(const std::string& text, const std::string& separator, double fontSize,
                           bool color) const;

    /// Makes sure that the log folder exists. \return whether it is usable.
    bool validateLogFolderPath();

    /// Appends a text to the log file, without adding anything to it. Main thread.
    void log(const std::string& text);

    /// Sets both paths and makes sure that the folder exists.
    void initLoggingPath();

    // The paths; any thread.
    std::string logFolderPath() const;
    void setLogFolderPath(const std::string& path);
    std::string logFilePath() const;
    void setLogFilePath(const std::string& path);

private:
    void setLogPaths();
    /// A copy of both paths; any thread.
    LogPaths logPaths() const;

    mutable std::mutex logPathsMutex_;
    LogPaths logPaths_;
};

} // namespace Vexora
