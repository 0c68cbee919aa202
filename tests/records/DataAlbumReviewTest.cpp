#include "records/DataAlbumReview.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include "records/QuavData.h"
#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleAlbumReview.h"

// The library's objects, which no header declares.
extern std::string author;
extern std::string blurb;
extern int blurbSize;
extern std::string detail;
extern int detailSize;
extern int publishDate;
extern std::wstring title;

namespace {

using Review = DataAlbumReview;

struct ReviewCase : RecordCase, SampleAlbumReview {
    using Record = Review;
    static constexpr bool kReadsParent = true;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<AlbumReview/>";
    static constexpr char kEmptyText[] =
        "Author= \r\n"
        "Blurb = \r\n"
        "BlurbSize = 0\r\n"
        "Detail = \r\n"
        "DetailSize = 0\r\n"
        "PublishDate = \r\n"
        "Title = \r\n";
};

const RulesFor<ReviewCase> kRules("DataAlbumReview");

static_assert(AreAll<std::wstring>(&Review::author, &Review::blurb, &Review::detail,
                                   &Review::title));
static_assert(AreAll<int>(&Review::blurbSize, &Review::detailSize));
static_assert(AreAll<std::string>(&Review::publishDate));

using Soap = Quavera::Quavera2__AlbumReviewMetadata;

Review ReadReview(const std::string& content) {
    return FromTree<Review>(Wrapped("Parent", Wrapped("AlbumReview", content)));
}

TEST(DataAlbumReview, ReadsEachElementIntoItsField) {
    const auto review = FromTree<Review>(Wrapped("Parent", ReviewCase::kTree));
    EXPECT_EQ(review.author, L"Zo\u00EB M\u00FCller");
    EXPECT_EQ(review.blurb, L"Kurz & gut \U0001F44D");
    EXPECT_EQ(review.blurbSize, 44);
    EXPECT_EQ(review.detail,
              L"\u0414\u043B\u0438\u043D\u043D\u044B\u0439 \u043E\u0442\u0437\u044B\u0432\n"
              L"\u0432 \u0434\u0432\u0435 \u0441\u0442\u0440\u043E\u043A\u0438");
    EXPECT_EQ(review.detailSize, -66);
    EXPECT_EQ(review.publishDate, "2777777777");
    EXPECT_EQ(review.title, L"\u6625\u306E\u97F3");
}

TEST(DataAlbumReview, IsARootOfItsOwn) {
    EXPECT_FALSE((std::is_base_of_v<QuavData, Review>));
    EXPECT_FALSE((std::is_convertible_v<Review*, QuavData*>));
}

struct FurtherReview : Review {
    void FromXML(ZQXML::INode* /*node*/) override { ToString(); }
    // Not virtual in the base, so this hides it.
    std::string ToString() { return rendered = "further"; }
    std::string rendered;
};

TEST(DataAlbumReview, ReadingIsVirtualAndRenderingIsNot) {
    FurtherReview further;
    Review& review = further;
    review.FromXML(Parse(Wrapped("Parent", ReviewCase::kTree)).get());
    EXPECT_EQ(further.rendered, "further");
    EXPECT_EQ(review.ToString(), ReviewCase::kEmptyText);
}

TEST(DataAlbumReview, DefaultReviewHasNoBlankAheadOfTheFirstEqualsSign) {
    EXPECT_EQ(Review().ToString().rfind("Author= \r\nBlurb = \r\nBlurbSize = 0\r\n", 0), 0U);
}

TEST(DataAlbumReview, OwnElementReadsNothing) {
    EXPECT_EQ(FromTree<Review>(ReviewCase::kTree).ToString(), ReviewCase::kEmptyText);
}

TEST(DataAlbumReview, SeveralElementsAreMergedInOrder) {
    const auto review = FromTree<Review>(
        "<Parent><Title>eA==</Title><AlbumReview><Title>YQ==</Title><BlurbSize>1</BlurbSize>"
        "</AlbumReview><Other/><AlbumReview><BlurbSize>2</BlurbSize><DetailSize>3</DetailSize>"
        "</AlbumReview><albumReview><DetailSize>4</DetailSize></albumReview></Parent>");
    EXPECT_EQ(review.title, L"a");
    EXPECT_EQ(review.blurbSize, 2);
    EXPECT_EQ(review.detailSize, 3);
}

TEST(DataAlbumReview, DateIsWrittenAsAnUnsignedNumberAndReadBackAsItsText) {
    for (const unsigned long date : kUnsignedDates) {
        Values values;
        Soap soap;
        soap.publishDate = values.Of(date);
        const std::string tree = TreeOf<Review>(soap);
        EXPECT_EQ(tree, Wrapped("AlbumReview", Wrapped("PublishDate", std::to_string(date))));
        EXPECT_EQ(FromTree<Review>(Wrapped("Parent", tree)).publishDate, std::to_string(date));
    }
}

TEST(DataAlbumReview, DateIsReadAsTheTextThatItIs) {
    for (const char* text : {"", "007", "-1", "4294967296", "März 2009"}) {
        auto review = ReadReview("<PublishDate>x</PublishDate>" + Wrapped("PublishDate", text));
        EXPECT_EQ(review.publishDate, text);
        EXPECT_NE(review.ToString().find(std::string("\r\nPublishDate = ") + text + "\r\n"),
                  std::string::npos);
    }
}

TEST(DataAlbumReview, MembersWithoutAFieldAreNotWritten) {
    Values values;
    Soap soap;
    soap.albumId = soap.source = values.Text("text");
    EXPECT_EQ(TreeOf<Review>(soap), ReviewCase::kEmptyTree);
}

TEST(DataAlbumReview, EmptyTextsAndZerosArePresent) {
    Values values;
    Soap soap;
    soap.author = values.Text("");
    soap.blurbSize = values.Of(0);
    soap.publishDate = values.Of(0UL);
    EXPECT_EQ(TreeOf<Review>(soap),
              "<AlbumReview><Author encoding=\"base64\"/><BlurbSize>0</BlurbSize>"
              "<PublishDate>0</PublishDate></AlbumReview>");
}

TEST(DataAlbumReview, TextsThatAreNoBase64AreEmpty) {
    const auto review =
        ReadReview("<Author>?</Author><Blurb>?</Blurb><Detail>?</Detail><Title>?</Title>");
    EXPECT_EQ(review.author + review.blurb + review.detail + review.title, L"");
}

TEST(DataAlbumReview, DocumentArrives) {
    ExpectDocument<ReviewCase>("DataAlbumReview/full.xml", "Quavera2:AlbumReviewMetadata",
                               TestData("DataAlbumReview/full.tree.xml"),
                               TestData("DataAlbumReview/full.txt"));
}

// --- The exported objects ----------------------------------------------------------------------

TEST(DataAlbumReviewObjects, AreEmptyAndStaySo) {
    FromTree<Review>(Wrapped("Parent", ReviewCase::kTree)).ToString();
    EXPECT_EQ(author, "");
    EXPECT_EQ(blurb, "");
    EXPECT_EQ(blurbSize, 0);
    EXPECT_EQ(detail, "");
    EXPECT_EQ(detailSize, 0);
    EXPECT_EQ(publishDate, 0);
    EXPECT_EQ(title, L"");
}

TEST(DataAlbumReviewObjects, ChangingThemChangesNoReview) {
    author = "a program's own use";
    detailSize = 12;
    title = L"title";
    EXPECT_EQ(Review().ToString(), ReviewCase::kEmptyText);
    author.clear();
    detailSize = 0;
    title.clear();
}

#ifndef QUAVERA_TEST_STATIC  // a static library has no file of its own when the program runs

/// The library by its file, so that symbols are looked up in it and not in this program.
std::shared_ptr<void> Library() {
    std::string path;
    dl_iterate_phdr(
        [](dl_phdr_info* file, std::size_t /*size*/, void* found) {
            const bool isLibrary = std::strstr(file->dlpi_name, "/libquavera.so") != nullptr;
            if (isLibrary) {
                *static_cast<std::string*>(found) = file->dlpi_name;
            }
            return isLibrary ? 1 : 0;
        },
        &path);
    return {path.empty() ? nullptr : dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD),
            [](void* library) { return library == nullptr ? 0 : dlclose(library); }};
}

TEST(DataAlbumReviewObjects, AreExportedByTheLibrary) {
    const auto library = Library();
    ASSERT_NE(library, nullptr);
    // Objects of a type with an ABI tag carry it in their symbols.
    for (const char* symbol :
         {"_Z6authorB5cxx11", "_Z5blurbB5cxx11", "blurbSize", "_Z6detailB5cxx11", "detailSize",
          "publishDate", "_Z5titleB5cxx11"}) {
        EXPECT_NE(dlsym(library.get(), symbol), nullptr) << symbol;
    }
}

#endif  // QUAVERA_TEST_STATIC

}  // namespace
