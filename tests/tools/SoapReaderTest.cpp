#include "tools/SoapReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tool::ReadSoap;
using tool::Result;
using tool::SoapMessage;
using tool::SoapVersion;

/// The record element of a text, or why there is none.
std::string Record(const std::string& text) {
    const Result<SoapMessage> message = ReadSoap(text, "there");
    return message ? message->record : tool::Message(message.failure());
}

struct Case {
    std::string written;
    std::string read;
};

void ExpectRecords(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        EXPECT_EQ(Record(each.written), each.read) << each.written;
    }
}

std::string InA(const std::string& inner) {
    return inner.empty() ? "<a/>" : "<a>" + inner + "</a>";
}

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int at = 0; at < times; ++at) {
        all += text;
    }
    return all;
}

TEST(SoapReader, PlainRecordStaysAsItIs) {
    for (const char* const document :
         {"<a/>", "<a>text</a>", "<a> <b>1</b>\n<c/> </a>", "<a>\xC3\xA9 ' ; \t\n#</a>"}) {
        EXPECT_EQ(Record(document), document);
    }
    EXPECT_EQ(Record("<a></a>"), "<a/>");
}

TEST(SoapReader, ReferenceIsTheCharacter) {
    ExpectRecords({
        {"<a>&#x80;&#128;</a>", "<a>\xC2\x80\xC2\x80</a>"},
        {"<a>&#xE9;&#233;</a>", "<a>\xC3\xA9\xC3\xA9</a>"},
        {"<a>&#x7FF;&#x800;</a>", "<a>\xDF\xBF\xE0\xA0\x80</a>"},
        {"<a>&#x20ac;&#x20AC;&#8364;</a>", "<a>\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC</a>"},
        {"<a>&#xFFFD;&#x10000;</a>", "<a>\xEF\xBF\xBD\xF0\x90\x80\x80</a>"},
        {"<a>1&#x1F600;2&#128512;3</a>", "<a>1\xF0\x9F\x98\x80\x32\xF0\x9F\x98\x80\x33</a>"},
        {"<a>&#x10FFFF;</a>", "<a>\xF4\x8F\xBF\xBF</a>"},
        {"<a>&#x00000000000000E9;&#0000000000000233;</a>", "<a>\xC3\xA9\xC3\xA9</a>"},
        {"<a>&#00000000009;&#xA;&apos;</a>", "<a>\t\n'</a>"},
    });
}

// As it stands it might be markup, or be lost as a line break.
TEST(SoapReader, MarkupIsWrittenAsShortReferences) {
    ExpectRecords({
        {"<a>&#60;&#x3C;&#x0000003c;&lt;</a>", "<a>&#60;&#60;&#60;&#60;</a>"},
        {"<a>&#38;amp;&#x26;#60;&amp;</a>", "<a>&#38;amp;&#38;#60;&#38;</a>"},
        {"<a>></a>", "<a>&#62;</a>"},
        {"<a>\"&quot;</a>", "<a>&#34;&#34;</a>"},
        {"<a>\r\n&#13;\r</a>", "<a>\n&#13;\n</a>"},
    });
}

TEST(SoapReader, CommentsAndInstructionsAreLeftOut) {
    ExpectRecords({
        {"<?xml version='1.0'?>\n<!-- <b> &#60; -->\n<a/>", "<a/>"},
        {"<a>1<!---->2<!-- - > ?> -->3<?go -- > ?>4</a><!-- end -->", "<a>1234</a>"},
        {"<a><b/><!--<p:c/>--><b/></a>", "<a><b/><b/></a>"},
    });
}

TEST(SoapReader, CdataSectionsAreText) {
    ExpectRecords({
        {"<a>1<![CDATA[]]>2</a>", "<a>12</a>"},
        {"<a><![CDATA[<p:b>&#60;<!-- -->]]></a>", "<a>&#60;p:b&#62;&#38;#60;&#60;!-- --&#62;</a>"},
        {"<a>1<![CDATA[]]]]><![CDATA[>]]>2</a>", "<a>1]]&#62;2</a>"},
    });
}

TEST(SoapReader, NamesLoseTheirPrefixes) {
    ExpectRecords({
        {"<p:a><p:b/><q:c><p:d>p:e</p:d></q:c></p:a>", "<a><b/><c><d>p:e</d></c></a>"},
        {"<p:a  ><p:b\t/></p:a\n>", "<a><b/></a>"},
        {"<p:Body><p:a/></p:Body>", "<Body><a/></Body>"},
    });
}

TEST(SoapReader, RecordIsTheFirstElementInTheFirstBody) {
    ExpectRecords({
        {"<s:Envelope><s:Header><h:b><h:c/></h:b></s:Header><s:Body><p:a><p:b/></p:a></s:Body>"
         "</s:Envelope>",
         "<a><b/></a>"},
        {"<Envelope><Body>text<a>1</a>text<b>2</b></Body><Body><c/></Body></Envelope>", "<a>1</a>"},
        {"<Envelope><Body><Body><Envelope/></Body></Body></Envelope>", "<Body><Envelope/></Body>"},
        {"<Envelope><Body/><Body><a/></Body></Envelope>", ""},
        {"<Envelope><Other><a/></Other><Body/></Envelope>", ""},
        {"<Envelope><Header><Body><a/></Body></Header></Envelope>", ""},
        {"<Envelope/>", ""},
    });
}

TEST(SoapReader, RecordElementIsItsNameWithoutPrefix) {
    for (const char* const text :
         {"<p:a><b/></p:a>", "<Envelope><Body><q:a/><b/></Body></Envelope>"}) {
        EXPECT_EQ(ReadSoap(text, "there")->recordElement, "a");
    }
}

TEST(SoapReader, OnlyAttributesThatMeanSomethingStay) {
    ExpectRecords({
        {"<a b='1' c=\"2\"/>", "<a/>"},
        {"<a  b = '>' \n c = \"/>'\" >1</a>", "<a>1</a>"},
        {"<a b='1' x:nil='true' c='2'/>", "<a nil=\"true\"/>"},
        {"<a nil='1'/>", "<a nil=\"true\"/>"},
        {"<a x:nil='false' y:nil='true' z:nil='0'/>", "<a nil=\"true\"/>"},
        {"<a nil='false'><b nil='yes'/></a>", "<a><b/></a>"},
        {"<a xmlns='urn:a' xmlns:p=\"urn:p\"/>", "<a/>"},
        {"<a x:type='p:b' s:mustUnderstand = '1'/>", "<a type=\"b\"/>"},
        {"<a x:type='b' y:type='c'/>", "<a type=\"b\"/>"},
        {"<a type='&lt;&quot;&#13;'/>", "<a type=\"&#60;&#34;&#13;\"/>"},
        {"<a nils='1' x:nilly='1' x:typed='1'/>", "<a/>"},
    });
}

TEST(SoapReader, VersionIsTheOneOfTheEnvelope) {
    const std::string v11 = "\"http://schemas.xmlsoap.org/soap/envelope/\"";
    const std::string v12 = "\"http://www.w3.org/2003/05/soap-envelope\"";
    const struct {
        std::string text;
        SoapVersion version;
    } cases[] = {
        {"<a/>", SoapVersion::k11},
        {"<Envelope/>", SoapVersion::k11},
        {"<e:Envelope/>", SoapVersion::k11},
        {"<e:Envelope xmlns:e=" + v11 + "/>", SoapVersion::k11},
        {"<e:Envelope xmlns:e=" + v12 + "/>", SoapVersion::k12},
        {"<Envelope xmlns=" + v12 + "/>", SoapVersion::k12},
        {"<Envelope xmlns:e=" + v12 + "/>", SoapVersion::k11},
        {"<a xmlns=" + v12 + "/>", SoapVersion::k11},
    };
    for (const auto& each : cases) {
        const Result<SoapMessage> message = ReadSoap(each.text, "there");
        ASSERT_TRUE(message) << each.text;
        EXPECT_EQ(message->version, each.version) << each.text;
    }
}

TEST(SoapReader, OtherEnvelopesAreRefused) {
    EXPECT_EQ(Record("<e:Envelope xmlns='urn:x'\n xmlns:e=\"urn:e\"/>"),
              "there: line 1, column 1: the envelope is none of SOAP: its namespace is \"urn:e\"");
}

TEST(SoapReader, HeaderEntryThatMustBeUnderstoodIsRefused) {
    const auto record = [](const std::string& attribute) {
        return Record("<s:Envelope><s:Header>\n<h:b " + attribute +
                      "/></s:Header><s:Body><a/></s:Body></s:Envelope>");
    };
    const std::string refusal =
        "there: line 2, column 1: the header entry \"b\" must be understood, but is not";
    EXPECT_EQ(record("s:mustUnderstand='1'"), refusal);
    EXPECT_EQ(record("mustUnderstand='true'"), refusal);
    EXPECT_EQ(record("s:mustUnderstand='0'"), "<a/>");
    EXPECT_EQ(Record("<a s:mustUnderstand='1'><b><c s:mustUnderstand='1'/></b></a>"),
              "<a><b><c/></b></a>");
}

TEST(SoapReader, MalformedTextIsRefusedWithItsPlace) {
    ExpectRecords({
        {"<a>\n<b></a>", "there: line 2, column 6: mismatched tag"},
        {"<a>&unknown;</a>", "there: line 1, column 4: undefined entity"},
        {"<!DOCTYPE a><a/>",
         "there: line 1, column 12: document type declarations are not accepted"},
        {"<Envelope><Body><a/></Body>", "there: line 1, column 28: no element found"},
    });
}

// Whatever is repeated: were it searched for, the test would take longer than its time limit.
TEST(SoapReader, TakesLinearTime) {
    constexpr int kTimes = 50000;
    for (const char* const part :
         {"&#x1F600;", "&#60;", "<!-- -->", "<?go?>", "<![CDATA[x]]>", "<b/>", "<p:b>1</p:b>",
          "<b c='1' x:nil='true'/>", "<b x:type='c'/>", "text &amp; so "}) {
        const std::string one = Record(InA(part));
        const std::string inner = one == "<a/>" ? "" : one.substr(3, one.size() - 7);
        EXPECT_TRUE(Record(InA(Repeated(part, kTimes))) == InA(Repeated(inner, kTimes))) << part;
        ASSERT_FALSE(HasFailure());  // the others would take as long
    }
}

TEST(SoapReader, TakesLinearTimeForAttributesAndNamespaces) {
    constexpr int kTimes = 20000;
    for (const char* const local : {"nil", "type", "mustUnderstand", "other"}) {
        std::string attributes;
        std::string elements;
        for (int at = 0; at < kTimes; ++at) {
            const std::string prefix = "p" + std::to_string(at);
            std::string attribute = " ";
            attribute.append(prefix).append(":").append(local).append("='0' xmlns:");
            attribute.append(prefix).append("='urn:").append(prefix).append("'");
            attributes += attribute;
            elements.append("<").append(prefix).append(":b").append(attribute).append("/>");
        }
        const std::string type = local == std::string("type") ? " type=\"0\"" : "";
        EXPECT_TRUE(Record("<a" + attributes + "/>") == "<a" + type + "/>") << local;
        EXPECT_TRUE(Record(InA(elements)) == InA(Repeated("<b" + type + "/>", kTimes))) << local;
    }
}

}  // namespace
