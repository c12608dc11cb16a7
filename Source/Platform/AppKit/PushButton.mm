#include "Platform/AppKit/PushButton.h"

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

- (BOOL)performKeyEquivalent:(NSEvent*)event {
    const BOOL escape = [[event charactersIgnoringModifiers] isEqualToString:@"\033"];
    if (cancels && escape && ![self isHiddenOrHasHiddenAncestor]) {
        [self performClick:self];
        return YES;
    }
    return [super performKeyEquivalent:event];
}

@end
