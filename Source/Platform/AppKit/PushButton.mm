#include "Platform/AppKit/PushButton.h"

#include "Platform/AppKit/TextLabel.h"

#include <algorithm>

@implementation VexoraButton

- (id)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self != nil) {
        leastWidth = NSWidth(frame);
        [self setBezelStyle:NSBezelStyleRounded];
        [self setTitle:@""];
    }
    return self;
}

- (void)setTitle:(NSString*)title {
    [super setTitle:title];
    // The side that the definition ties to its pane stays where it is; else the middle does.
    const NSRect before = [self frame];
    const CGFloat width = std::max(leastWidth, [[self cell] cellSize].width);
    const CGFloat growth = width - NSWidth(before);
    const BOOL leftMoves = ([self autoresizingMask] & NSViewMinXMargin) != 0;
    const BOOL rightMoves = ([self autoresizingMask] & NSViewMaxXMargin) != 0;
    const CGFloat shift = leftMoves && rightMoves ? growth / 2 : leftMoves ? growth : 0.0;
    [self setFrame:NSMakeRect(NSMinX(before) - shift, NSMinY(before), width, NSHeight(before))];
}

- (void)setClickHandler:(VexoraHandler*)handler {
    clickHandler = handler;
    [self setTarget:handler];
    [self setAction:@selector(handle:)];
}

- (void)viewWillMoveToWindow:(NSWindow*)window {
    if ([[self window] defaultButtonCell] == [self cell]) {
        [[self window] setDefaultButtonCell:nil];
    }
    [super viewWillMoveToWindow:window];
}

- (void)keyDown:(NSEvent*)event {
    // What a key pressed that is held down was another control.
    if (![event isARepeat] || !Vexora::isPressing(event)) {
        [super keyDown:event];
    }
}

- (BOOL)performKeyEquivalent:(NSEvent*)event {
    // A covered button is no less the default one, and a key held down has been pressed before. A link
    // that has the focus is pressed itself.
    if ([self isHiddenOrHasHiddenAncestor] || [event isARepeat] ||
        [Vexora::as<VexoraTextLabel>([[self window] firstResponder]) isPressedBy:event]) {
        return NO;
    }
    NSString* const key = [event charactersIgnoringModifiers];
    const BOOL escape = [key isEqualToString:@"\033"];
    const BOOL enter = [key isEqualToString:@"\003"];
    if ((cancels && escape) || (enter && [[self window] defaultButtonCell] == [self cell])) {
        [self performClick:self];
        return YES;
    }
    return [super performKeyEquivalent:event];
}

@end
