#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

namespace quorvale {

/// ASCII text as UTF-16.
inline std::u16string Wide(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

/// The lines "L1" to "Ln", or with another letter in front, each ended by CR LF but the last.
inline std::string DocFile(int lines, char letter = 'L') {
    std::string bytes;
    for (int number = 1; number <= lines; ++number) {
        if (number > 1) bytes += "\r\n";
        bytes += letter + std::to_string(number);
    }
    return bytes;
}

/// The same as a text for the `text` property.
inline std::u16string Doc(int lines, char letter = 'L') { return Wide(DocFile(lines, letter)); }

/// The lines, each ended by CR LF but the last.
inline std::u16string Lines(std::initializer_list<std::u16string_view> lines) {
    std::u16string text;
    const char16_t* between = u"";
    for (const auto line : lines) {
        text.append(between).append(line);
        between = u"\r\n";
    }
    return text;
}

/// `count` times the character.
inline std::u16string Times(std::size_t count, char16_t character = u'x') {
    return std::u16string(count, character);
}

/// A text of that many random pieces: letters, blanks, tabs, NULs, lone CRs, LFs, CR LFs, and now
/// and then a stretch of up to `longest` characters. The same generator state gives the same text.
inline std::u16string RandomText(std::mt19937& random, int pieces, int longest = 0) {
    static constexpr std::u16string_view common[] = {
        u"a", u"bc", u" ", u"\t", u"\r\n", u"\n", u"\r", u"\r\r\n", u"end", u"\u00E9",
    };
    std::u16string text;
    for (int piece = 0; piece < pieces; ++piece) {
        const auto choice = random() % 24;
        if (choice < 20) {
            text += common[choice / 2];
        } else if (choice < 22) {
            text += u'\0';
        } else if (longest > 0) {
            text.append(random() % static_cast<unsigned>(longest), u'w');
        }
    }
    return text;
}

}  // namespace quorvale
