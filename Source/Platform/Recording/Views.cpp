#include "Platform/Recording/Views.h"

#include <algorithm>

namespace Vexora::Recording {
namespace {

template <class Kind>
std::shared_ptr<View> make(const std::string& name) {
    auto view = std::make_shared<Kind>();
    view->name = name;
    return view;
}

std::shared_ptr<View> makeElement(const std::string& name, ElementKind kind) {
    switch (kind) {
    case ElementKind::Text:
        return make<RecordingTextField>(name);
    case ElementKind::Button:
        return make<RecordingButton>(name);
    case ElementKind::Image:
        return make<Recording<ImageView>>(name);
    case ElementKind::Progress:
        return make<RecordingProgressIndicator>(name);
    case ElementKind::Scroll:
        return make<RecordingScrollView>(name);
    case ElementKind::Plain:
        break;
    }
    return make<Recording<View>>(name);
}

} // namespace

std::map<std::string, Definition> screenDefinitions() {
    using enum ElementKind;
    return {
        {"ViewController",
         {{{"lumiqLogo", Image}, {"containerView", Plain}, {"licenseLabel", Text}}, {}, false}},
        {"StartViewController",
         {{{"startLabel", Text}, {"startButton", Button}},
          {{"startAction", "startButton"}},
          false}},
        {"InstallViewController",
         {{{"installLabel", Text}, {"installProgress", Progress}, {"closeButton", Button}},
          {{"closeAction", "closeButton"}},
          false}},
        {"LicenseViewController",
         {{{"licenseAgreementLabel", Text}, {"licenseText", Scroll}, {"backButton", Button}},
          {{"backAction", "backButton"}},
          true}},
        {"FailViewController",
         {{{"closeIcon", Image},
           {"failLabel", Text},
           {"logLabel", Text},
           {"troubleshootButton", Button}},
          {{"openTroubleshoot", "troubleshootButton"}},
          false}},
    };
}

Interface RecordingInterfaces::load(const std::string& name) {
    calls_.add("load " + name);
    const Definition& definition = definitions[name];
    const auto root = std::make_shared<Recording<View>>();
    root->name = "view(" + name + ")";
    if (definition.opaque) {
        root->makeOpaque();
    }

    Interface loaded;
    loaded.view = root;
    for (const auto& [element, kind] : definition.elements) {
        const auto view = makeElement(element, kind);
        root->addSubview(view);
        loaded.outlets[element] = view;
    }
    for (const auto& [action, element] : definition.actions) {
        loaded.actions.emplace_back(action, loaded.outlets.at(element));
    }

    // What the definition itself puts together is no call of the application.
    root->calls = &calls_;
    views_[root->name] = root;
    for (const auto& [element, view] : loaded.outlets) {
        dynamic_cast<Named&>(*view).calls = &calls_;
        views_[element] = view;
    }
    return loaded;
}

std::shared_ptr<TextView> RecordingInterfaces::makeTextView(Size size) {
    calls_.add("makeTextView " + written(size.width) + " x " + written(size.height));
    const auto view = std::make_shared<RecordingTextView>();
    view->name = "textView";
    view->calls = &calls_;
    view->frame = size;
    views_[view->name] = view;
    return view;
}

void RecordingInterfaces::leaveOut(const std::string& definition, const std::string& element) {
    Definition& changed = definitions.at(definition);
    std::erase_if(changed.elements, [&](const auto& entry) { return entry.first == element; });
    std::erase_if(changed.actions, [&](const auto& entry) { return entry.second == element; });
}

void RecordingInterfaces::leaveOutEverything() {
    for (auto& [name, definition] : definitions) {
        definition.elements.clear();
        definition.actions.clear();
    }
}

Lines namesOfSubviews(const View& view) {
    Lines names;
    for (const auto& child : view.subviews()) {
        names.push_back(dynamic_cast<const Named&>(*child).name);
    }
    return names;
}

} // namespace Vexora::Recording
