// The install screen: it owns the install run and the progress model, and loading its view starts
// both. It ends on the success text, or under the failure screen.
#pragma once

#include "BaseViewController.h"
#include "Core/ProgressModel.h"

#include <cstdint>
#include <functional>

namespace Vexora {

class InstallViewController : public BaseViewController {
public:
    explicit InstallViewController(Platform& platform)
        : BaseViewController(platform, "InstallViewController") {}

    /// Sets the progress model up, posts the first tick and the install run, and sets the texts. A run
    /// that cannot be posted, or that an exception ends, has no outcome: the system log tells why,
    /// and the bar stands still.
    void viewDidLoad() override;
    void retranslate();

    /// One tick of the bar: raises it, then schedules the next tick, or the success text once it is
    /// full.
    void incrementProgressBar();

    /// Runs the installation to its outcome; see InstallRun::startInstall. On the background queue,
    /// once. \throws std::exception what InstallRun::startInstall throws.
    void startInstall();

    /// Runs `install` once as administrator. \return whether it ran without error. On the background
    /// queue, called by startInstall alone.
    bool runElevated();

    /// Shows the success text.
    void switchToSuccessView();

    /// Shows the failure screen for a status over this one. The ticks go on.
    void switchToFailView(std::int32_t status);

    /// Ends the process with status 0, after starting `unmount` when the installation succeeded.
    void closeAction();

    Actions actions() override {
        return {{"closeAction", [this] { closeAction(); }}};
    }

    std::shared_ptr<TextField> installLabel() const { return outlet<TextField>("installLabel"); }
    std::shared_ptr<ProgressIndicator> installProgress() const { return installProgress_; }
    std::shared_ptr<Button> closeButton() const { return outlet<Button>("closeButton"); }
    BackgroundQueue* queue() const { return queue_; }

    // The progress model; whole-value reads and writes from any thread.
    double base() const { return model_.base; }
    void setBase(double value) { model_.base = value; }
    double exponent() const { return model_.exponent; }
    void setExponent(double value) { model_.exponent = value; }
    double increment() const { return model_.increment; }
    void setIncrement(double value) { model_.increment = value; }
    bool successfulInstall() const { return model_.successfulInstall; }
    void setSuccessfulInstall(bool value) { model_.successfulInstall = value; }

private:
    /// This controller as a shared pointer, for the blocks that it posts.
    std::shared_ptr<InstallViewController> shared();

    /// Takes a step towards the installation; what it throws ends the installation alone. Any thread.
    void attempt(const std::function<void()>& step);

    ProgressModel model_;
    /// Kept beside the outlets because the install run reads its value from the background thread.
    std::shared_ptr<ProgressIndicator> installProgress_ = std::make_shared<ProgressIndicator>();
    BackgroundQueue* queue_ = nullptr;
};

} // namespace Vexora
