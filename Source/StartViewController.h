// The start screen: one line that says what to do, and the button that does it.
// Replacing this screen by the install screen is what starts the installation.
#pragma once

#include "BaseViewController.h"

namespace Vexora {

class StartViewController : public BaseViewController {
public:
    explicit StartViewController(Platform& platform)
        : BaseViewController(platform, "StartViewController") {}

    void viewDidLoad() override;
    void retranslate();

    /// Puts the install screen under everything the window shows, and removes this screen for good.
    void startAction();

    Actions actions() override {
        return {{"startAction", [this] { startAction(); }}};
    }

    std::shared_ptr<TextField> startLabel() const { return outlet<TextField>("startLabel"); }
    std::shared_ptr<Button> startButton() const { return outlet<Button>("startButton"); }
};

} // namespace Vexora
