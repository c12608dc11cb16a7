#include "Platform/AppKit/Views.h"

#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/AppKit/Picture.h"
#include "Platform/AppKit/PushButton.h"
#include "Platform/AppKit/TextLabel.h"
#include "Platform/Palette.h"

/// A text to read, which leaves Return to the default button.
@interface VexoraTextView : NSTextView
@end

@implementation VexoraTextView

- (void)keyDown:(NSEvent*)event {
    if (![[self window] performKeyEquivalent:event]) {
        [super keyDown:event];
    }
}

- (void)quickLookWithEvent:(NSEvent*)event {
    // Nothing is looked up: closing the window that shows it would end the program.
}

@end

namespace Vexora {
namespace {

/// The pane behind a view; null when the view shows something else.
VexoraPane* paneOf(View& view) {
    const auto* owner = dynamic_cast<const WidgetOwner*>(&view);
    return owner == nullptr ? nil : as<VexoraPane>(owner->widget());
}

} // namespace

WidgetOwner::~WidgetOwner() {
    [widget_.get() removeFromSuperview];
}

void WidgetOwner::addChild(View& child, Ordering ordering) {
    VexoraPane* const pane = as<VexoraPane>(widget_.get());
    VexoraPane* const added = paneOf(child);
    if (pane != nil && added != nil && [added superview] != pane) {
        [pane addPane:added positioned:ordering];
    }
}

void WidgetOwner::removeChild(View& child) {
    if (VexoraPane* const removed = paneOf(child)) {
        [as<VexoraPane>(widget_.get()) removePane:removed];
    }
}

void WidgetOwner::show(const View& view) {
    const bool visible = !view.isHidden() && !view.isCovered() && view.alphaValue() > 0.0;
    [widget_.get() setAlphaValue:view.alphaValue()];
    [widget_.get() setHidden:!visible];
}

void WidgetOwner::fixHeight(double height) {
    NSRect frame = [widget_.get() frame];
    frame.size.height = height;
    [widget_.get() setFrame:frame];
    if ([widget_.get() respondsToSelector:@selector(addConstraint:)]) {
        [widget_.get()
            addConstraint:[NSLayoutConstraint constraintWithItem:widget_.get()
                                                       attribute:NSLayoutAttributeHeight
                                                       relatedBy:NSLayoutRelationEqual
                                                          toItem:nil
                                                       attribute:NSLayoutAttributeNotAnAttribute
                                                      multiplier:1.0
                                                        constant:height]];
    }
}

AppKitView::AppKitView(VexoraPane* pane) : Shown(pane) {
    setOpaque(pane->opaquePane);
}

void AppKitTextField::applyText() {
    VexoraTextLabel* const label = as<VexoraTextLabel>(widget());
    label->spokenWords = toNSString(attributedStringValue().wordsBesideLinks());
    [label setStyledText:toAttributedText(attributedStringValue(), label->plainFont,
                                          toNSColor(inkColor))];
}

void AppKitTextField::applyClickable() {
    [as<VexoraTextLabel>(widget()) setClickHandler:makeHandler([this] { click(); })];
}

AppKitButton::AppKitButton(VexoraButton* button) : Shown(button) {
    [button setClickHandler:makeHandler([this] { click(); })];
}

void AppKitButton::applyTitle() {
    [as<VexoraButton>(widget()) setTitle:toNSString(title())];
}

AppKitProgressIndicator::AppKitProgressIndicator(NSProgressIndicator* bar) : Shown(bar) {
    setRange([bar minValue], [bar maxValue]);
}

AppKitTextView::AppKitTextView(Size size)
    : Shown(adopt<NSTextView>([[VexoraTextView alloc]
                                  initWithFrame:NSMakeRect(0.0, 0.0, size.width, size.height)])
                .get()) {
    [edit() setMinSize:NSMakeSize(0.0, size.height)];
    [edit() setMaxSize:NSMakeSize(1.0e7, 1.0e7)];
    [edit() setVerticallyResizable:YES];
    [edit() setHorizontallyResizable:NO];
    [edit() setAutoresizingMask:NSViewWidthSizable];
    [[edit() textContainer] setWidthTracksTextView:YES];
    [edit() setTextContainerInset:NSMakeSize(0.0, 10.0)];
    [[edit() textContainer] setLineFragmentPadding:13.0];
    // Closing a panel of the system's would end the program as closing its own window does.
    [edit() setUsesFontPanel:NO];
    [edit() setMenu:adopt<NSMenu>([[NSMenu alloc] init])];
    [edit() setBackgroundColor:toNSColor(sheetColor)];
    [edit() setTextColor:toNSColor(inkColor)];
    [edit() setFont:[NSFont systemFontOfSize:12.0]];
}

void AppKitTextView::applyString() {
    [edit() setString:toNSString(string())];
}

void AppKitTextView::applyContainerSize() {
    [[edit() textContainer]
        setContainerSize:NSMakeSize(containerSize().width, containerSize().height)];
}

Size AppKitScrollView::contentSize() const {
    const NSSize size = [as<NSScrollView>(widget()) contentSize];
    return {size.width, size.height};
}

void AppKitScrollView::applyDocumentView() {
    const auto text = std::dynamic_pointer_cast<AppKitTextView>(documentView());
    [as<NSScrollView>(widget()) setDocumentView:text ? text->edit() : nil];
}

std::shared_ptr<View> makeView(NSView* widget) {
    if (VexoraPane* pane = as<VexoraPane>(widget)) {
        return std::make_shared<AppKitView>(pane);
    }
    if (VexoraTextLabel* label = as<VexoraTextLabel>(widget)) {
        return std::make_shared<AppKitTextField>(label);
    }
    if (VexoraButton* button = as<VexoraButton>(widget)) {
        return std::make_shared<AppKitButton>(button);
    }
    if (VexoraPicture* picture = as<VexoraPicture>(widget)) {
        return std::make_shared<AppKitImageView>(picture);
    }
    if (NSProgressIndicator* bar = as<NSProgressIndicator>(widget)) {
        return std::make_shared<AppKitProgressIndicator>(bar);
    }
    if (NSScrollView* frame = as<NSScrollView>(widget)) {
        return std::make_shared<AppKitScrollView>(frame);
    }
    return nullptr;
}

} // namespace Vexora
