// The header has to compile where a polymorphic class without virtual destructor is an error.
#pragma GCC diagnostic error "-Wnon-virtual-dtor"
#include "common/QuaveraCommon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using std::string_literals::operator""s;

using Bytes = std::vector<unsigned char>;

// --- What all reply classes have in common -----------------------------------------------------

/// The size of a class's message.
template <class Reply>
constexpr std::size_t kSize = 10;
template <>
constexpr std::size_t kSize<QuavClientResponse> = 6;
template <>
constexpr std::size_t kSize<GetAudioDataResponse> = 14;

struct ReplyName {
    template <class Reply>
    static std::string GetName(int index) {
        return std::to_string(index) + "Of" + std::to_string(kSize<Reply>) + "Bytes";
    }
};

/// The part that all replies begin with.
QuavClientResponse& Root(QuavClientResponse& reply) {
    return reply;
}
const QuavClientResponse& Root(const QuavClientResponse& reply) {
    return reply;
}

template <class Reply>
class AnyReply : public testing::Test {};

using Replies = testing::Types<QuavClientResponse, StartPlackbackResponse,
                               InitTrackPlaybackResponse, GetAudioDataResponse>;
TYPED_TEST_SUITE(AnyReply, Replies, ReplyName);

template <class Reply>
class DerivedReply : public testing::Test {};

using DerivedReplies =
    testing::Types<StartPlackbackResponse, InitTrackPlaybackResponse, GetAudioDataResponse>;
TYPED_TEST_SUITE(DerivedReply, DerivedReplies, ReplyName);

/// The place of a virtual operation in its class's virtual table, by the C++ ABI of the platforms
/// that we build for: a member pointer begins with the offset of the entry. ARM marks a virtual
/// one in the second word, the others in the lowest bit of the offset.
template <class Operation>
std::size_t SlotOf(Operation operation) {
    static_assert(sizeof(operation) == 2 * sizeof(std::size_t), "offset and adjustment");
    std::array<std::size_t, 2> words{};
    std::memcpy(words.data(), &operation, sizeof(operation));
#if defined(__arm__) || defined(__aarch64__)
    const bool isVirtual = (words[1] & 1U) != 0;
#else
    const bool isVirtual = (words[0] & 1U) != 0;
#endif
    EXPECT_TRUE(isVirtual);
    return words[0] / sizeof(void*);
}

template <class Object>
std::ptrdiff_t OffsetIn(const Object& object, const void* field) {
    return static_cast<const char*>(field) -
           static_cast<const char*>(static_cast<const void*>(&object));
}

TYPED_TEST(AnyReply, IsPolymorphicWithoutAVirtualDestructor) {
    static_assert(std::is_polymorphic_v<TypeParam>);
    static_assert(!std::has_virtual_destructor_v<TypeParam>);
    static_assert(std::is_convertible_v<TypeParam*, QuavClientResponse*>);
    static_assert(std::is_copy_constructible_v<TypeParam> && std::is_copy_assignable_v<TypeParam>);
}

TYPED_TEST(AnyReply, HasItsOperationsInOrder) {
    EXPECT_EQ(SlotOf(&TypeParam::ToBuffer), 0U);
    EXPECT_EQ(SlotOf(&TypeParam::FromBuffer), 1U);
    EXPECT_EQ(SlotOf(&TypeParam::GetByteSize), 2U);
}

TYPED_TEST(AnyReply, HasOperationsOfItsOwn) {
    static_assert(std::is_same_v<decltype(&TypeParam::ToBuffer), unsigned char* (TypeParam::*)()>);
    static_assert(std::is_same_v<decltype(&TypeParam::FromBuffer), void (TypeParam::*)()>);
    static_assert(std::is_same_v<decltype(&TypeParam::GetByteSize), unsigned int (TypeParam::*)()>);
}

TYPED_TEST(AnyReply, HoldsItsImage) {
    TypeParam reply;
    EXPECT_EQ(reply.ToBuffer(), reply.wireBytes);
    EXPECT_EQ(reply.ToBuffer(), reply.wireBytes);
    EXPECT_EQ(reply.GetByteSize(), sizeof(reply.wireBytes));
    TypeParam copy = reply;
    EXPECT_EQ(copy.ToBuffer(), copy.wireBytes);
}

static_assert(std::is_same_v<decltype(QuavClientResponse::wireBytes), unsigned char[6]>);

TYPED_TEST(AnyReply, HasTheRootsFieldsInOrder) {
    static_assert(std::is_same_v<decltype(TypeParam::value), std::uint32_t>);
    static_assert(std::is_same_v<decltype(TypeParam::tag), std::uint16_t>);
    const TypeParam reply;
    EXPECT_LT(OffsetIn(reply, &reply.value), OffsetIn(reply, &reply.tag));
    EXPECT_LT(OffsetIn(reply, &reply.tag), OffsetIn(reply, &Root(reply).wireBytes));
}

TYPED_TEST(DerivedReply, HasItsOwnFieldsBehindTheRoots) {
    static_assert(std::is_base_of_v<QuavClientResponse, TypeParam>);
    static_assert(std::is_same_v<decltype(TypeParam::param1), std::uint32_t>);
    const TypeParam reply;
    EXPECT_LT(OffsetIn(reply, &Root(reply).wireBytes), OffsetIn(reply, &reply.param1));
    EXPECT_LT(OffsetIn(reply, &reply.param1), OffsetIn(reply, &reply.wireBytes));
}

TEST(GetAudioDataResponse, HasItsSecondValueBehindTheFirst) {
    static_assert(std::is_same_v<decltype(GetAudioDataResponse::param2), std::uint32_t>);
    const GetAudioDataResponse reply;
    EXPECT_LT(OffsetIn(reply, &reply.param1), OffsetIn(reply, &reply.param2));
    EXPECT_LT(OffsetIn(reply, &reply.param2), OffsetIn(reply, &reply.wireBytes));
}

TEST(Replies, DeriveFromTheRootAlone) {
    static_assert(!std::is_base_of_v<StartPlackbackResponse, InitTrackPlaybackResponse>);
    static_assert(!std::is_base_of_v<StartPlackbackResponse, GetAudioDataResponse>);
    static_assert(!std::is_base_of_v<InitTrackPlaybackResponse, GetAudioDataResponse>);
    static_assert(!std::is_base_of_v<InitTrackPlaybackResponse, StartPlackbackResponse>);
    static_assert(!std::is_base_of_v<GetAudioDataResponse, StartPlackbackResponse>);
    static_assert(!std::is_base_of_v<GetAudioDataResponse, InitTrackPlaybackResponse>);
}

// --- Images ------------------------------------------------------------------------------------

/// The bytes of the four fields as images on a little-endian machine hold them, which the images
/// of all messages begin with.
const Bytes kImage = {0x02, 0x01, 0x44, 0x33, 0x22, 0x11, 0x05,
                      0x00, 0x00, 0x80, 0x0D, 0x0C, 0x0B, 0x0A};
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "images are literals in this order");

constexpr std::uint16_t kTag = 0x0102;
constexpr std::uint32_t kValue = 0x11223344;
constexpr std::uint32_t kParam1 = 0x80000005;
constexpr std::uint32_t kParam2 = 0x0A0B0C0D;

/// How the fields that a class has are filled and compared, whatever the class.
template <class Reply, class Visitor>
void VisitFields(Reply& reply, const Visitor& visit) {
    visit(reply.tag, kTag);
    visit(reply.value, kValue);
    if constexpr (!std::is_same_v<Reply, QuavClientResponse>) {
        visit(reply.param1, kParam1);
    }
    if constexpr (std::is_same_v<Reply, GetAudioDataResponse>) {
        visit(reply.param2, kParam2);
    }
}

template <class Reply>
void Fill(Reply& reply) {
    VisitFields(reply, [](auto& field, auto filling) { field = filling; });
}

template <class Reply>
void ExpectFilled(Reply& reply) {
    VisitFields(reply, [](auto& field, auto filling) { EXPECT_EQ(field, filling); });
}

template <std::size_t size>
void FillImage(unsigned char (&image)[size], unsigned char byte) {
    std::fill(std::begin(image), std::end(image), byte);
}

template <std::size_t size>
Bytes ImageOf(const unsigned char (&image)[size]) {
    return {std::begin(image), std::end(image)};
}

/// What the image of a class's message has to be.
template <class Reply>
Bytes ExpectedImage() {
    return {kImage.begin(), kImage.begin() + kSize<Reply>};
}

TYPED_TEST(AnyReply, HasTheSizeOfItsMessage) {
    TypeParam reply;
    EXPECT_EQ(reply.GetByteSize(), kSize<TypeParam>);
    EXPECT_EQ(sizeof(reply.wireBytes), kSize<TypeParam>);
}

TYPED_TEST(AnyReply, BeginsWithZeros) {
    TypeParam reply;
    const Bytes zeros(kSize<TypeParam>, 0);
    EXPECT_EQ(ImageOf(reply.wireBytes), zeros);
    reply.ToBuffer();
    EXPECT_EQ(ImageOf(reply.wireBytes), zeros) << "the fields";
}

TYPED_TEST(AnyReply, WritesItsFieldsToItsImage) {
    TypeParam reply;
    Fill(reply);
    FillImage(reply.wireBytes, 0xEE);
    reply.ToBuffer();
    EXPECT_EQ(ImageOf(reply.wireBytes), ExpectedImage<TypeParam>());
    ExpectFilled(reply);
}

TYPED_TEST(AnyReply, ReadsItsFieldsFromItsImage) {
    TypeParam reply;
    const Bytes image = ExpectedImage<TypeParam>();
    std::copy(image.begin(), image.end(), reply.ToBuffer());
    reply.FromBuffer();
    ExpectFilled(reply);
    EXPECT_EQ(ImageOf(reply.wireBytes), image);
}

TYPED_TEST(AnyReply, DoesTheSameByWayOfTheRoot) {
    TypeParam sent;
    TypeParam received;
    Fill(sent);
    QuavClientResponse& sender = sent;
    QuavClientResponse& receiver = received;
    ASSERT_EQ(sender.GetByteSize(), kSize<TypeParam>);
    const unsigned char* const image = sender.ToBuffer();
    EXPECT_EQ(Bytes(image, image + sender.GetByteSize()), ExpectedImage<TypeParam>());
    std::copy(image, image + sender.GetByteSize(), receiver.ToBuffer());
    receiver.FromBuffer();
    ExpectFilled(received);
}

TYPED_TEST(DerivedReply, LeavesTheRootsImageUntouched) {
    TypeParam reply;
    Fill(reply);
    FillImage(Root(reply).wireBytes, 0xEE);
    reply.ToBuffer();
    EXPECT_EQ(ImageOf(Root(reply).wireBytes), Bytes(6, 0xEE));
    reply.FromBuffer();
    EXPECT_EQ(ImageOf(Root(reply).wireBytes), Bytes(6, 0xEE));
    ExpectFilled(reply);
}

TYPED_TEST(DerivedReply, KeepsItsOwnImageWhenTheRootsIsWritten) {
    TypeParam reply;
    Fill(reply);
    FillImage(reply.wireBytes, 0xEE);
    unsigned char* const image = reply.QuavClientResponse::ToBuffer();
    EXPECT_EQ(image, Root(reply).wireBytes);
    EXPECT_EQ(ImageOf(Root(reply).wireBytes), ExpectedImage<QuavClientResponse>());
    EXPECT_EQ(ImageOf(reply.wireBytes), Bytes(kSize<TypeParam>, 0xEE));
}

TEST(GetAudioDataResponse, PacksItsFieldsInOrderIntoFourteenBytes) {
    GetAudioDataResponse reply;
    reply.tag = 0x0102;
    reply.value = 0x11223344;
    reply.param1 = 5;
    reply.param2 = 0x0A0B0C0D;
    const Bytes image(reply.ToBuffer(), reply.ToBuffer() + reply.GetByteSize());
    EXPECT_EQ(image, Bytes({0x02, 0x01, 0x44, 0x33, 0x22, 0x11, 0x05, 0x00, 0x00, 0x00, 0x0D, 0x0C,
                            0x0B, 0x0A}));
    GetAudioDataResponse received;
    std::copy(image.begin(), image.end(), received.ToBuffer());
    received.FromBuffer();
    EXPECT_EQ(received.tag, 0x0102U);
    EXPECT_EQ(received.value, 0x11223344U);
    EXPECT_EQ(received.param1, 5U);
    EXPECT_EQ(received.param2, 0x0A0B0C0DU);
}

// --- Appending to a buffer ---------------------------------------------------------------------

static_assert(std::is_same_v<decltype(&AddDWORDToBuffer),
                             unsigned int (*)(unsigned char*, unsigned int, unsigned int)>);
static_assert(std::is_same_v<decltype(&AddStringToBuffer),
                             unsigned int (*)(unsigned char*, unsigned int, std::string)>);

constexpr unsigned char kUntouched = 0xEE;

/// Calls `append(buffer)` on a heap block of `size` bytes, and on a longer one whose surplus has to
/// stay as it is, so that a byte too many is noticed with and without memory checker.
template <class Append>
Bytes Appended(std::size_t size, const Append& append) {
    const std::unique_ptr<unsigned char[]> exact(new unsigned char[size]);
    std::fill_n(exact.get(), size, kUntouched);
    append(exact.get());
    Bytes roomy(size + 16, kUntouched);
    append(roomy.data());
    EXPECT_EQ(Bytes(roomy.begin() + static_cast<std::ptrdiff_t>(size), roomy.end()),
              Bytes(16, kUntouched));
    roomy.resize(size);
    EXPECT_TRUE(std::equal(roomy.begin(), roomy.end(), exact.get()));
    return roomy;
}

TEST(AddDWORDToBuffer, WritesFourBytesAtTheOffset) {
    const Bytes written = Appended(
        7, [](unsigned char* buffer) { EXPECT_EQ(AddDWORDToBuffer(buffer, 3, 0x11223344), 7U); });
    EXPECT_EQ(written, Bytes({kUntouched, kUntouched, kUntouched, 0x11, 0x22, 0x33, 0x44}));
}

TEST(AddDWORDToBuffer, WritesTheMostSignificantByteFirst) {
    const std::vector<std::pair<unsigned int, Bytes>> values = {
        {0, {0, 0, 0, 0}},
        {1, {0, 0, 0, 1}},
        {0x80000000, {0x80, 0, 0, 0}},
        {0x00FF0000, {0, 0xFF, 0, 0}},
        {0xFFFFFFFF, {0xFF, 0xFF, 0xFF, 0xFF}},
        {0xFEDCBA98, {0xFE, 0xDC, 0xBA, 0x98}},
    };
    for (const auto& [value, bytes] : values) {
        const Bytes written = Appended(4, [value = value](unsigned char* buffer) {
            EXPECT_EQ(AddDWORDToBuffer(buffer, 0, value), 4U);
        });
        EXPECT_EQ(written, bytes) << value;
    }
}

/// What `AddStringToBuffer` writes at `offset`, where it has to return `end`.
Bytes AppendedString(unsigned int offset, const std::string& text, unsigned int end) {
    return Appended(offset + 2 + text.size(), [&](unsigned char* buffer) {
        EXPECT_EQ(AddStringToBuffer(buffer, offset, text), end);
    });
}

/// `prefix` and the bytes of `text`.
Bytes Joined(Bytes prefix, const std::string& text) {
    prefix.insert(prefix.end(), text.begin(), text.end());
    return prefix;
}

TEST(AddStringToBuffer, WritesLengthAndBytes) {
    EXPECT_EQ(AppendedString(0, "abc", 5), Bytes({0x00, 0x03, 0x61, 0x62, 0x63}));
}

TEST(AddStringToBuffer, WritesAZeroLengthForTheEmptyText) {
    EXPECT_EQ(AppendedString(0, "", 2), Bytes({0x00, 0x00}));
    EXPECT_EQ(AppendedString(1, "", 3), Bytes({kUntouched, 0x00, 0x00}));
}

TEST(AddStringToBuffer, WritesAtTheOffset) {
    EXPECT_EQ(AppendedString(3, "\xC3\xA9", 7),
              Bytes({kUntouched, kUntouched, kUntouched, 0x00, 0x02, 0xC3, 0xA9}));
}

TEST(AddStringToBuffer, WritesZeroBytesLikeOthers) {
    EXPECT_EQ(AppendedString(0, "\0a\0"s, 5), Bytes({0x00, 0x03, 0x00, 0x61, 0x00}));
}

TEST(AddStringToBuffer, WritesTheLengthsMostSignificantByteFirst) {
    EXPECT_EQ(AppendedString(0, std::string(0x0102, 'x'), 0x0104),
              Joined({0x01, 0x02}, std::string(0x0102, 'x')));
}

TEST(AddStringToBuffer, CutsTheLengthButNotTheTextTo16Bits) {
    struct Case {
        std::size_t size;
        Bytes prefix;
        unsigned int counted;
    };
    constexpr unsigned int kOffset = 5;
    for (const Case& one : {Case{65535, {0xFF, 0xFF}, 65535}, Case{65536, {0x00, 0x00}, 0},
                            Case{65539, {0x00, 0x03}, 3}, Case{131072 + 258, {0x01, 0x02}, 258}}) {
        std::string text(one.size, 'x');
        text.back() = 'z';
        Bytes expected(kOffset, kUntouched);
        expected.insert(expected.end(), one.prefix.begin(), one.prefix.end());
        EXPECT_TRUE(AppendedString(kOffset, text, kOffset + 2 + one.counted) ==
                    Joined(expected, text))
            << one.size;
    }
}

TEST(AppendFunctions, ReturnWhereTheNextOneGoesOn) {
    const Bytes written = Appended(13, [](unsigned char* buffer) {
        const unsigned int afterText = AddStringToBuffer(buffer, 0, "abc");
        const unsigned int afterNumber = AddDWORDToBuffer(buffer, afterText, 0x01020304);
        EXPECT_EQ(AddStringToBuffer(buffer, afterNumber, "de"), 13U);
    });
    EXPECT_EQ(written, Bytes({0, 3, 'a', 'b', 'c', 1, 2, 3, 4, 0, 2, 'd', 'e'}));
}

}  // namespace
