// A plain area that holds controls from its definition and, over or under them, panes added by
// code. Where it shows nothing it is not there for the mouse either, so that what lies below takes
// the click. Coordinates run from the top left, and are mirrored in a language that runs from the
// right.
#pragma once

#include "Platform/AppKit/Compatibility.h"
#include "Platform/View.h"

@interface VexoraPane : NSView {
@public
    /// Whether the pane hides everything below it while it is the topmost.
    BOOL opaquePane;
    /// The control whose area takes in panes added by code; null for the whole area.
    Vexora::Strong<NSView> contentArea;
    /// The control that takes the keys when the pane appears; null for none.
    Vexora::Strong<NSView> initialFocus;
    /// The button that Return presses when the pane appears; null for none.
    Vexora::Strong<NSButton> defaultButton;
    /// The controls of the definition by their names.
    Vexora::Strong<NSDictionary> controls;

@private
    NSUserInterfaceLayoutDirection direction;
    Vexora::Strong<NSView> focusBeforeCover;
    Vexora::Strong<NSButtonCell> defaultBeforeCover;
}

/// Takes a pane in, under or over everything else. An opaque one takes the whole area, any other
/// the content area.
- (void)addPane:(VexoraPane*)pane positioned:(Vexora::Ordering)ordering;

/// Gives a pane back.
- (void)removePane:(VexoraPane*)pane;

/// Gives the keys to the control that has the initial focus of the pane's definition, or of one of
/// the panes that it holds, and Return to the default button likewise.
- (void)takeInitialFocus;

/// The control of that name in this pane or one that it holds; null for none.
- (NSView*)controlNamed:(NSString*)name;

/// Gives the keys to a control of any screen and Return to a button, or, while the control is covered,
/// once it shows again.
- (void)giveFocus:(NSView*)control andReturn:(NSButton*)button;

@end
