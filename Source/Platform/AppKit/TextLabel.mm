#include "Platform/AppKit/TextLabel.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/LineBreaking.h"
#include "Platform/Palette.h"

#include <cmath>
#include <string>
#include <vector>

namespace Vexora {
namespace {

/// What is free on each side of a label's lines, in points.
constexpr CGFloat padding = 2.0;

CGFloat widthOf(NSAttributedString* text, NSUInteger start, NSUInteger end) {
    return [[text attributedSubstringFromRange:NSMakeRange(start, end - start)] size].width;
}

/// What stands between the places where the toolkit lets a line of the text end.
std::vector<TextPiece> piecesOf(NSAttributedString* text) {
    NSString* const characters = [text string];
    NSCharacterSet* const blanks = [NSCharacterSet whitespaceAndNewlineCharacterSet];
    const auto others = adopt<NSMutableCharacterSet>([blanks mutableCopy]);
    [others.get() formUnionWithCharacterSet:[NSCharacterSet nonBaseCharacterSet]];
    [others.get() formUnionWithCharacterSet:[NSCharacterSet punctuationCharacterSet]];
    std::vector<TextPiece> pieces;
    for (NSUInteger end = [text length]; end > 0;) {
        const NSUInteger found = [text lineBreakBeforeIndex:end - 1
                                                withinRange:NSMakeRange(0, end)];
        const NSUInteger start = found < end ? found : 0;
        NSUInteger blank = end;
        while (blank > start &&
               [blanks characterIsMember:[characters characterAtIndex:blank - 1]]) {
            --blank;
        }
        TextPiece piece{end, widthOf(text, start, blank), 0.0, 0};
        piece.blank = widthOf(text, start, end) - piece.width;
        for (NSUInteger place = start; place < end; ++place) {
            const unichar character = [characters characterAtIndex:place];
            piece.letters += [others.get() characterIsMember:character] ? 0U : 1U;
        }
        pieces.insert(pieces.begin(), piece);
        end = start;
    }
    return pieces;
}

/// Puts the ends of lines that are at most so wide into a text, in place of blanks where there are
/// some.
void chooseLines(NSMutableAttributedString* text, std::span<const TextRange> marked, CGFloat room) {
    const auto plain = adopt<NSMutableAttributedString>([text mutableCopy]);
    [plain.get() removeAttribute:NSParagraphStyleAttributeName range:NSMakeRange(0, [text length])];
    const std::vector<TextPiece> pieces = piecesOf(plain);
    std::u16string characters([text length], u'\0');
    [[text string] getCharacters:reinterpret_cast<unichar*>(characters.data())];
    for (const std::size_t last : lineEnds(characters, pieces, marked, room)) {
        const std::size_t end = pieces[last].end;
        if (end < characters.size()) {
            const NSUInteger replaced = pieces[last].blank > 0.0 ? 1 : 0;
            [text replaceCharactersInRange:NSMakeRange(end - replaced, replaced) withString:@"\n"];
        }
    }
}

} // namespace

Strong<NSMutableAttributedString> paintedText(VexoraTextLabel* label) {
    const auto text = adopt<NSMutableAttributedString>([[label attributedStringValue] mutableCopy]);
    const bool underlined =
        [label isClickable] && (label->hovered || label->showsFocus || wantsContrast());
    std::vector<TextRange> marked;
    NSRange run = NSMakeRange(0, 0);
    for (NSUInteger start = 0; start < [text.get() length]; start = NSMaxRange(run)) {
        NSDictionary* const look = [text.get() attributesAtIndex:start effectiveRange:&run];
        const bool link =
            ![[look objectForKey:NSForegroundColorAttributeName] isEqual:toNSColor(inkColor)];
        if (link || ![[look objectForKey:NSFontAttributeName] isEqual:label->plainFont]) {
            marked.push_back({start, NSMaxRange(run)});
        }
        if (link && underlined) {
            [text.get() addAttribute:NSUnderlineStyleAttributeName
                               value:[NSNumber numberWithInteger:NSUnderlineStyleSingle]
                               range:run];
        } else if (!link && wantsContrast()) {
            [text.get() addAttribute:NSForegroundColorAttributeName
                               value:[NSColor blackColor]
                               range:run];
        }
    }
    chooseLines(text, marked, NSWidth([label bounds]) - 2 * padding - 1.0);
    return text;
}

/// The place of centred lines in a label.
static NSRect placeOfLines(VexoraTextLabel* label) {
    const NSRect room = NSInsetRect([label bounds], padding, 0.0);
    const NSSize size =
        [paintedText(label).get() boundingRectWithSize:NSMakeSize(NSWidth(room), 1.0e6)
                                               options:NSStringDrawingUsesLineFragmentOrigin]
            .size;
    const CGFloat over = std::floor(std::fmax(0.0, (NSHeight(room) - size.height) / 2));
    const CGFloat aside = std::floor(std::fmax(0.0, (NSWidth(room) - size.width) / 2));
    return NSMakeRect(NSMinX(room) + aside, label->centersVertically ? over : 0.0,
                      NSWidth(room) - 2 * aside, std::fmin(size.height, NSHeight(room)));
}

} // namespace Vexora

/// Draws what its label says.
@interface VexoraTextCell : NSTextFieldCell
@end

@implementation VexoraTextCell

- (void)drawInteriorWithFrame:(NSRect)frame inView:(NSView*)view {
    VexoraTextLabel* const label = Vexora::as<VexoraTextLabel>(view);
    NSRect room = NSInsetRect([label bounds], Vexora::padding, 0.0);
    room.origin.y = NSMinY(Vexora::placeOfLines(label));
    room.size.height -= room.origin.y;
    [Vexora::paintedText(label).get() drawInRect:room];
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
    [[self window] invalidateCursorRectsForView:self];
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
    NSString* const name = dismissedBy.get() != nil ? dismissedBy : describes;
    NSButton* const button = Vexora::as<NSButton>([self controlNamed:name]);
    if (name != nil) {
        [NSApp requestUserAttention:NSInformationalRequest];
    }
    if (dismissedBy.get() != nil) {
        hasNews = YES;
        [root giveFocus:self andReturn:button];
        // What takes the focus is spoken for that.
        if ([[self window] firstResponder] != self) {
            Vexora::announce(spokenWords);
        }
    } else if (describes.get() != nil) {
        NSString* const description = [self descriptionOfAll];
        Vexora::setAccessibleDescription(button, description);
        [root giveFocus:button andReturn:button];
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
    if (words != 0) {
        [self removeTrackingRect:words];
        words = 0;
    }
    if ([self isClickable]) {
        // A click counts anywhere, but only the words look like it.
        const NSRect place = Vexora::placeOfLines(self);
        [self addCursorRect:place cursor:[NSCursor pointingHandCursor]];
        words = [self addTrackingRect:place owner:self userData:nullptr assumeInside:NO];
    }
}

- (void)mouseEntered:(NSEvent*)event {
    hovered = YES;
    [self setNeedsDisplay:YES];
}

- (void)mouseExited:(NSEvent*)event {
    hovered = NO;
    [self setNeedsDisplay:YES];
}

- (void)setHidden:(BOOL)hidden {
    [super setHidden:hidden];
    // What is gone hears of no pointer that leaves.
    hovered = hovered && !hidden;
}

- (BOOL)becomeFirstResponder {
    // Not as the toolkit's own do, which are for text that is edited.
    const NSEventType cause = [[NSApp currentEvent] type];
    showsFocus = cause == NSEventTypeKeyDown || cause == NSEventTypeKeyUp;
    [self setNeedsDisplay:YES];
    return YES;
}

- (BOOL)resignFirstResponder {
    showsFocus = NO;
    [self setNeedsDisplay:YES];
    return YES;
}

- (BOOL)acceptsFirstResponder {
    // A click leaves the focus where it is.
    return ([self isClickable] || hasNews) &&
           [[NSApp currentEvent] type] != NSEventTypeLeftMouseDown;
}

- (BOOL)isPressedBy:(NSEvent*)event {
    return ([self isClickable] || hasNews) && Vexora::isPressing(event);
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
    return showsFocus ? Vexora::placeOfLines(self) : NSZeroRect;
}

- (void)drawFocusRingMask {
    NSRectFill([self focusRingMaskBounds]);
}

@end
