#include "Platform/AppKit/TextLabel.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/Palette.h"

#include <cmath>

/// What the toolkit leaves free on each side of a cell's lines, in points.
static const CGFloat cellPadding = 2.0;

/// Draws its lines around the middle of the label.
@interface VexoraTextCell : NSTextFieldCell {
@public
    BOOL centersVertically;
}

/// The place of centred lines in a label.
- (NSRect)linesIn:(NSRect)frame;

@end

@implementation VexoraTextCell

- (NSRect)linesIn:(NSRect)frame {
    const NSSize room = NSMakeSize(NSWidth(frame) - 2 * cellPadding, NSHeight(frame));
    const NSSize text =
        [[self attributedStringValue] boundingRectWithSize:room
                                                   options:NSStringDrawingUsesLineFragmentOrigin]
            .size;
    const CGFloat over = std::fmax(0.0, std::floor((NSHeight(frame) - text.height) / 2));
    const CGFloat aside = std::fmax(0.0, std::floor((NSWidth(frame) - text.width) / 2));
    return NSMakeRect(NSMinX(frame) + aside, NSMinY(frame) + (centersVertically ? over : 0.0),
                      NSWidth(frame) - 2 * aside, std::fmin(text.height, NSHeight(frame)));
}

- (void)drawInteriorWithFrame:(NSRect)frame inView:(NSView*)view {
    if (centersVertically) {
        const CGFloat over = NSMinY([self linesIn:frame]) - NSMinY(frame);
        frame = NSInsetRect(frame, 0.0, over);
    }
    [super drawInteriorWithFrame:frame inView:view];
}

- (BOOL)accessibilityPerformPress {
    return [Vexora::as<VexoraTextLabel>([self controlView]) accessibilityPerformPress];
}

@end

@interface VexoraTextLabel ()
- (NSView*)controlNamed:(NSString*)name;
- (void)tellNews;
- (NSString*)descriptionOfAll;
@end

@implementation VexoraTextLabel

+ (Class)cellClass {
    return [VexoraTextCell class];
}

- (id)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self != nil) {
        [self setEditable:NO];
        [self setSelectable:NO];
        [self setBezeled:NO];
        [self setBordered:NO];
        [self setDrawsBackground:NO];
        [self setTextColor:Vexora::toNSColor(Vexora::inkColor)];
        [[self cell] setWraps:YES];
        [[self cell] setLineBreakMode:NSLineBreakByWordWrapping];
    }
    return self;
}

- (void)setCentersVertically:(BOOL)centers {
    Vexora::as<VexoraTextCell>([self cell])->centersVertically = centers;
}

- (void)setStyledText:(NSAttributedString*)text {
    styledText = text;
    const auto shown = Vexora::adopt<NSMutableAttributedString>([text mutableCopy]);
    if ([text length] > 0) {
        NSParagraphStyle* const given = [text attribute:NSParagraphStyleAttributeName
                                                atIndex:0
                                         effectiveRange:nullptr];
        const auto paragraph = Vexora::adopt<NSMutableParagraphStyle>([given mutableCopy]);
        const BOOL fromRight = direction == NSUserInterfaceLayoutDirectionRightToLeft;
        [paragraph.get() setBaseWritingDirection:fromRight ? NSWritingDirectionRightToLeft
                                                           : NSWritingDirectionLeftToRight];
        if (centered) {
            [paragraph.get() setAlignment:NSTextAlignmentCenter];
        } else if ([paragraph.get() alignment] == NSTextAlignmentNatural && fromRight) {
            [paragraph.get() setAlignment:NSTextAlignmentRight];
        }
        [shown.get() addAttribute:NSParagraphStyleAttributeName
                            value:paragraph.get()
                            range:NSMakeRange(0, [text length])];
    }
    [self setAttributedStringValue:shown];
    Vexora::setAccessibleName(self, [text string]);
    Vexora::setAccessibleName(buddy, [text string]);
    if ([self window] != nil && ![self isHidden]) {
        [self tellNews];
    }
}

- (NSView*)controlNamed:(NSString*)name {
    return [Vexora::as<VexoraPane>([[self window] contentView]) controlNamed:name];
}

- (void)tellNews {
    VexoraPane* const root = Vexora::as<VexoraPane>([[self superview] superview]);
    if (dismissedBy.get() != nil) {
        hasNews = YES;
        [root giveFocus:self];
        Vexora::announce(spokenWords);
    } else if (describes.get() != nil) {
        NSView* const described = [self controlNamed:describes];
        NSString* const description = [self descriptionOfAll];
        Vexora::setAccessibleDescription(described, description);
        [root giveFocus:described];
        Vexora::announce(description);
    }
}

- (NSString*)descriptionOfAll {
    NSMutableArray* const texts = [NSMutableArray array];
    for (NSUInteger index = 0; index < [[[self superview] subviews] count]; ++index) {
        VexoraTextLabel* const label =
            Vexora::as<VexoraTextLabel>([[[self superview] subviews] objectAtIndex:index]);
        if (label != nil && ![label isHidden] &&
            [label->describes.get() isEqualToString:describes] &&
            [label->spokenWords.get() length] > 0) {
            [texts addObject:label->spokenWords.get()];
        }
    }
    return [texts componentsJoinedByString:@": "];
}

- (void)setUserInterfaceLayoutDirection:(NSUserInterfaceLayoutDirection)newDirection {
    [super setUserInterfaceLayoutDirection:newDirection];
    direction = newDirection;
    if (styledText.get() != nil) {
        [self setStyledText:Vexora::Strong<NSAttributedString>(styledText)];
    }
}

- (void)setClickHandler:(VexoraHandler*)handler {
    const BOOL first = clickHandler.get() == nil;
    clickHandler = handler;
    if (!first) {
        return;
    }
    if ([self respondsToSelector:@selector(addGestureRecognizer:)]) {
        const auto recognizer = Vexora::adopt<NSClickGestureRecognizer>(
            [[NSClickGestureRecognizer alloc] initWithTarget:self action:@selector(click)]);
        [self addGestureRecognizer:recognizer];
    }
    Vexora::setAccessibleRole(self, NSAccessibilityLinkRole);
    [[self window] invalidateCursorRectsForView:self];
}

- (BOOL)isClickable {
    return clickHandler.get() != nil;
}

- (void)click {
    // The handler may take this label out of the window.
    const Vexora::Strong<VexoraHandler> handler = clickHandler;
    [handler.get() handle:self];
}

- (BOOL)accessibilityPerformPress {
    [self click];
    return [self isClickable];
}

- (void)mouseDown:(NSEvent*)event {
    if (![self isClickable]) {
        [super mouseDown:event];
    }
}

- (void)mouseUp:(NSEvent*)event {
    if ([self respondsToSelector:@selector(addGestureRecognizer:)]) {
        [super mouseUp:event];
    } else if (NSPointInRect([self convertPoint:[event locationInWindow] fromView:nil],
                             [self bounds])) {
        [self click];
    }
}

- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    return [self isClickable];
}

- (BOOL)canBecomeKeyView {
    const BOOL everything = ![NSApp respondsToSelector:@selector(isFullKeyboardAccessEnabled)] ||
                            [NSApp isFullKeyboardAccessEnabled];
    return [self isClickable] && everything && [super canBecomeKeyView];
}

- (void)resetCursorRects {
    if ([self isClickable]) {
        // A click counts anywhere, but only the words look like it.
        const NSRect words = [Vexora::as<VexoraTextCell>([self cell]) linesIn:[self bounds]];
        [self addCursorRect:words cursor:[NSCursor pointingHandCursor]];
    }
}

- (BOOL)acceptsFirstResponder {
    // A click leaves the focus where it is.
    return ([self isClickable] || hasNews) &&
           [[NSApp currentEvent] type] != NSEventTypeLeftMouseDown;
}

- (BOOL)isPressedBy:(NSEvent*)event {
    NSString* const keys = [event charactersIgnoringModifiers];
    return ([self isClickable] || hasNews) &&
           ([keys isEqualToString:@"\r"] || [keys isEqualToString:@"\003"] ||
            [keys isEqualToString:@" "]);
}

- (void)keyDown:(NSEvent*)event {
    if (![self isPressedBy:event]) {
        [super keyDown:event];
    } else if ([event isARepeat]) {
        // A key that is held down presses once, and what it pressed was another control.
        return;
    } else if (hasNews) {
        [Vexora::as<NSButton>([self controlNamed:dismissedBy]) performClick:self];
    } else {
        [self click];
    }
}

- (NSRect)focusRingMaskBounds {
    return [self bounds];
}

- (void)drawFocusRingMask {
    NSRectFill([self bounds]);
}

@end
