#include "tools/SoapDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tools/RecordClasses.h"

namespace {

using Quavera::Quavera2__LiteTrackMetadata;
using tool::Done;
using tool::Result;
using tool::SoapContext;
using tool::SoapDocument;
using tooltest::Envelope;
using tooltest::Track;

/// The name of the record element, or what a failure says.
std::string RecordElement(const std::string& text) {
    const Result<SoapDocument> document = SoapDocument::Open(text, "there");
    return document ? document->RecordElement() : tool::Message(document.failure());
}

/// The identifier and the number of the track in a document, or what a failure says.
std::string DecodedTrack(const std::string& text) {
    const Result<SoapDocument> document = SoapDocument::Open(text, "there");
    SoapContext context;
    Quavera2__LiteTrackMetadata track;
    const Result<Done> decoded = document ? document->Decode(&context, &track) : document.failure();
    if (!decoded) {
        return tool::Message(decoded.failure());
    }
    return (track.trackId == nullptr ? "none" : *track.trackId) + " " +
           (track.trackIndex == nullptr ? "none" : std::to_string(*track.trackIndex));
}

const std::string kMembers = "<trackId>Tra.1</trackId><trackIndex>7</trackIndex>";

std::vector<std::string> TrackDocuments() {
    const std::string bare = "<LiteTrackMetadata>" + kMembers + "</LiteTrackMetadata>";
    return {
        bare,
        "<?xml version='1.0'?>\n<!-- a comment -->\n" + bare + "\n<!-- another -->",
        "<p:LiteTrackMetadata xmlns:p=\"urn:anything\">" + kMembers + "</p:LiteTrackMetadata>",
        std::string("<p:LiteTrackMetadata xmlns:p=\"urn:anything\"><p:trackId>Tra.1</p:trackId>") +
            "<p:trackIndex>7</p:trackIndex></p:LiteTrackMetadata>",
        Envelope(Track(kMembers)),
        Envelope("\n  <!-- a comment -->" + Track(kMembers) + "<more/>"),
        "<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\"><e:Body>" + bare +
            "</e:Body></e:Envelope>",
        std::string("<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\">") +
            "<e:Header><trackId>Tra.0</trackId></e:Header><e:Body>" + bare +
            "</e:Body></e:Envelope>",
        "\xEF\xBB\xBF" + bare,
    };
}

TEST(SoapDocument, RecordElementIsFoundInAnEnvelopeAndBare) {
    for (const std::string& document : TrackDocuments()) {
        EXPECT_EQ(RecordElement(document), "LiteTrackMetadata") << document;
    }
}

TEST(SoapDocument, RecordIsDecodedFromAnEnvelopeAndBare) {
    for (const std::string& document : TrackDocuments()) {
        EXPECT_EQ(DecodedTrack(document), "Tra.1 7") << document;
    }
}

TEST(SoapDocument, AnyElementIsARecordElement) {
    EXPECT_EQ(RecordElement("<Concert/>"), "Concert");
    EXPECT_EQ(RecordElement(Envelope("<q:AlbumMetadata/>")), "AlbumMetadata");
}

TEST(SoapDocument, DocumentWithoutRecordIsRefused) {
    EXPECT_EQ(RecordElement(Envelope("")), "there: the SOAP envelope holds no record");
    EXPECT_EQ(RecordElement("<Envelope/>"), "there: the SOAP envelope holds no record");
    EXPECT_EQ(RecordElement("<Envelope><Other/></Envelope>"),
              "there: the SOAP envelope holds no record");
}

TEST(SoapDocument, FaultIsRefusedWithItsReason) {
    const std::string prefix = "there: the service answered with a fault: ";
    EXPECT_EQ(RecordElement("<Fault><faultstring>reason</faultstring></Fault>"), prefix + "reason");
    EXPECT_EQ(RecordElement(Envelope("<s:Fault><faultstring>reason</faultstring></s:Fault>")),
              prefix + "reason");
    EXPECT_EQ(RecordElement("<Fault><Reason><Text>reason</Text></Reason></Fault>"),
              prefix + "reason");
    for (const char* const fault : {"<Fault/>", "<Fault><Reason/></Fault>", "<Fault><a:/></Fault>",
                                    "<Fault><a:1>reason</a:1></Fault>"}) {
        EXPECT_EQ(RecordElement(fault), prefix + "no reason given");
    }
}

TEST(SoapDocument, MalformedTextIsRefusedWithItsPlace) {
    EXPECT_EQ(RecordElement("<a>\n<b></a>").rfind("there: line 2, column ", 0), 0U);
    EXPECT_EQ(RecordElement("").rfind("there: line 1, column 1: ", 0), 0U);
}

TEST(SoapDocument, AttributesWithoutAMeaningAreIgnored) {
    std::string attributes;
    std::string elements;
    for (int at = 0; at < 20000; ++at) {
        attributes += " a" + std::to_string(at) + " = '>&#62;\"'\n";
        elements += "<x b" + std::to_string(at) + "=\">x'\"/>";
    }
    EXPECT_EQ(DecodedTrack(Envelope(Track(kMembers + "<other" + attributes + "/>" + elements))),
              "Tra.1 7");
}

TEST(SoapDocument, UnknownElementsAreIgnoredWhateverTheirPrefix) {
    for (const char* const unknown : {"<x/>", "<q:x/>", "<q:x xmlns:q='urn:q'><q:y>1</q:y></q:x>",
                                      "<Quavera2:x><y/></Quavera2:x>"}) {
        EXPECT_EQ(DecodedTrack(Envelope(Track(unknown + kMembers))), "Tra.1 7") << unknown;
        EXPECT_EQ(DecodedTrack("<LiteTrackMetadata>" + kMembers + unknown + "</LiteTrackMetadata>"),
                  "Tra.1 7")
            << unknown;
    }
}

TEST(SoapDocument, AbsentAndNilMembersAreNull) {
    EXPECT_EQ(DecodedTrack(Envelope(Track(""))), "none none");
    EXPECT_EQ(
        DecodedTrack(Envelope(Track(R"(<trackId xsi:nil="true"/><trackIndex xsi:nil="true"/>)"))),
        "none none");
}

TEST(SoapDocument, ValueThatDoesNotFitIsRefusedWithItsElement) {
    for (const char* const value : {"seven", "7.5", "7 8", "", "2147483648", "-2147483649"}) {
        const std::string members = "<trackIndex>" + std::string(value) + "</trackIndex>";
        EXPECT_EQ(DecodedTrack(Envelope(Track(members))),
                  "there: element \"trackIndex\": a value that does not fit its type")
            << value;
    }
}

TEST(SoapDocument, ValueInAListThatDoesNotFitIsRefusedWithItsElement) {
    const auto* const images = tool::FindClass(&tool::RecordClass::kind, "images");
    ASSERT_NE(images, nullptr);
    const auto document = SoapDocument::Open(
        "<Images><images><items><height>1</height></items><items><height>high</height></items>"
        "</images></Images>",
        "there");
    ASSERT_TRUE(document);
    const auto trees = images->answerToTrees(*document);
    ASSERT_FALSE(trees);
    EXPECT_EQ(tool::Message(trees.failure()),
              "there: element \"height\": a value that does not fit its type");
}

TEST(SoapDocument, IntegersFitUpToTheirLimits) {
    for (const char* const value : {"2147483647", "-2147483648", "0"}) {
        const std::string members = "<trackIndex>" + std::string(value) + "</trackIndex>";
        EXPECT_EQ(DecodedTrack(Envelope(Track(members))), "none " + std::string(value));
    }
}

TEST(SoapDocument, DecodingStartsAfresh) {
    const Result<SoapDocument> document = SoapDocument::Open(Envelope(Track(kMembers)), "there");
    SoapContext context;
    Quavera2__LiteTrackMetadata track;
    ASSERT_TRUE(document);
    std::string old = "old";
    track.albumId = &old;
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(document->Decode(&context, &track));
        EXPECT_EQ(track.albumId, nullptr);
        ASSERT_NE(track.trackId, nullptr);
        EXPECT_EQ(*track.trackId, "Tra.1");
    }
    EXPECT_EQ(old, "old");
}

}  // namespace
