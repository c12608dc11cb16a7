// The failure screen: why the installation did not succeed, or that nothing had to be done, and
// where the log is. It stays until the window closes.
#pragma once

#include "BaseViewController.h"

#include <cstdint>

namespace Vexora {

class FailViewController : public BaseViewController {
public:
    explicit FailViewController(Platform& platform)
        : BaseViewController(platform, "FailViewController") {}

    void viewDidLoad() override;

    /// Shows the message for an exit status, followed by the link to the log.
    void updateFailViewStatus(std::int32_t status);

    void retranslate();

    /// Reveals the log file in the file viewer.
    void openLogs();

    /// Opens the troubleshooting page in the browser.
    void openTroubleshoot();

    Actions actions() override {
        return {{"openTroubleshoot", [this] { openTroubleshoot(); }}};
    }

    std::shared_ptr<ImageView> closeIcon() const { return outlet<ImageView>("closeIcon"); }
    void setCloseIcon(std::shared_ptr<ImageView> icon) { setOutlet("closeIcon", std::move(icon)); }
    std::shared_ptr<TextField> failLabel() const { return outlet<TextField>("failLabel"); }
    void setFailLabel(std::shared_ptr<TextField> label) {
        setOutlet("failLabel", std::move(label));
    }
    std::shared_ptr<TextField> logLabel() const { return outlet<TextField>("logLabel"); }
    void setLogLabel(std::shared_ptr<TextField> label) { setOutlet("logLabel", std::move(label)); }
    const std::string& error() const { return error_; }
    void setError(const std::string& error) { error_ = error; }
    const StyledText& open_logs() const { return open_logs_; }
    void setOpen_logs(const StyledText& link) { open_logs_ = link; }

private:
    std::string error_;
    StyledText open_logs_;
};

} // namespace Vexora
