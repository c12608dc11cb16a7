#include "Platform/AppKit/Picture.h"

#include "Platform/AppKit/Accessibility.h"

#include <initializer_list>

@implementation VexoraPicture

- (void)loadFrom:(NSString*)folder {
    const auto image = Vexora::adopt<NSImage>([[NSImage alloc] initWithSize:[self bounds].size]);
    for (const char* scale : std::initializer_list<const char*>{"", "@2x"}) {
        NSString* const path =
            [NSString stringWithFormat:@"%@/%@%s.png", folder, imageName.get(), scale];
        NSImageRep* const picture = [NSBitmapImageRep imageRepWithContentsOfFile:path];
        if (picture != nil) {
            // Both are as large on the screen; the denser one has more pixels there.
            [picture setSize:[self bounds].size];
            [image.get() addRepresentation:picture];
        }
    }
    [self setImage:image];
    // It says nothing that the texts do not.
    Vexora::hideFromAssistiveTools(self);
}

- (BOOL)acceptsFirstResponder {
    return NO;
}

@end
