#include "FailViewController.h"

#include "Color.h"
#include "Core/FailureCatalogue.h"

#include <tr.h>

namespace Vexora {
namespace {

/// The height in points that the message keeps in the failure presentation.
constexpr double messageHeight = 200.0;

std::string translated(const FailureMessage& message) {
    if (message.identifier == nullptr) {
        return {};
    }
    // The identifiers are literals of the catalogue, so the format cannot come from outside.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    return VXLOCAL::Translator::getInstance()->tr(message.identifier);
#pragma GCC diagnostic pop
}

} // namespace

void FailViewController::viewDidLoad() {
    BaseViewController::viewDidLoad();
    setError("");
    StyledText link;
    link.append({VXLOCAL::Translator::getInstance()->tr("Open logs"),
                 Font{"QuillaSans-SemiBold", 15.0}, OndrelFontBlueColor});
    setOpen_logs(link);
    if (const InterfaceController* parent = parentViewController()) {
        parent->outlet<TextField>("licenseLabel")->setHidden(true);
    }
    logLabel()->onClick([this] { openLogs(); });
    retranslate();
}

void FailViewController::retranslate() {
    failLabel()->setStringValue(VXLOCAL::Translator::getInstance()->tr("Installation failed"));
    failLabel()->setHidden(true);
    closeIcon()->setHidden(true);
    logLabel()->setAttributedStringValue(open_logs_);
}

void FailViewController::updateFailViewStatus(std::int32_t status) {
    const FailureMessage message = failureMessageForStatus(status);
    const std::string text = translated(message);
    if (message.presentation == Presentation::Failure) {
        failLabel()->setHidden(false);
        closeIcon()->setHidden(false);
        logLabel()->addHeightConstraint(messageHeight);
    }
    logLabel()->setAttributedStringValue(composeFailureText(text, open_logs_));
}

void FailViewController::openLogs() {
    platform().workspace.selectFile(logFilePath());
}

void FailViewController::openTroubleshoot() {
    platform().workspace.openUrl(VEXORA_TROUBLESHOOTING_URL);
}

} // namespace Vexora
