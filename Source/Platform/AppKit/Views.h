// The views of the seam over those of the toolkit: each mirrors the state that its base keeps.
// Main thread only.
#pragma once

#include "Platform/AppKit/Compatibility.h"
#include "Platform/Controls.h"
#include "Platform/Shown.h"

#include <memory>

@class VexoraButton;
@class VexoraPane;

namespace Vexora {

/// What every view has beside its base. The widget leaves the window with its view.
class WidgetOwner {
public:
    explicit WidgetOwner(NSView* widget) : widget_(widget) {}
    WidgetOwner(const WidgetOwner&) = delete;
    WidgetOwner& operator=(const WidgetOwner&) = delete;
    virtual ~WidgetOwner();

    NSView* widget() const { return widget_.get(); }

protected:
    void addChild(View& child, Ordering ordering);
    void removeChild(View& child);
    void show(const View& view);
    void fixHeight(double height);

private:
    Strong<NSView> widget_;
};

class AppKitView : public Shown<View, WidgetOwner> {
public:
    explicit AppKitView(VexoraPane* pane);
};

class AppKitTextField : public Shown<TextField, WidgetOwner> {
public:
    using Shown::Shown;

protected:
    void applyText() override;
    void applyClickable() override;
};

class AppKitButton : public Shown<Button, WidgetOwner> {
public:
    explicit AppKitButton(VexoraButton* button);

protected:
    void applyTitle() override;
};

using AppKitImageView = Shown<ImageView, WidgetOwner>;

class AppKitProgressIndicator : public Shown<ProgressIndicator, WidgetOwner> {
public:
    explicit AppKitProgressIndicator(NSProgressIndicator* bar);

protected:
    void applyIndeterminate() override { [bar() setIndeterminate:isIndeterminate()]; }
    void applyThreadedAnimation() override {
        [bar() setUsesThreadedAnimation:usesThreadedAnimation()];
    }
    void applyValue() override { [bar() setDoubleValue:doubleValue()]; }

private:
    NSProgressIndicator* bar() const { return as<NSProgressIndicator>(widget()); }
};

class AppKitTextView : public Shown<TextView, WidgetOwner> {
public:
    explicit AppKitTextView(Size size);

    NSTextView* edit() const { return as<NSTextView>(widget()); }

protected:
    void applyRichText() override { [edit() setRichText:isRichText()]; }
    void applyString() override;
    void applyEditable() override { [edit() setEditable:isEditable()]; }
    void applyContainerSize() override;
};

/// The scroll view of the definition; the text area inside brings no scroll bar of its own.
class AppKitScrollView : public Shown<ScrollView, WidgetOwner> {
public:
    using Shown::Shown;

    Size contentSize() const override;

protected:
    void applyDocumentView() override;
};

/// The view for a widget of an interface definition; null for one that is no outlet.
std::shared_ptr<View> makeView(NSView* widget);

} // namespace Vexora
