#include "Platform/AppKit/Pane.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Conversions.h"

@interface VexoraPane ()
- (BOOL)isTopmostOpaque;
- (void)setDefaultCell:(NSButtonCell*)cell;
- (void)mirror:(NSView*)view;
@end

@implementation VexoraPane

- (BOOL)isFlipped {
    return YES;
}

- (BOOL)isOpaque {
    return opaquePane;
}

- (void)addPane:(VexoraPane*)pane positioned:(Vexora::Ordering)ordering {
    const BOOL covered = ordering == Vexora::Ordering::Below && [self isTopmostOpaque];
    if (pane->opaquePane) {
        focusBeforeCover = Vexora::as<NSView>([[self window] firstResponder]);
        defaultBeforeCover = [[self window] defaultButtonCell];
    }
    const BOOL everything = pane->opaquePane || contentArea.get() == nil;
    [pane setUserInterfaceLayoutDirection:direction];
    [pane setFrame:everything ? [self bounds] : [contentArea.get() frame]];
    [pane setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [self addSubview:pane
          positioned:ordering == Vexora::Ordering::Below ? NSWindowBelow : NSWindowAbove
          relativeTo:nil];
    Vexora::renewKeyViewLoop([self window]);
    if (!covered) {
        [pane takeInitialFocus];
    }
}

- (void)removePane:(VexoraPane*)pane {
    NSWindow* const window = [self window];
    const BOOL hasCovered = pane->opaquePane && [[self subviews] lastObject] == pane;
    [pane removeFromSuperview];
    Vexora::renewKeyViewLoop(window);
    if (hasCovered) {
        // What was covered is shown again only after this call.
        [self performSelector:@selector(restoreFocus) withObject:nil afterDelay:0.0];
    }
}

- (BOOL)isTopmostOpaque {
    VexoraPane* const topmost = Vexora::as<VexoraPane>([[self subviews] lastObject]);
    return topmost != nil && topmost->opaquePane;
}

- (void)setDefaultCell:(NSButtonCell*)cell {
    [[[self window] defaultButtonCell] setKeyEquivalent:@""];
    [[self window] setDefaultButtonCell:cell];
}

- (void)restoreFocus {
    [self setDefaultCell:defaultBeforeCover];
    if ([focusBeforeCover.get() window] == [self window]) {
        [[self window] makeFirstResponder:focusBeforeCover];
    }
    focusBeforeCover = nil;
    defaultBeforeCover = nil;
}

- (void)takeInitialFocus {
    NSScrollView* const area = Vexora::as<NSScrollView>(initialFocus.get());
    NSView* const focus = area == nil ? initialFocus.get() : [area documentView];
    if (focus != nil) {
        [[self window] makeFirstResponder:focus];
    }
    if (defaultButton.get() != nil) {
        [self setDefaultCell:[defaultButton.get() cell]];
    }
    for (NSUInteger index = 0; index < [[self subviews] count]; ++index) {
        [Vexora::as<VexoraPane>([[self subviews] objectAtIndex:index]) takeInitialFocus];
    }
}

- (NSView*)controlNamed:(NSString*)name {
    NSView* found = [controls.get() objectForKey:name];
    for (NSUInteger index = 0; found == nil && index < [[self subviews] count]; ++index) {
        VexoraPane* const pane = Vexora::as<VexoraPane>([[self subviews] objectAtIndex:index]);
        found = [pane controlNamed:name];
    }
    return found;
}

- (void)giveFocus:(NSView*)control andReturn:(NSButton*)button {
    // What waits to be restored is older.
    focusBeforeCover = control;
    defaultBeforeCover = [button cell];
    if (![control isHiddenOrHasHiddenAncestor]) {
        [[self window] makeFirstResponder:control];
        [self setDefaultCell:[button cell]];
    }
}

- (NSUserInterfaceLayoutDirection)userInterfaceLayoutDirection {
    return direction;
}

- (void)setUserInterfaceLayoutDirection:(NSUserInterfaceLayoutDirection)newDirection {
    const BOOL mirrors = newDirection != direction;
    direction = newDirection;
    for (NSUInteger index = 0; index < [[self subviews] count]; ++index) {
        NSView* const view = [[self subviews] objectAtIndex:index];
        if (mirrors) {
            [self mirror:view];
        }
        [view setUserInterfaceLayoutDirection:newDirection];
    }
}

/// Moves a control to the other side, and lets it stay there when the pane grows.
- (void)mirror:(NSView*)view {
    NSRect frame = [view frame];
    frame.origin.x = NSWidth([self bounds]) - NSMaxX(frame);
    const NSUInteger mask = [view autoresizingMask];
    NSUInteger mirrored = mask & ~NSUInteger(NSViewMinXMargin | NSViewMaxXMargin);
    if ((mask & NSViewMinXMargin) != 0) {
        mirrored |= NSViewMaxXMargin;
    }
    if ((mask & NSViewMaxXMargin) != 0) {
        mirrored |= NSViewMinXMargin;
    }
    [view setFrame:frame];
    [view setAutoresizingMask:mirrored];
}

- (void)drawRect:(NSRect)dirtyRect {
    if (opaquePane) {
        [Vexora::toNSColor(Vexora::paper()) set];
        NSRectFill([self bounds]);
    }
}

- (NSView*)hitTest:(NSPoint)point {
    NSView* const found = [super hitTest:point];
    return found == self && !opaquePane ? nil : found;
}

@end
