#include "ViewController.h"

#include "Core/LocaleSelection.h"
#include "FailViewController.h"
#include "InstallViewController.h"
#include "LicenseViewController.h"
#include "StartViewController.h"

#include <tr.h>

namespace Vexora {

void ViewController::viewDidLoad() {
    InterfaceController::viewDidLoad();
    startView_ = std::make_shared<StartViewController>(platform());
    addChildViewController(startView_);
    installView_ = std::make_shared<InstallViewController>(platform());
    addChildViewController(installView_);
    licenseView_ = std::make_shared<LicenseViewController>(platform());
    addChildViewController(licenseView_);
    failView_ = std::make_shared<FailViewController>(platform());
    addChildViewController(failView_);
    setupLicenseButton();
    retranslate();
    containerView()->addSubview(startView_->view());
}

void ViewController::retranslate() {
    initializeTranslator();
    VXLOCAL::Translator* translator = VXLOCAL::Translator::getInstance();
    const auto windows = platform().application.windows();
    if (!windows.empty()) {
        windows.front()->setTitle(translator->tr("Ondrel Vexora Lumiq Setup"));
    }
    const BaseViewController renderer(platform());
    licenseLabel()->setAttributedStringValue(renderer.applyMarkup(
        translator->tr("By installing, you agree to the Ondrel Vexora <a>license agreement</a>."),
        "<a>", 12.0, true));
    platform().application.setCloseCommand(translator->tr("Close"));
}

void ViewController::initializeTranslator() {
    const auto language =
        Vexora::initializeTranslator(platform().environment, [this](const std::string& reason) {
            std::static_pointer_cast<BaseViewController>(childViewControllers()[StartChild])
                ->log(reason);
        });
    if (language) {
        platform().application.setLanguage(*language);
    }
}

void ViewController::setupLicenseButton() {
    licenseLabel()->onClick([this] { switchToLicenseView(); });
}

void ViewController::switchToLicenseView() {
    view()->addSubview(licenseView_->view());
}

} // namespace Vexora
