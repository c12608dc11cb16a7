// The content of the main window: the logo, the licence notice, and the four screens as children in
// a fixed order by which they find one another.
#pragma once

#include "InterfaceController.h"

#include <memory>

namespace Vexora {

class FailViewController;
class InstallViewController;
class LicenseViewController;
class StartViewController;

class ViewController : public InterfaceController {
public:
    explicit ViewController(Platform& platform) : InterfaceController(platform, "ViewController") {}

    /// Creates the four screens, makes the notice clickable, sets the texts and shows the start
    /// screen.
    void viewDidLoad() override;

    /// Initialises the translator, then sets the window's title and the notice.
    void retranslate();

    /// Chooses the language and loads its texts; a failure goes to the install log.
    void initializeTranslator();

    /// Lets a click anywhere on the notice open the licence screen.
    void setupLicenseButton();

    /// Shows the licence screen over everything.
    void switchToLicenseView();

    std::shared_ptr<ImageView> lumiqLogo() const { return outlet<ImageView>("lumiqLogo"); }
    std::shared_ptr<TextField> licenseLabel() const { return outlet<TextField>("licenseLabel"); }
    const std::shared_ptr<StartViewController>& startView() const { return startView_; }
    const std::shared_ptr<InstallViewController>& installView() const { return installView_; }
    const std::shared_ptr<LicenseViewController>& licenseView() const { return licenseView_; }
    const std::shared_ptr<FailViewController>& failView() const { return failView_; }
    std::shared_ptr<View> containerView() const { return outlet<View>("containerView"); }

private:
    std::shared_ptr<StartViewController> startView_;
    std::shared_ptr<InstallViewController> installView_;
    std::shared_ptr<LicenseViewController> licenseView_;
    std::shared_ptr<FailViewController> failView_;
};

} // namespace Vexora
