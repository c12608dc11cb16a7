#include "InstallViewController.h"

#include "Core/InstallRun.h"
#include "FailViewController.h"

#include <tr.h>

#include <exception>

namespace Vexora {

std::shared_ptr<InstallViewController> InstallViewController::shared() {
    return std::static_pointer_cast<InstallViewController>(shared_from_this());
}

void InstallViewController::viewDidLoad() {
    BaseViewController::viewDidLoad();
    model_.reset();
    installProgress_ = outlet<ProgressIndicator>("installProgress");
    installProgress_->setIndeterminate(false);
    installProgress_->setUsesThreadedAnimation(true);
    queue_ = &platform().backgroundQueue;
    platform().mainQueue.async([self = shared()] { self->incrementProgressBar(); });
    attempt([this] {
        queue_->async([self = shared()] { self->attempt([&self] { self->startInstall(); }); });
    });
    retranslate();
}

void InstallViewController::attempt(const std::function<void()>& step) {
    try {
        step();
    } catch (const std::exception& error) {
        // Before anything else: the ticks would carry the bar to the success text.
        model_.freeze();
        platform().systemLog.log(std::string("Failed to install: ") + error.what());
        platform().mainQueue.async(
            [bar = installProgress_] { bar->setUsesThreadedAnimation(false); });
    }
}

void InstallViewController::retranslate() {
    VXLOCAL::Translator* translator = VXLOCAL::Translator::getInstance();
    const BaseViewController renderer(platform());
    installLabel()->setAttributedStringValue(renderer.applyMarkup(
        translator->tr("Installing <b>Ondrel Vexora Lumiq</b>..."), "<b>", 18.0, false));
    closeButton()->setTitle(translator->tr("Close"));
}

void InstallViewController::incrementProgressBar() {
    installProgress_->incrementBy(model_.increment);
    if (installProgress_->maxValue() > installProgress_->doubleValue()) {
        platform().mainQueue.after(model_.tickDelay(),
                                   [self = shared()] { self->incrementProgressBar(); });
    } else {
        platform().mainQueue.after(0.0, [self = shared()] { self->switchToSuccessView(); });
    }
}

void InstallViewController::startInstall() {
    InstallRun run(
        platform(), model_, *installProgress_, logFilePath(), [this] { return runElevated(); },
        [self = shared()](std::int32_t status) { self->switchToFailView(status); });
    run.startInstall();
}

bool InstallViewController::runElevated() {
    return Vexora::runElevated(platform());
}

void InstallViewController::switchToSuccessView() {
    StyledText text;
    text.append({VXLOCAL::Translator::getInstance()->tr("Installation completed!"),
                 Font{"QuillaSans", 18.0},
                 {}});
    installLabel()->setAttributedStringValue(text);
}

void InstallViewController::switchToFailView(std::int32_t status) {
    InterfaceController* parent = parentViewController();
    const auto failScreen =
        std::static_pointer_cast<FailViewController>(parent->childViewControllers()[FailChild]);
    parent->view()->addSubview(failScreen->view(), Ordering::Above);
    failScreen->updateFailViewStatus(status);
    installLabel()->setAlphaValue(0.0);
    installProgress()->setAlphaValue(0.0);
    installProgress()->setHidden(true);
}

void InstallViewController::closeAction() {
    if (successfulInstall()) {
        try {
            platform().processes.launch(
                nohupPath, {platform().environment.resourcePath() + "/unmount", "&"}, nullptr);
        } catch (const std::exception&) {
            // The user asked to leave; an installer medium that stays mounted is no reason to stay.
        }
    }
    platform().application.exit(0);
}

} // namespace Vexora
