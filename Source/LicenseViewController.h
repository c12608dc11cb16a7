// The licence screen: the agreement in the user's language in a scrolling, read-only area.
// It covers whatever is showing until the user goes back, or a failure comes above it.
#pragma once

#include "BaseViewController.h"

namespace Vexora {

class LicenseViewController : public BaseViewController {
public:
    explicit LicenseViewController(Platform& platform)
        : BaseViewController(platform, "LicenseViewController") {}

    void viewDidLoad() override;

    /// Reads the agreement of the current locale's language and builds the text area. A file that
    /// is missing or not readable as UTF-16 leaves the area empty.
    void setupLicenseText();

    void retranslate();

    /// Removes this screen, which uncovers the one before it.
    void backAction();

    Actions actions() override {
        return {{"backAction", [this] { backAction(); }}};
    }

    std::shared_ptr<TextField> licenseAgreementLabel() const {
        return outlet<TextField>("licenseAgreementLabel");
    }
    std::shared_ptr<ScrollView> licenseText() const { return outlet<ScrollView>("licenseText"); }
    std::shared_ptr<Button> backButton() const { return outlet<Button>("backButton"); }
};

} // namespace Vexora
