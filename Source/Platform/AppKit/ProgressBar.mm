#include "Platform/AppKit/ProgressBar.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/Palette.h"

/// A tick in a ring.
@interface VexoraCheckMark : NSView
@end

@implementation VexoraCheckMark

- (void)drawRect:(NSRect)dirtyRect {
    const CGFloat side = NSWidth([self bounds]);
    NSBezierPath* const path =
        [NSBezierPath bezierPathWithOvalInRect:NSInsetRect([self bounds], 1.5, 1.5)];
    [Vexora::toNSColor(Vexora::paper()) set];
    [path fill];
    [path moveToPoint:NSMakePoint(0.29 * side, 0.48 * side)];
    [path lineToPoint:NSMakePoint(0.44 * side, 0.33 * side)];
    [path lineToPoint:NSMakePoint(0.71 * side, 0.64 * side)];
    [path setLineWidth:2.5];
    [Vexora::toNSColor(Vexora::doneColor) set];
    [path stroke];
}

@end

@implementation VexoraBar

- (void)setDoubleValue:(double)value {
    [super setDoubleValue:value];
    if (value < [self maxValue] || mark.get() != nil) {
        return;
    }
    const BOOL fromRight = [[self superview] userInterfaceLayoutDirection] ==
                           NSUserInterfaceLayoutDirectionRightToLeft;
    const CGFloat side = NSHeight([self bounds]);
    const CGFloat end = fromRight ? 0.0 : NSWidth([self bounds]) - side;
    mark = Vexora::adopt<VexoraCheckMark>(
               [[VexoraCheckMark alloc] initWithFrame:NSMakeRect(end, 0.0, side, side)])
               .get();
    [mark.get() setAutoresizingMask:fromRight ? NSViewMaxXMargin : NSViewMinXMargin];
    [self addSubview:mark];
}

- (BOOL)acceptsFirstResponder {
    return [[NSApp currentEvent] type] != NSEventTypeLeftMouseDown;
}

- (BOOL)canBecomeKeyView {
    return NO;
}

@end
