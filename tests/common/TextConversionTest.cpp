#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionReference.h"

namespace {

using std::string_literals::operator""s;

/// A character and its UTF-8 form.
struct Character {
    std::uint32_t code;
    std::string utf8;
};

/// Smallest and greatest character of each length of strict UTF-8, and some in between.
const std::vector<Character> kStrict = {
    {0x1, "\x01"},
    {'a', "a"},
    {0x7F, "\x7F"},
    {0x80, "\xC2\x80"},
    {0xE9, "\xC3\xA9"},
    {0x7FF, "\xDF\xBF"},
    {0x800, "\xE0\xA0\x80"},
    {0x20AC, "\xE2\x82\xAC"},
    {0xD7FF, "\xED\x9F\xBF"},
    {0xE000, "\xEE\x80\x80"},
    {0xFEFF, "\xEF\xBB\xBF"},  // byte order mark
    {0xFFFD, "\xEF\xBF\xBD"},
    {0xFFFE, "\xEF\xBF\xBE"},
    {0xFFFF, "\xEF\xBF\xBF"},
    {0x10000, "\xF0\x90\x80\x80"},
    {0x1F600, "\xF0\x9F\x98\x80"},
    {0xE0041, "\xF3\xA0\x81\x81"},  // tag letter
    {0x10FFFF, "\xF4\x8F\xBF\xBF"},
};

/// Beyond Unicode, but taken by the C library.
const std::vector<Character> kBeyondUnicode = {
    {0x110000, "\xF4\x90\x80\x80"},          {0x13FFFF, "\xF4\xBF\xBF\xBF"},
    {0x140000, "\xF5\x80\x80\x80"},          {0x1FFFFF, "\xF7\xBF\xBF\xBF"},
    {0x200000, "\xF8\x88\x80\x80\x80"},      {0x3FFFFFF, "\xFB\xBF\xBF\xBF\xBF"},
    {0x4000000, "\xFC\x84\x80\x80\x80\x80"}, {0x7FFFFFFF, "\xFD\xBF\xBF\xBF\xBF\xBF"},
};

struct Text {
    std::string utf8;
    std::wstring wide;
};

Text TextOf(const std::vector<Character>& characters) {
    Text text;
    for (const Character& character : characters) {
        text.utf8 += character.utf8;
        text.wide += static_cast<wchar_t>(character.code);
    }
    return text;
}

/// What stands ahead of a fault: nothing, a short text, one that is too long to be kept inside the
/// string object.
const std::vector<Text> kPrefixes = {
    {"", L""},
    {"ab", L"ab"},
    {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", L"\u00E9\u20AC\U0001F600"},
    {"a text of more than fifteen bytes: \xC3\xA9", L"a text of more than fifteen bytes: \u00E9"},
};

/// `text` with as many zeros after it as make `size` units.
template <class String>
String Untrimmed(String text, std::size_t size) {
    text.resize(size);
    return text;
}

// --- convertFromUtf8 ---------------------------------------------------------------------------

TEST(ConvertFromUtf8, EmptyTextGivesEmptyString) {
    EXPECT_EQ(convertFromUtf8(""), L"");
}

TEST(ConvertFromUtf8, TwoByteSequenceGivesOneCharacter) {
    EXPECT_EQ(convertFromUtf8("\xC3\xA9"), L"\u00E9");
}

TEST(ConvertFromUtf8, DecodesEveryLengthOfSequence) {
    for (const Character& character : kStrict) {
        EXPECT_EQ(convertFromUtf8(character.utf8), Wide({character.code})) << Hex(character.utf8);
    }
    const Text all = TextOf(kStrict);
    EXPECT_EQ(convertFromUtf8(all.utf8), all.wide);
}

TEST(ConvertFromUtf8, KeepsByteOrderMarkAsCharacter) {
    EXPECT_EQ(convertFromUtf8("\xEF\xBB\xBF"s + "a"), L"\uFEFFa");
}

TEST(ConvertFromUtf8, TakesFourToSixByteFormsBeyondUnicode) {
    for (const Character& character : kBeyondUnicode) {
        EXPECT_EQ(convertFromUtf8("a" + character.utf8 + "b"), Wide({'a', character.code, 'b'}))
            << Hex(character.utf8);
    }
}

TEST(ConvertFromUtf8, CutsAtZeroByte) {
    EXPECT_EQ(convertFromUtf8("a\0b"s), L"a");
    EXPECT_EQ(convertFromUtf8("\0"s), L"");
    EXPECT_EQ(convertFromUtf8("\0ab"s), L"");
    EXPECT_EQ(convertFromUtf8("ab\0"s), L"ab");
    EXPECT_EQ(convertFromUtf8("\xF4\x90\x80\x80\0b\0c"s), Wide({0x110000}));
}

TEST(ConvertFromUtf8, LoneInvalidByteGivesFourZeroCharacters) {
    EXPECT_EQ(convertFromUtf8("\xFF"), std::wstring(4, L'\0'));
}

struct InvalidBytes {
    const char* kind;
    std::string bytes;
};

const std::vector<InvalidBytes> kInvalidBytes = {
    {"byte FF", "\xFF"},
    {"byte FE", "\xFE"},
    {"continuation without lead", "\x80"},
    {"continuation without lead", "\xBF"},
    {"overlong form of 0", "\xC0\x80"},
    {"overlong form of 7F", "\xC1\xBF"},
    {"overlong form of 7FF", "\xE0\x9F\xBF"},
    {"overlong form of FFFF", "\xF0\x8F\xBF\xBF"},
    {"overlong form of 1FFFFF", "\xF8\x87\xBF\xBF\xBF"},
    {"overlong form of 3FFFFFF", "\xFC\x83\xBF\xBF\xBF\xBF"},
    {"first surrogate", "\xED\xA0\x80"},
    {"last surrogate", "\xED\xBF\xBF"},
    {"surrogate pair", "\xED\xA0\xBD\xED\xB8\x80"},
    {"lead ahead of lead", "\xC3\xC3\xA9"},
    {"lead ahead of ASCII", "\xE2(("},
    {"sequence broken at its third byte", "\xE2\x82("},
    {"sequence broken at its fourth byte", "\xF0\x9F\x98("},
    {"sequence broken by a zero byte", "\xE2\0\xAC"s},
    {"form beyond Unicode broken at its fourth byte", "\xF4\x90\x80("},
    {"two-byte sequence cut", "\xC3"},
    {"three-byte sequence cut", "\xE2\x82"},
    {"four-byte sequence cut", "\xF0\x9F\x98"},
    {"five-byte form cut", "\xF8\x88\x80\x80"},
    {"six-byte form cut", "\xFC\x84\x80\x80\x80"},
    {"zero byte ahead of an invalid one", "\0\xFF"s},
};

TEST(ConvertFromUtf8, InvalidSequenceGivesPrefixAndZerosToFourTimesByteLength) {
    for (const InvalidBytes& invalid : kInvalidBytes) {
        for (const Text& prefix : kPrefixes) {
            for (const char* rest : {"", "(rest"}) {
                const std::string text = prefix.utf8 + invalid.bytes + rest;
                EXPECT_EQ(convertFromUtf8(text), Untrimmed(prefix.wide, 4 * text.size()))
                    << invalid.kind << ", " << Hex(text);
            }
        }
    }
}

TEST(ConvertFromUtf8, ZeroByteDoesNotHideFaultBehindIt) {
    EXPECT_EQ(convertFromUtf8("a\0b\xFF"s), L"a\0b\0"s + std::wstring(12, L'\0'));
}

TEST(ConvertFromUtf8, EveryTruncationGivesWholeCharactersAndZerosIfCutInsideOne) {
    std::vector<Character> characters = kStrict;
    characters.insert(characters.end(), kBeyondUnicode.begin(), kBeyondUnicode.end());
    Text whole;
    for (const Character& character : characters) {
        EXPECT_EQ(convertFromUtf8(whole.utf8), whole.wide) << Hex(whole.utf8);
        for (std::size_t size = 1; size < character.utf8.size(); ++size) {
            const std::string cut = whole.utf8 + character.utf8.substr(0, size);
            EXPECT_EQ(convertFromUtf8(cut), Untrimmed(whole.wide, 4 * cut.size())) << Hex(cut);
        }
        whole.utf8 += character.utf8;
        whole.wide += static_cast<wchar_t>(character.code);
    }
    EXPECT_EQ(convertFromUtf8(whole.utf8), whole.wide);
}

TEST(ConvertFromUtf8, LongTextIsConvertedToItsFault) {
    Text text;
    for (int repeat = 0; repeat < 2000; ++repeat) {
        const Text piece = TextOf(kStrict);
        text.utf8 += piece.utf8;
        text.wide += piece.wide;
    }
    EXPECT_TRUE(convertFromUtf8(text.utf8) == text.wide);
    EXPECT_TRUE(convertFromUtf8(text.utf8 + "\0"s) == text.wide);
    const std::size_t failedSize = 4 * (text.utf8.size() + 1);
    EXPECT_TRUE(convertFromUtf8(text.utf8 + '\xFF') == Untrimmed(text.wide, failedSize));
}

// --- convertToUtf8 -----------------------------------------------------------------------------

TEST(ConvertToUtf8, EmptyTextGivesEmptyString) {
    EXPECT_EQ(convertToUtf8(L""), "");
}

TEST(ConvertToUtf8, TwoByteCharacterGivesItsTwoBytes) {
    EXPECT_EQ(convertToUtf8(L"\u00E9"), "\xC3\xA9");
}

TEST(ConvertToUtf8, EncodesEveryLengthOfSequence) {
    for (const Character& character : kStrict) {
        EXPECT_EQ(convertToUtf8(Wide({character.code})), character.utf8) << Hex(character.utf8);
    }
    const Text all = TextOf(kStrict);
    EXPECT_EQ(convertToUtf8(all.wide), all.utf8);
}

TEST(ConvertToUtf8, EncodesBeyondUnicodeWhereFourBytesPerCharacterSuffice) {
    for (const Character& character : kBeyondUnicode) {
        EXPECT_EQ(convertToUtf8(Wide({'a', character.code, 'b'})), "a" + character.utf8 + "b")
            << Hex(character.utf8);
    }
}

TEST(ConvertToUtf8, MoreThanFourBytesPerCharacterFails) {
    // Five and six bytes where there is room for four.
    EXPECT_EQ(convertToUtf8(Wide({0x200000})), std::string(4, '\0'));
    EXPECT_EQ(convertToUtf8(Wide({0x7FFFFFFF})), std::string(4, '\0'));
    // Two and six bytes fill the room for eight, three and six do not fit.
    EXPECT_EQ(convertToUtf8(Wide({0xE9, 0x7FFFFFFF})), "\xC3\xA9\xFD\xBF\xBF\xBF\xBF\xBF");
    EXPECT_EQ(convertToUtf8(Wide({0x20AC, 0x7FFFFFFF})), "\xE2\x82\xAC\0\0\0\0\0"s);
}

TEST(ConvertToUtf8, CutsAtZeroCharacter) {
    EXPECT_EQ(convertToUtf8(L"a\0b"s), "a");
    EXPECT_EQ(convertToUtf8(L"\0"s), "");
    EXPECT_EQ(convertToUtf8(L"ab\0"s), "ab");
}

TEST(ConvertToUtf8, NoCharacterGivesPrefixAndZerosToFourBytesPerCharacter) {
    constexpr std::uint32_t kNoCharacters[] = {0xD800,     0xDBFF,     0xDC00,    0xDFFF,
                                               0x80000000, 0x81000000, 0xFFFFFFFF};
    for (const std::uint32_t code : kNoCharacters) {
        for (const Text& prefix : kPrefixes) {
            for (const wchar_t* rest : {L"", L"rest"}) {
                const std::wstring text = prefix.wide + Wide({code}) + rest;
                EXPECT_EQ(convertToUtf8(text), Untrimmed(prefix.utf8, 4 * text.size()))
                    << Hex(text);
            }
        }
    }
}

TEST(ConvertToUtf8, ZeroCharacterDoesNotHideFaultBehindIt) {
    EXPECT_EQ(convertToUtf8(Wide({'a', 0, 'b', 0xD800})), "a\0b\0"s + std::string(12, '\0'));
}

TEST(ConvertToUtf8, ReversesConvertFromUtf8) {
    const Text strict = TextOf(kStrict);
    EXPECT_EQ(convertToUtf8(convertFromUtf8(strict.utf8)), strict.utf8);
    EXPECT_EQ(convertFromUtf8(convertToUtf8(strict.wide)), strict.wide);
}

// --- convertToCP850 ----------------------------------------------------------------------------

/// The characters of CP850 from 80 on; below it is ASCII.
constexpr std::array<std::uint16_t, 128> kUpperHalfOfCp850 = {
    // clang-format off
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7,
    0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE, 0x00EC, 0x00C4, 0x00C5,
    0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192,
    0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA, 0x00BA,
    0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0,
    0x00A9, 0x2563, 0x2551, 0x2557, 0x255D, 0x00A2, 0x00A5, 0x2510,
    0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4,
    0x00F0, 0x00D0, 0x00CA, 0x00CB, 0x00C8, 0x0131, 0x00CD, 0x00CE,
    0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE,
    0x00DE, 0x00DA, 0x00DB, 0x00D9, 0x00FD, 0x00DD, 0x00AF, 0x00B4,
    0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,
    // clang-format on
};

/// All characters of CP850 but zero, in the order of their codes.
std::wstring Cp850Characters() {
    std::wstring characters;
    for (wchar_t code = 1; code < 0x80; ++code) {
        characters += code;
    }
    characters.append(kUpperHalfOfCp850.begin(), kUpperHalfOfCp850.end());
    return characters;
}

TEST(ConvertToCp850, EmptyTextGivesEmptyString) {
    EXPECT_EQ(convertToCP850(L""), "");
}

TEST(ConvertToCp850, AccentedLetterGivesItsByte) {
    EXPECT_EQ(convertToCP850(L"\u00E9"), "\x82");
}

TEST(ConvertToCp850, EveryCharacterOfThePageGivesItsCode) {
    const std::wstring characters = Cp850Characters();
    std::string codes;
    for (std::size_t at = 0; at < characters.size(); ++at) {
        codes += static_cast<char>(at + 1);
        EXPECT_EQ(convertToCP850(characters.substr(at, 1)), codes.substr(at))
            << Hex(characters.substr(at, 1));
    }
    EXPECT_EQ(convertToCP850(characters), codes);
}

TEST(ConvertToCp850, EveryOtherBmpCharacterGivesFourZeroBytes) {
    const std::wstring characters = Cp850Characters();
    const std::string failure(4, '\0');
    int others = 0;
    for (wchar_t code = 1; code < 0x10000; ++code) {
        if (characters.find(code) == std::wstring::npos) {
            ++others;
            EXPECT_EQ(convertToCP850({code}), failure) << Hex(std::wstring{code});
        }
    }
    EXPECT_EQ(others, 0x10000 - 256);
}

TEST(ConvertToCp850, MissingCharacterGivesPrefixAndZerosToFourBytesPerCharacter) {
    EXPECT_EQ(convertToCP850(L"\u20AC"), std::string(4, '\0'));
    EXPECT_EQ(convertToCP850(L"\u00E9a\u20ACbc"), Untrimmed("\x82"s + "a", 20));
    EXPECT_EQ(convertToCP850(L"abc\U0001F600"), Untrimmed("abc"s, 16));
    EXPECT_EQ(convertToCP850(Wide({'a', 0xD83D, 0xDE00})), Untrimmed("a"s, 12));
    EXPECT_EQ(convertToCP850(Wide({'a', 0xFFFFFFFF})), Untrimmed("a"s, 8));
    // A letter is not made of its base and a combining accent.
    EXPECT_EQ(convertToCP850(L"e\u0301"), Untrimmed("e"s, 8));
}

TEST(ConvertToCp850, CutsAtZeroCharacterUnlessThereIsAFaultBehindIt) {
    EXPECT_EQ(convertToCP850(L"a\0b"s), "a");
    EXPECT_EQ(convertToCP850(L"\0"s), "");
    EXPECT_EQ(convertToCP850(L"a\0b\u20AC"s), Untrimmed("a\0b"s, 16));
}

TEST(ConvertToCp850, TagCharactersVanish) {
    for (std::uint32_t tag = 0xE0000; tag < 0xE0080; ++tag) {
        EXPECT_EQ(convertToCP850(Wide({'a', tag, 'b'})), "ab") << tag;
    }
    EXPECT_EQ(convertToCP850(Wide({'a', 0xE0080, 'b'})), Untrimmed("a"s, 12));
}

// --- convertToCodePage -------------------------------------------------------------------------

const std::vector<std::wstring> kSampleTexts = {
    L"",
    L"a",
    L"\u00E9",
    L"\u20AC",
    L"plain text of a title",
    L"na\u00EFve caf\u00E9",
    L"\u20AC 5",
    L"\U0001F600",
    L"\u65E5\u672C\u8A9E \u03B1\u03B2",
    L"a\0b"s,
    L"+-~\\",
    Wide({'a', 0xD800, 'b'}),
    Wide({0x110000}),
    Wide({'a', 'b', 0x200000}),
    Wide({0xE0041, 'a'}),
};

TEST(ConvertToCodePage, NamedSetsEqualTheirOwnFunctions) {
    for (const std::wstring& text : kSampleTexts) {
        EXPECT_EQ(convertToCodePage("UTF-8", text), convertToUtf8(text)) << Hex(text);
        EXPECT_EQ(convertToCodePage("CP850", text), convertToCP850(text)) << Hex(text);
    }
}

TEST(ConvertToCodePage, UnknownSetGivesFourZeroBytesPerCharacter) {
    for (const std::string& name : {"no such set"s, "UTF-9000"s, "CP85"s, std::string(1000, 'x')}) {
        EXPECT_EQ(convertToCodePage(name, L"abc"), std::string(12, '\0')) << name;
        EXPECT_EQ(convertToCodePage(name, L"a\0b\u20AC"s), std::string(16, '\0')) << name;
        EXPECT_EQ(convertToCodePage(name, L""), "") << name;
    }
}

TEST(ConvertToCodePage, NameEndsAtItsZeroByte) {
    EXPECT_EQ(convertToCodePage("ISO-8859-1\0no such set"s, L"\u00E9"), "\xE9");
    EXPECT_EQ(convertToCodePage("no such set\0ISO-8859-1"s, L"\u00E9"), "\0\0\0\0"s);
}

TEST(ConvertToCodePage, EmptyNameIsTheLocalesSet) {
    // The test program stays in the "C" locale, whose set is ASCII.
    EXPECT_EQ(convertToCodePage("", L"abc"), "abc");
    EXPECT_EQ(convertToCodePage("", L"a\u00E9"), Untrimmed("a"s, 8));
}

TEST(ConvertToCodePage, AsciiTakesItsOwnCharactersOnly) {
    EXPECT_EQ(convertToCodePage("ASCII", L"abc\x7F"), "abc\x7F");
    EXPECT_EQ(convertToCodePage("ASCII", L"abc\x80"), Untrimmed("abc"s, 16));
}

TEST(ConvertToCodePage, SuffixIsHandedOn) {
    EXPECT_EQ(convertToCodePage("ASCII//TRANSLIT", L"5 \u20AC"), "5 EUR");
}

TEST(ConvertToCodePage, LatinSetHasTheFirst256Characters) {
    std::wstring text;
    std::string bytes;
    for (wchar_t code = 1; code < 0x100; ++code) {
        text += code;
        bytes += static_cast<char>(code);
    }
    EXPECT_EQ(convertToCodePage("ISO-8859-1", text), bytes);
    EXPECT_EQ(convertToCodePage("ISO-8859-1", text + L'\u0100'), Untrimmed(bytes, 1024));
}

TEST(ConvertToCodePage, SetWithZeroBytesOfItsOwnIsCutAtTheFirst) {
    EXPECT_EQ(convertToCodePage("UTF-16LE", L"\u20AC\u20ACab"), "\xAC\x20\xAC\x20\x61");
    EXPECT_EQ(convertToCodePage("UTF-16BE", L"\u20AC\u20ACab"), "\x20\xAC\x20\xAC");
    EXPECT_EQ(convertToCodePage("UCS-4LE", L"ab"), "a");
}

TEST(ConvertToCodePage, MoreThanFourBytesPerCharacterFails) {
    // A byte order mark of four bytes leaves no room for the last character.
    const std::string result = convertToCodePage("UTF-32", L"ab");
    EXPECT_EQ(result, Untrimmed("\xFF\xFE\0\0a"s, 8));
}

TEST(ConvertToCodePage, AnySetGivesWhatOneCallOfTheConverterWrites) {
    const std::string names[] = {
        "UTF-8",  "CP850",       "ASCII",  "ASCII//TRANSLIT", "ASCII//IGNORE", "ISO-8859-1",
        "UTF-16", "UTF-16LE",    "UTF-32", "UTF-7",           "SHIFT_JIS",     "ISO-2022-JP",
        "EUC-JP", "GB18030",     "KOI8-R", "UCS-4LE",         "WCHAR_T",       "ascii",
        "",       "no such set",
    };
    for (const std::string& name : names) {
        for (const std::wstring& text : kSampleTexts) {
            ToCodePageReference reference(name);
            ASSERT_EQ(reference.IsKnown(), name != "no such set") << name;
            EXPECT_EQ(convertToCodePage(name, text), reference(text)) << name << ", " << Hex(text);
        }
    }
}

// --- concurrency -------------------------------------------------------------------------------

TEST(Conversions, AreReentrant) {
    constexpr int kThreads = 8;
    std::array<int, kThreads> wrong{};
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([number, &wrong] {
            // Distinct in each thread: "0\u00E9", "11\u00E9", ...; with a zero character and with
            // a fault as well, so that both ways through the conversions are taken.
            const std::size_t size = static_cast<std::size_t>(number) + 1;
            const std::string digits(size, static_cast<char>('0' + number));
            const std::wstring wideDigits(digits.begin(), digits.end());
            const std::string utf8 = digits + "\xC3\xA9";
            const std::wstring wide = wideDigits + L'\u00E9';
            for (int repeat = 0; repeat < 300; ++repeat) {
                const bool isRight =
                    convertFromUtf8(utf8) == wide && convertFromUtf8(utf8 + "\0x"s) == wide &&
                    convertFromUtf8(utf8 + "\xFF") == Untrimmed(wide, 4 * (size + 3)) &&
                    convertToUtf8(wide) == utf8 && convertToUtf8(wide + L"\0x"s) == utf8 &&
                    convertToCP850(wide) == digits + "\x82" &&
                    convertToCP850(wide + L'\u20AC') ==
                        Untrimmed(digits + "\x82", 4 * (size + 2)) &&
                    DecodeAndConvertFromUtf8(base64EncodeString(utf8)) == wide &&
                    HexStringToChar(CharToHexString(digits[0])) == digits[0];
                wrong[static_cast<std::size_t>(number)] += isRight ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, (std::array<int, kThreads>{}));
}

TEST(Conversions, TakeTextsOfTenMillionBytes) {
    constexpr std::size_t kSize = 10000000;
    const std::string utf8(kSize, 'x');
    const std::wstring wide(kSize, L'x');
    EXPECT_TRUE(convertFromUtf8(utf8) == wide);
    EXPECT_TRUE(convertToUtf8(wide) == utf8);
    EXPECT_TRUE(convertToCP850(wide) == utf8);
    EXPECT_TRUE(base64DecodeString(base64EncodeString(utf8)) == utf8);
    EXPECT_TRUE(DecodeAndConvertFromUtf8(base64EncodeString(utf8)) == wide);
    EXPECT_EQ(HexStringToChar(utf8), '\0');
}

TEST(Conversions, FindAFaultAtTheEndOfALargeText) {
    constexpr std::size_t kSize = 1000000;
    std::string utf8(kSize, 'x');
    std::wstring wide(kSize, L'x');
    utf8.back() = '\xFF';
    wide.back() = static_cast<wchar_t>(0xD800);
    std::wstring cutWide(kSize - 1, L'x');
    cutWide.resize(4 * kSize);
    EXPECT_TRUE(convertFromUtf8(utf8) == cutWide);
    EXPECT_TRUE(DecodeAndConvertFromUtf8(base64EncodeString(utf8)) == cutWide);
    std::string cutUtf8(kSize - 1, 'x');
    cutUtf8.resize(4 * kSize);
    EXPECT_TRUE(convertToUtf8(wide) == cutUtf8);
    EXPECT_TRUE(convertToCP850(wide) == cutUtf8);
}

}  // namespace
