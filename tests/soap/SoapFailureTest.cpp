// Lists of SOAP records read while the gSOAP runtime's allocations fail, each in turn: what is not
// refused is whole.

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string>

#include "soap/QuaveraH.h"
#include "tests/soap/SoapDocument.h"
#include "tests/support/AllocationFailure.h"

namespace {

using namespace Quavera;

class SoapFailure : public testing::Test {
 protected:
    void SetUp() override { QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE(); }

    /// Sweeps over reading `inner` as a record; `list` finds in it the list that has to be whole.
    template <class Record, class FindList>
    static void ExpectReadsAllOrFails(const std::string& inner, int count, FindList list) {
        const std::string document = "<r>" + inner + "</r>";
        // The context, the list's block, an item each, and the items' final place.
        const std::size_t least = 3 + static_cast<std::size_t>(count);
        EXPECT_TRUE(allocation::Sweep(least, [&](allocation::Attempt& attempt) {
            std::istringstream in(document);
            const SoapContext context(SOAP_C_UTFSTRING | SOAP_XML_TREE | SOAP_XML_IGNORENS);
            context->is = &in;
            Record record;
            record.soap_default(context.get());
            bool isRead = false;
            const bool isComplete = attempt.RunTolerantly([&] {
                isRead = soap_begin_recv(context.get()) == SOAP_OK &&
                         record.soap_get(context.get(), nullptr, nullptr) != nullptr;
            });
            if (isComplete && isRead) {
                const auto* const found = list(record);
                ASSERT_NE(found, nullptr);
                EXPECT_EQ(found->count, count);
                EXPECT_NE(found->items, nullptr);
            } else {
                EXPECT_TRUE(attempt.HasFailed());
                EXPECT_TRUE(!isComplete || context->error == SOAP_EOM) << context->error;
            }
        }));
    }
};

TEST_F(SoapFailure, OfAListOfRecords) {
    ExpectReadsAllOrFails<Quavera2__AlbumMetadata>(
        "<tracks><items><trackId>1</trackId></items><items><trackId>2</trackId></items></tracks>",
        2, [](const auto& album) { return album.tracks; });
}

TEST_F(SoapFailure, OfAListOfTexts) {
    ExpectReadsAllOrFails<Quavera2__AlbumMetadata>(
        "<displayableAlbumTypes><items>a</items><items>b</items><items>c</items>"
        "</displayableAlbumTypes>",
        3, [](const auto& album) { return album.displayableAlbumTypes; });
}

/// The second album's texts must not go into the list of albums.
TEST_F(SoapFailure, OfAListWithinAList) {
    const std::string album =
        "<items><displayableAlbumTypes><items>a</items></displayableAlbumTypes></items>";
    ExpectReadsAllOrFails<Quavera2__ArtistMetadata>(
        "<albums>" + album + album + "</albums>", 2,
        [](const auto& artist) { return artist.albums; });
    ExpectReadsAllOrFails<Quavera2__ArtistMetadata>(
        "<albums>" + album + album + "</albums>", 1, [](const auto& artist) {
            const auto* const albums = artist.albums;
            const bool hasSecond = albums != nullptr && albums->items != nullptr;
            return hasSecond ? albums->items[1]->displayableAlbumTypes : nullptr;
        });
}

}  // namespace
