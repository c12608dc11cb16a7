// Views that write down what they are told, and the loader that makes them from definitions held
// as data. Main thread only, apart from the value of a progress bar.
#pragma once

#include "Platform/Interface.h"
#include "Platform/Recording/CallLog.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Vexora::Recording {

/// What the call log calls a view.
class Named {
public:
    virtual ~Named() = default;

    std::string name;
    /// Where the view writes its calls; null keeps it silent.
    CallLog* calls = nullptr;

protected:
    void record(const std::string& call) const {
        if (calls != nullptr) {
            calls->add(name + "." + call);
        }
    }
};

/// A view of any kind that records the calls which every view takes.
template <class Kind>
class Recording : public Kind, public Named {
public:
    void makeOpaque() { this->setOpaque(true); }

protected:
    void applySubviewAdded(View& child, Ordering ordering) override {
        const auto* named = dynamic_cast<const Named*>(&child);
        record("addSubview " + (named != nullptr ? named->name : "a stand-in") +
               (ordering == Ordering::Below ? " below " : " above ") +
               std::to_string(this->subviews().size() - 1) + " others");
    }
    void applySubviewRemoved(View& child) override {
        const auto* named = dynamic_cast<const Named*>(&child);
        if (calls != nullptr && named != nullptr) {
            calls->add(named->name + ".removeFromSuperview");
        }
    }
    void applyHidden() override { record("setHidden " + written(this->isHidden())); }
    void applyAlphaValue() override { record("setAlphaValue " + written(this->alphaValue())); }
    void applyHeightConstraint(double height) override {
        record("addHeightConstraint " + written(height));
    }
    void applyClickable() override { record("onClick"); }
};

class RecordingTextField : public Recording<TextField> {
protected:
    void applyText() override { record("setAttributedStringValue " + stringValue()); }
};

class RecordingButton : public Recording<Button> {
protected:
    void applyTitle() override { record("setTitle " + title()); }
};

class RecordingProgressIndicator : public Recording<ProgressIndicator> {
public:
    /// As if the definition had another range.
    using ProgressIndicator::setRange;

protected:
    void applyIndeterminate() override { record("setIndeterminate " + written(isIndeterminate())); }
    void applyThreadedAnimation() override {
        record("setUsesThreadedAnimation " + written(usesThreadedAnimation()));
    }
    void applyValue() override { record("doubleValue " + written(doubleValue())); }
};

class RecordingTextView : public Recording<TextView> {
public:
    /// The size that the view was made with.
    Size frame;

protected:
    void applyRichText() override { record("setRichText " + written(isRichText())); }
    void applyString() override { record("setString " + string()); }
    void applyEditable() override { record("setEditable " + written(isEditable())); }
    void applyContainerSize() override {
        record("setContainerSize " + written(containerSize().width) + " x " +
               written(containerSize().height));
    }
};

class RecordingScrollView : public Recording<ScrollView> {
public:
    Size contentSize() const override {
        record("contentSize");
        return visible;
    }

    Size visible{480.0, 260.0};

protected:
    void applyDocumentView() override { record("setDocumentView"); }
};

enum class ElementKind { Plain, Text, Button, Image, Progress, Scroll };

/// What an interface definition says about one screen.
struct Definition {
    /// The views inside the root, from the lowest to the topmost, each an outlet of that name.
    std::vector<std::pair<std::string, ElementKind>> elements;
    /// The controls that do something: the controller's action and the element.
    std::vector<std::pair<std::string, std::string>> actions;
    /// Whether the root covers its siblings.
    bool opaque = false;
};

/// The definitions of the application's five controllers.
std::map<std::string, Definition> screenDefinitions();

/// Makes recording views. The root view of a definition is called "view(NAME)", the others have
/// the name of their outlet.
class RecordingInterfaces : public InterfaceLoader {
public:
    explicit RecordingInterfaces(CallLog& calls) : calls_(calls) {}

    Interface load(const std::string& name) override;
    std::shared_ptr<TextView> makeTextView(Size size) override;

    /// Takes an element, its outlet and its action out of a definition.
    void leaveOut(const std::string& definition, const std::string& element);

    /// Leaves nothing but the root views.
    void leaveOutEverything();

    /// The view of that name that was loaded last.
    /// \throws std::out_of_range when there is none.
    std::shared_ptr<View> view(const std::string& name) const { return views_.at(name); }

    /// The same as the kind of view that it is; null when it is of another kind.
    template <class Kind>
    std::shared_ptr<Kind> find(const std::string& name) const {
        return std::dynamic_pointer_cast<Kind>(view(name));
    }

    /// Every definition by the name of its controller; a test changes it before loading.
    std::map<std::string, Definition> definitions = screenDefinitions();

private:
    CallLog& calls_;
    std::map<std::string, std::shared_ptr<View>> views_;
};

/// The names of a view's subviews, from the lowest to the topmost.
Lines namesOfSubviews(const View& view);

} // namespace Vexora::Recording
