#include "Platform/Qt/InterfaceLoader.h"

#include "Platform/Qt/Picture.h"
#include "Platform/Qt/Views.h"
#include "ui_FailViewController.h"
#include "ui_InstallViewController.h"
#include "ui_LicenseViewController.h"
#include "ui_StartViewController.h"
#include "ui_ViewController.h"

namespace Vexora {
namespace {

/// Fills a pane with the definition of that name; an unknown name leaves it empty.
void setUp(const std::string& name, Pane* pane) {
    if (name == "ViewController") {
        Ui::ViewController().setupUi(pane);
    } else if (name == "StartViewController") {
        Ui::StartViewController().setupUi(pane);
    } else if (name == "LicenseViewController") {
        Ui::LicenseViewController().setupUi(pane);
    } else if (name == "InstallViewController") {
        Ui::InstallViewController().setupUi(pane);
    } else if (name == "FailViewController") {
        Ui::FailViewController().setupUi(pane);
    }
}

} // namespace

Interface QtInterfaceLoader::load(const std::string& name) {
    auto* pane = new Pane;
    setUp(name, pane);
    Interface loaded{makeView(pane), {}, {}};
    if (pane->layout() != nullptr) {
        // So that sizes such as the licence area's hold before the pane is shown.
        pane->layout()->activate();
    }
    const auto widgets = pane->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (QWidget* widget : widgets) {
        const std::shared_ptr<View> view = makeView(widget);
        if (view == nullptr) {
            continue;
        }
        if (auto* picture = qobject_cast<Picture*>(widget)) {
            picture->loadFrom(environment_.resourcePath());
        }
        loaded.view->addSubview(view);
        loaded.outlets.emplace(widget->objectName().toStdString(), view);
        const std::string action = widget->property("action").toString().toStdString();
        if (!action.empty()) {
            loaded.actions.emplace_back(action, view);
        }
    }
    return loaded;
}

std::shared_ptr<TextView> QtInterfaceLoader::makeTextView(Size size) {
    return std::make_shared<QtTextView>(size);
}

} // namespace Vexora
