#include "PseudoText.h"

#include <algorithm>
#include <array>
#include <regex>

namespace Gallery {
namespace {

/// What stands for a to z; capitals follow where the script has them.
using Alphabet = std::array<const char*, 52>;

constexpr Alphabet accentedLetters = {
    "å", "ƀ", "ç", "ð", "é", "ƒ", "ĝ", "ĥ", "î", "ĵ", "ķ", "ļ", "ṁ", "ñ", "ö", "þ", "ǫ", "ŕ",
    "š", "ţ", "û", "ṽ", "ŵ", "ẋ", "ý", "ž", "Å", "Ɓ", "Ç", "Ð", "É", "Ƒ", "Ĝ", "Ĥ", "Î", "Ĵ",
    "Ķ", "Ļ", "Ṁ", "Ñ", "Ö", "Þ", "Ǫ", "Ŕ", "Š", "Ţ", "Û", "Ṽ", "Ŵ", "Ẋ", "Ý", "Ž"};

constexpr Alphabet hebrewLetters = {
    "א", "ב", "צ", "ד", "ע", "פ", "ג", "ה", "י", "ז", "כ", "ל", "מ", "נ", "ו", "ף", "ק", "ר",
    "ס", "ת", "ט", "ן", "ש", "ח", "ץ", "ם", "א", "ב", "צ", "ד", "ע", "פ", "ג", "ה", "י", "ז",
    "כ", "ל", "מ", "נ", "ו", "ף", "ק", "ר", "ס", "ת", "ט", "ן", "ש", "ח", "ץ", "ם"};

constexpr const char* tag = "</?[a-z]>";
constexpr const char* conversion = "%[-+ #0]*[0-9]*(?:\\.[0-9]+)?(?:hh|ll|[hljztL])?"
                                   "[diouxXeEfFgGaAcspn%]";
constexpr const char* productWord = "Ondrel|Vexora|Lumiq";

std::string spelt(const std::string& letters, const Alphabet& alphabet) {
    std::string result;
    for (const char letter : letters) {
        if (letter >= 'a' && letter <= 'z') {
            result += alphabet.at(static_cast<std::size_t>(letter - 'a'));
        } else if (letter >= 'A' && letter <= 'Z') {
            result += alphabet.at(static_cast<std::size_t>(letter - 'A') + 26);
        } else {
            result += letter;
        }
    }
    return result;
}

/// Words that fill so many characters; they neither end with a blank nor are they empty.
std::string padding(std::size_t characters) {
    std::string words;
    while (words.size() < characters) {
        words += " one two three four five six seven eight nine ten";
    }
    words.resize(characters);
    if (words.ends_with(' ')) {
        words.back() = '~';
    }
    return words;
}

std::string pseudo(const std::string& text, const Alphabet& alphabet) {
    static const std::regex kept(std::string(tag) + '|' + conversion + '|' + productWord);
    std::string result = "[";
    auto rest = text.begin();
    for (std::sregex_iterator found(text.begin(), text.end(), kept), end; found != end; ++found) {
        result += spelt({rest, (*found)[0].first}, alphabet) + found->str();
        rest = (*found)[0].second;
    }
    result += spelt({rest, text.end()}, alphabet);
    const std::size_t length = characterCount(withoutTags(text));
    const std::size_t wanted = (length * 14 + 9) / 10;
    const std::size_t brackets = 2;
    const std::size_t missing = wanted > length + brackets ? wanted - length - brackets : 0;
    return result + spelt(padding(missing), alphabet) + ']';
}

} // namespace

std::string accented(const std::string& text) {
    return pseudo(text, accentedLetters);
}

std::string rightToLeft(const std::string& text) {
    return pseudo(text, hebrewLetters);
}

std::string withoutTags(const std::string& text) {
    static const std::regex tags(tag);
    return std::regex_replace(text, tags, "");
}

std::size_t characterCount(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

std::vector<std::string> conversions(const std::string& text) {
    static const std::regex any(std::string(conversion) + "|%");
    std::vector<std::string> all;
    for (std::sregex_iterator found(text.begin(), text.end(), any), end; found != end; ++found) {
        if (found->str() != "%%") {
            all.push_back(found->str());
        }
    }
    return all;
}

} // namespace Gallery
