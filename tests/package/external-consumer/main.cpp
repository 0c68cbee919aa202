// The way of a track and an album through the library, on a platform that shows what it is used
// for: a true flag's text is "yes", texts of numbers name their type, and the codec's calls are
// counted.

#include <cstdio>
#include <string>

#include "RecordingPlatform.h"
#include "common/SocketHelpers.h"
#include "platform/zqshared.h"
#include "records/DataAlbum.h"
#include "records/DataTrackInfo.h"
#include "soap/QuaveraH.h"

namespace {

int failures = 0;

void Check(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "not true: %s\n", what);
        ++failures;
    }
}

bool Contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

struct SoapTrack : Quavera::Quavera2__LiteTrackMetadata {
    SoapTrack() {
        name = &nameText;
        trackId = &idText;
        trackIndex = &index;
    }

    std::string nameText = "Straße 夜";
    std::string idText = "Tra.1";
    int index = 7;
};

void SendTrack() {
    SoapTrack soap;
    const int codecCallsBefore = RecordingPlatform::CodecCalls();
    const auto tree = DataTrackInfo::ToXML(&soap);
    Check(RecordingPlatform::TakeCalls() ==
              "1.CreateXmlNode()\n"
              "1.Initialize(\"Track\", \"\")\n"
              "1.AddChildEncoded(\"Name\", \"U3RyYcOfZSDlpJw=\")\n"
              "1.AddChild(\"TrackId\", C-string \"Tra.1\")\n"
              "1.AddChild(\"TrackIndex\", int 7)\n",
          "the platform makes the track's tree");
    Check(RecordingPlatform::CodecCalls() == codecCallsBefore + 1, "its codec encodes the name");

    DataTrackInfo track;
    track.FromXML(tree.get());
    Check(RecordingPlatform::CodecCalls() == codecCallsBefore + 2, "its codec decodes the name");
    Check(track.name == L"Straße 夜", "the name arrives");
    Check(track.trackId == "Tra.1", "the identifier arrives");
    Check(track.trackIndex == 7, "the number arrives");
    Check(Contains(track.ToString(), "TrackIndex = int 7\r\n"), "the platform prints the number");
}

void SendAlbum() {
    SoapTrack first;
    SoapTrack second;
    second.idText = "Tra.2";
    Quavera::Quavera2__LiteTrackMetadata* items[] = {&first, &second};
    Quavera::Quavera2__ArrayOfLiteTrackMetadata tracks;
    tracks.items = items;
    tracks.count = 2;
    std::string label = "Südlicht";
    int year = 2007;
    bool yes = true;
    bool no = false;
    Quavera::Quavera2__AlbumMetadata soap;
    soap.label = &label;
    soap.releaseYear = &year;
    soap.compilation = &yes;
    soap.parentalAuthority = &no;
    soap.tracks = &tracks;

    const auto parent = ZQXML::CreateXmlNode();
    parent->AppendChild(DataAlbum::ToXML(&soap).get());
    Check(parent->FindChild("Album")->FindChild("Compilation")->GetValue() == "yes",
          "the flag has the platform's text");

    DataAlbum album;
    album.FromXML(parent.get());
    Check(album.label == "Südlicht", "the label arrives");
    Check(album.releaseYear == 2007, "the year arrives");
    Check(album.compilation, "the flag arrives");
    Check(!album.parentalAuthority, "the other flag stays");
    Check(album.tracks.size() == 2 && album.tracks.back().trackId == "Tra.2", "the tracks arrive");
    const std::string text = album.ToString();
    Check(Contains(text, "releaseYear = int 2007\r\n"), "the platform prints the year");
    Check(Contains(text, "compilation = bool yes\r\n"), "the platform prints the flag");
}

size_t ReceiveNothing(struct soap* /*context*/, char* /*buffer*/, size_t /*size*/) {
    return 0;
}

void ReportEndOfData() {
    struct soap* const context = soap_new();
    context->frecv = ReceiveNothing;
    RecordingPlatform::TakeCalls();
    Check(GetDWORDFromSocket(context) == 0, "there is no number");
    Check(RecordingPlatform::TakeCalls() == "AssertWrite(\"common/QuaveraCommon\", 192)\n",
          "the platform gets the report");
    soap_free(context);
}

}  // namespace

int main() {
    SendTrack();
    SendAlbum();
    Check(RecordingPlatform::LiveNodes() == 0, "all nodes are released");
    ReportEndOfData();
    return failures;
}
