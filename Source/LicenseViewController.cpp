#include "LicenseViewController.h"

#include "Core/LocaleSelection.h"

#include <tr.h>

#include <limits>

namespace Vexora {

void LicenseViewController::viewDidLoad() {
    BaseViewController::viewDidLoad();
    setupLicenseText();
    retranslate();
}

void LicenseViewController::setupLicenseText() {
    Environment& environment = platform().environment;
    const std::string resourcePath = environment.resourcePath();
    const std::string language = languageCode(environment.localeIdentifier());
    const auto agreement = platform().files.utf16TextOfFile(resourcePath + "/LA_" + language);

    const auto scrollView = licenseText();
    const Size visible = scrollView->contentSize();
    const auto textView = platform().interfaces.makeTextView(visible);
    textView->setRichText(true);
    textView->setString(agreement.value_or(""));
    textView->setEditable(false);
    textView->setContainerSize(
        {visible.width, static_cast<double>(std::numeric_limits<float>::max())});
    scrollView->setDocumentView(textView);
}

void LicenseViewController::retranslate() {
    VXLOCAL::Translator* translator = VXLOCAL::Translator::getInstance();
    licenseAgreementLabel()->setStringValue(translator->tr("License Agreement"));
    backButton()->setTitle(translator->tr("Go back"));
}

void LicenseViewController::backAction() {
    view()->removeFromSuperview();
}

} // namespace Vexora
