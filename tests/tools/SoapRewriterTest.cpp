#include "tools/SoapRewriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tool::RewriteForGsoap;

struct Case {
    std::string written;
    std::string rewritten;
};

void ExpectRewritten(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        EXPECT_EQ(RewriteForGsoap(each.written), each.rewritten) << each.written;
    }
}

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int at = 0; at < times; ++at) {
        all += text;
    }
    return all;
}

TEST(SoapRewriter, PlainRecordStaysAsItIs) {
    for (const char* const document : {"<a/>", "<a></a>", "<a>text</a>", "<a> <b>1</b>\n<c/> </a>",
                                       "<a>\xC3\xA9 &amp; &lt;</a>", "<a>]]&gt; > \" '</a>"}) {
        EXPECT_EQ(RewriteForGsoap(document), document);
    }
}

TEST(SoapRewriter, ReferenceBeyondAsciiIsTheCharacter) {
    ExpectRewritten({
        {"<a>&#x80;&#128;</a>", "<a>\xC2\x80\xC2\x80</a>"},
        {"<a>&#xE9;&#233;</a>", "<a>\xC3\xA9\xC3\xA9</a>"},
        {"<a>&#x7FF;&#x800;</a>", "<a>\xDF\xBF\xE0\xA0\x80</a>"},
        {"<a>&#x20ac;&#x20AC;&#8364;</a>", "<a>\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC</a>"},
        {"<a>&#xFFFD;&#x10000;</a>", "<a>\xEF\xBF\xBD\xF0\x90\x80\x80</a>"},
        {"<a>1&#x1F600;2&#128512;3</a>", "<a>1\xF0\x9F\x98\x80\x32\xF0\x9F\x98\x80\x33</a>"},
        {"<a>&#x10FFFF;</a>", "<a>\xF4\x8F\xBF\xBF</a>"},
        {"<a>&#x00000000000000E9;&#0000000000000233;</a>", "<a>\xC3\xA9\xC3\xA9</a>"},
    });
}

// The character itself might be markup, or be lost as a line break.
TEST(SoapRewriter, ReferenceToAsciiStaysOneInItsShortestForm) {
    ExpectRewritten({
        {"<a>&#60;&#x3C;&#x0000003c;</a>", "<a>&#60;&#60;&#60;</a>"},
        {"<a>&#38;amp;&#x26;#60;</a>", "<a>&#38;amp;&#38;#60;</a>"},
        {"<a>&#13;&#xA;&#00000000009;&#x7F;</a>", "<a>&#13;&#10;&#9;&#127;</a>"},
    });
}

TEST(SoapRewriter, CommentsAndInstructionsAreLeftOut) {
    ExpectRewritten({
        {"<?xml version='1.0'?>\n<!-- <b> &#60; -->\n<a/>", "\n\n<a/>"},
        {"<a>1<!---->2<!-- - > ?> -->3<?go -- > ?>4</a><!-- end -->", "<a>1234</a>"},
        {"<a><b/><!--<p:c/>--><b/></a>", "<a><b/><b/></a>"},
    });
}

TEST(SoapRewriter, CdataSectionsStayAsTheyAre) {
    for (const char* const document :
         {"<a><![CDATA[]]></a>", "<a><![CDATA[<p:b c='1'>&#60;&#xE9;<!-- -->]]></a>",
          "<a>1<![CDATA[]]]]><![CDATA[>]]>2</a>"}) {
        EXPECT_EQ(RewriteForGsoap(document), document);
    }
}

TEST(SoapRewriter, NamesOfABareRecordLoseTheirPrefixes) {
    ExpectRewritten({
        {"<p:a><p:b/><q:c><p:d>p:e</p:d></q:c></p:a>", "<a><b/><c><d>p:e</d></c></a>"},
        {"<p:a  ><p:b\t/></p:a\n>", "<a><b/></a>"},
    });
}

TEST(SoapRewriter, NamesOfTheEnvelopeKeepTheirPrefixes) {
    ExpectRewritten({
        {"<s:Envelope><s:Header><h:b><h:c/></h:b></s:Header><s:Body><p:a><p:b/></p:a></s:Body>"
         "</s:Envelope>",
         "<s:Envelope><s:Header><h:b><h:c/></h:b></s:Header><s:Body><a><b/></a></s:Body>"
         "</s:Envelope>"},
        {"<s:Envelope><s:Body/><s:Other><p:a/></s:Other></s:Envelope>",
         "<s:Envelope><s:Body/><s:Other><p:a/></s:Other></s:Envelope>"},
        {"<s:Envelope><s:Body><p:Body><p:Envelope/></p:Body></s:Body></s:Envelope>",
         "<s:Envelope><s:Body><Body><Envelope/></Body></s:Body></s:Envelope>"},
        {"<p:Body><p:a/></p:Body>", "<Body><a/></Body>"},
    });
}

TEST(SoapRewriter, AttributesWithoutAMeaningInSoapAreLeftOut) {
    ExpectRewritten({
        {"<a b='1' c=\"2\"/>", "<a/>"},
        {"<a  b = '>' \n c = \"/>'\" >1</a>", "<a>1</a>"},
        {"<a b='1' x:nil='true' c='2'/>", "<a x:nil='true'/>"},
        {"<a xmlns='urn:a' xmlns:p=\"urn:p\"/>", "<a xmlns='urn:a' xmlns:p=\"urn:p\"/>"},
        {"<a x:type='p:b' s:mustUnderstand = '1'/>", "<a x:type='p:b' s:mustUnderstand = '1'/>"},
        {"<a nil='true' nils='1' x:nilly='1' x:typed='1'/>", "<a nil='true'/>"},
    });
}

// If the rest of the document were gone over at each of its parts, the test would take longer than
// its time limit.
TEST(SoapRewriter, TakesLinearTime) {
    constexpr int kTimes = 200000;
    for (const char* const part :
         {"&#x1F600;", "&#60;", "<!-- -->", "<?go?>", "<![CDATA[x]]>", "<b/>", "<p:b>1</p:b>",
          "<b c='1' x:nil='true'/>", "text &amp; so "}) {
        EXPECT_TRUE(RewriteForGsoap("<a>" + Repeated(part, kTimes) + "</a>") ==
                    "<a>" + Repeated(RewriteForGsoap(part), kTimes) + "</a>")
            << part;
        ASSERT_FALSE(HasFailure());  // the others would take as long
    }
    EXPECT_EQ(RewriteForGsoap("<a" + Repeated(" b='1'", kTimes) + "/>"), "<a/>");
}

}  // namespace
