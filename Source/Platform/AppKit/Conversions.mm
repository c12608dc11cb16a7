#include "Platform/AppKit/Conversions.h"

#include "Platform/Posix/FileSystem.h"

#include <algorithm>
#include <string_view>

namespace Vexora {
namespace {

/// Null when the bytes are no UTF-8.
Strong<NSString> decoded(std::string_view bytes) {
    return adopt<NSString>([[NSString alloc] initWithBytes:bytes.data()
                                                    length:bytes.size()
                                                  encoding:NSUTF8StringEncoding]);
}

/// Decodes character by character; a byte that begins none becomes a replacement character.
Strong<NSString> decodedWithReplacements(std::string_view bytes) {
    const Strong<NSMutableString> text = adopt<NSMutableString>([[NSMutableString alloc] init]);
    while (!bytes.empty()) {
        const std::size_t longest = std::min<std::size_t>(4, bytes.size());
        std::size_t length = 1;
        while (length < longest && decoded(bytes.substr(0, length)).get() == nil) {
            ++length;
        }
        Strong<NSString> character = decoded(bytes.substr(0, length));
        if (character.get() == nil) {
            length = 1;
            character = decoded("\xEF\xBF\xBD");
        }
        [text.get() appendString:character];
        bytes.remove_prefix(length);
    }
    return Strong<NSString>(text.get());
}

NSFont* systemFont(double size, bool semibold) {
    if (!semibold) {
        return [NSFont systemFontOfSize:size];
    }
    if ([NSFont respondsToSelector:@selector(systemFontOfSize:weight:)]) {
        return [NSFont systemFontOfSize:size weight:NSFontWeightSemibold];
    }
    return [NSFont boldSystemFontOfSize:size];
}

} // namespace

Strong<NSString> toNSString(const std::string& text) {
    const Strong<NSString> whole = decoded(text);
    return whole.get() != nil ? whole : decodedWithReplacements(text);
}

NSData* dataOfFile(const std::string& path) {
    const std::optional<std::string> content = contentOfFile(path);
    return content ? [NSData dataWithBytes:content->data() length:content->size()] : nil;
}

std::string toUtf8(NSString* text) {
    return text == nil ? "" : [text UTF8String];
}

NSColor* toNSColor(const Color& color) {
    return [NSColor colorWithRed:color.red green:color.green blue:color.blue alpha:color.alpha];
}

NSFont* toNSFont(const Font& font) {
    NSFont* named = [NSFont fontWithName:toNSString(font.name) size:font.size];
    return named != nil ? named : systemFont(font.size, font.name.ends_with("-SemiBold"));
}

Strong<NSMutableAttributedString> toAttributedText(const StyledText& text, NSFont* font,
                                                   NSColor* color) {
    const auto paragraph = adopt<NSMutableParagraphStyle>([[NSMutableParagraphStyle alloc] init]);
    if (text.alignment() == TextAlignment::Center) {
        [paragraph.get() setAlignment:NSTextAlignmentCenter];
    }
    const auto whole = adopt<NSMutableAttributedString>([[NSMutableAttributedString alloc] init]);
    for (const TextRun& run : text.runs()) {
        NSDictionary* const attributes = [NSDictionary
            dictionaryWithObjectsAndKeys:run.font ? toNSFont(*run.font) : font, NSFontAttributeName,
                                         run.color ? toNSColor(*run.color) : color,
                                         NSForegroundColorAttributeName, paragraph.get(),
                                         NSParagraphStyleAttributeName, nil];
        const auto part = adopt<NSAttributedString>(
            [[NSAttributedString alloc] initWithString:toNSString(run.text) attributes:attributes]);
        [whole.get() appendAttributedString:part];
    }
    return whole;
}

} // namespace Vexora
