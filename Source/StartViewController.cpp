#include "StartViewController.h"

#include <tr.h>

namespace Vexora {

void StartViewController::viewDidLoad() {
    BaseViewController::viewDidLoad();
    retranslate();
}

void StartViewController::retranslate() {
    VXLOCAL::Translator* translator = VXLOCAL::Translator::getInstance();
    StyledText instruction = applyMarkup(
        translator->tr("To install Ondrel Vexora Lumiq, click <b>Start</b>."), "<b>", 18.0, false);
    instruction.setAlignment(TextAlignment::Center);
    startLabel()->setAttributedStringValue(instruction);
    startButton()->setTitle(translator->tr("Start"));
}

void StartViewController::startAction() {
    InterfaceController* parent = parentViewController();
    parent->view()->addSubview(parent->childViewControllers()[InstallChild]->view(),
                               Ordering::Below);
    view()->removeFromSuperview();
}

} // namespace Vexora
