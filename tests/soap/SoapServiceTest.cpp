// The generated client and the generated server, talking to each other over the loopback device.

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "soap/envH.h"
// Needs the line above.
#include "soap/QuaveraH.h"
#include "tests/records/SampleTrack.h"
#include "tests/records/Values.h"
#include "tests/soap/SoapDocument.h"

namespace {

constexpr char kUnknown[] = "unknown";
constexpr char kNoSuchRecord[] = "no record of this identifier";

/// An address of the loopback device; port 0 has the system choose one.
sockaddr_in Loopback(int port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// The port that a socket is bound to.
int PortOf(int descriptor) {
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    EXPECT_EQ(getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size), 0);
    return ntohs(address.sin_port);
}

std::string Endpoint(int port) {
    return "http://127.0.0.1:" + std::to_string(port);
}

/// A server that answers a given number of requests on a thread of its own.
class Server {
 public:
    explicit Server(int requests) {
        context_->user = &values_;
        // For a test that fails: its requests never come, or never end.
        context_->accept_timeout = 60;
        context_->recv_timeout = 60;
        context_->socket_flags = MSG_NOSIGNAL;
        EXPECT_TRUE(soap_valid_socket(soap_bind(context_.get(), "127.0.0.1", 0, 10)))
            << context_.Fault();
        port_ = PortOf(context_->master);
        thread_ = std::thread([this, requests] {
            for (int request = 0; request < requests; ++request) {
                if (soap_valid_socket(soap_accept(context_.get()))) {
                    Quavera::soap_serve(context_.get());
                }
                soap_destroy(context_.get());
                soap_end(context_.get());
            }
        });
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server() { thread_.join(); }

    int port() const { return port_; }

 private:
    Values values_;  // of the thread alone
    SoapContext context_;
    int port_ = 0;
    std::thread thread_;
};

Values& ValuesOf(soap* context) {
    return *static_cast<Values*>(context->user);
}

/// The server's answer: the identifier asked for in one member, or a fault.
int Answer(soap* context, const std::string& id, std::string*& member) {
    if (id == kUnknown) {
        return soap_sender_fault(context, kNoSuchRecord, nullptr);
    }
    member = ValuesOf(context).Text(id);
    return SOAP_OK;
}

/// Asks for one record; the identifier in the answer, nothing where the call fails.
using Call = std::function<std::optional<std::string>(soap*, const std::string& endpoint,
                                                      const std::string& id)>;

template <class Record>
Call MakeCall(int (*call)(soap*, const char*, const char*, const std::string&, Record&),
              std::string* (*idOf)(const Record&)) {
    return [call, idOf](soap* context, const std::string& endpoint,
                        const std::string& id) -> std::optional<std::string> {
        Record record;
        if (call(context, endpoint.c_str(), nullptr, id, record) != SOAP_OK) {
            return std::nullopt;
        }
        std::string* const found = idOf(record);
        return found == nullptr ? "none" : *found;
    };
}

}  // namespace

// --- The service -------------------------------------------------------------------------------

namespace Quavera {

int Quavera2__getTrack(soap* s, std::string id, Quavera2__LiteTrackMetadata& track) {
    SampleTrack::Fill(track, ValuesOf(s));
    return Answer(s, id, track.trackId);
}
int Quavera2__getAlbum(soap* s, std::string id, Quavera2__AlbumMetadata& album) {
    Values& values = ValuesOf(s);
    Quavera2__LiteTrackMetadata track;
    SampleTrack::Fill(track, values);
    Quavera2__LiteTrackMetadata other;
    other.name = values.Text("Große Fuge");
    album.tracks =
        values.List<Quavera2__ArrayOfLiteTrackMetadata>({values.Of(track), values.Of(other)});
    album.displayableAlbumTypes = values.List<Quavera2__ArrayOfString>({"Live", "ライブ"});
    return Answer(s, id, album.albumId);
}
int Quavera2__getArtist(soap* s, std::string id, Quavera2__ArtistMetadata& artist) {
    return Answer(s, id, artist.artistId);
}
int Quavera2__getGenre(soap* s, std::string id, Quavera2__GenreMetadata& genre) {
    return Answer(s, id, genre.genreId);
}
int Quavera2__getPlaylist(soap* s, std::string id, Quavera2__PlaylistMetadata& playlist) {
    return Answer(s, id, playlist.playlistId);
}
int Quavera2__getStation(soap* s, std::string id, Quavera2__StationMetadata& station) {
    return Answer(s, id, station.stationId);
}
int Quavera2__getLibrary(soap* s, std::string id, Quavera2__MemberLibrary& library) {
    return Answer(s, id, library.memberId);
}
int Quavera2__getAccount(soap* s, std::string id, Quavera2__AccountMetaData& account) {
    return Answer(s, id, account.userName);
}
int Quavera2__getReview(soap* s, std::string id, Quavera2__AlbumReviewMetadata& review) {
    return Answer(s, id, review.albumId);
}
int Quavera2__getImages(soap* s, std::string id, Quavera2__Images& images) {
    Quavera2__ImageMetadata image;
    const int status = Answer(s, id, image.imageId);
    images.images = ValuesOf(s).List<Quavera2__ArrayOfImageMetadata>({ValuesOf(s).Of(image)});
    return status;
}
int Quavera2__getIndex(soap* s, std::string id, Quavera2__AlphaIndex& index) {
    Quavera2__AlphaIndexPosition position;
    const int status = Answer(s, id, position.letter);
    index.positions =
        ValuesOf(s).List<Quavera2__ArrayOfAlphaIndexPosition>({ValuesOf(s).Of(position)});
    return status;
}
int Quavera2__getModification(soap* s, std::string id,
                              Quavera2__LibraryModificationResult& result) {
    std::string* value = nullptr;
    const int status = Answer(s, id, value);
    if (value != nullptr) {
        result.values = ValuesOf(s).List<Quavera2__ArrayOfString>({*value});
    }
    return status;
}

}  // namespace Quavera

namespace {

using namespace Quavera;

struct Operation {
    const char* name;
    Call call;
};

std::vector<Operation> Operations() {
    return {
        {"getTrack", MakeCall<Quavera2__LiteTrackMetadata>(
                         soap_call_Quavera2__getTrack,
                         [](const Quavera2__LiteTrackMetadata& track) { return track.trackId; })},
        {"getAlbum", MakeCall<Quavera2__AlbumMetadata>(
                         soap_call_Quavera2__getAlbum,
                         [](const Quavera2__AlbumMetadata& album) { return album.albumId; })},
        {"getArtist", MakeCall<Quavera2__ArtistMetadata>(
                          soap_call_Quavera2__getArtist,
                          [](const Quavera2__ArtistMetadata& artist) { return artist.artistId; })},
        {"getGenre", MakeCall<Quavera2__GenreMetadata>(
                         soap_call_Quavera2__getGenre,
                         [](const Quavera2__GenreMetadata& genre) { return genre.genreId; })},
        {"getPlaylist",
         MakeCall<Quavera2__PlaylistMetadata>(
             soap_call_Quavera2__getPlaylist,
             [](const Quavera2__PlaylistMetadata& playlist) { return playlist.playlistId; })},
        {"getStation",
         MakeCall<Quavera2__StationMetadata>(
             soap_call_Quavera2__getStation,
             [](const Quavera2__StationMetadata& station) { return station.stationId; })},
        {"getLibrary",
         MakeCall<Quavera2__MemberLibrary>(
             soap_call_Quavera2__getLibrary,
             [](const Quavera2__MemberLibrary& library) { return library.memberId; })},
        {"getAccount",
         MakeCall<Quavera2__AccountMetaData>(
             soap_call_Quavera2__getAccount,
             [](const Quavera2__AccountMetaData& account) { return account.userName; })},
        {"getReview",
         MakeCall<Quavera2__AlbumReviewMetadata>(
             soap_call_Quavera2__getReview,
             [](const Quavera2__AlbumReviewMetadata& review) { return review.albumId; })},
        {"getImages", MakeCall<Quavera2__Images>(soap_call_Quavera2__getImages,
                                                 [](const Quavera2__Images& images) {
                                                     return images.images->items[0]->imageId;
                                                 })},
        {"getIndex", MakeCall<Quavera2__AlphaIndex>(soap_call_Quavera2__getIndex,
                                                    [](const Quavera2__AlphaIndex& index) {
                                                        return index.positions->items[0]->letter;
                                                    })},
        {"getModification", MakeCall<Quavera2__LibraryModificationResult>(
                                soap_call_Quavera2__getModification,
                                [](const Quavera2__LibraryModificationResult& result) {
                                    return &result.values->items[0];
                                })},
    };
}

/// Whether the client leaves its side of the connection open while it waits for the answer.
enum class Ending { kOpen, kClosed };

/// Sends a text as it stands and returns all that comes back.
std::string Exchange(int port, const std::string& request, Ending ending = Ending::kOpen) {
    const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(port);
    EXPECT_EQ(connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(send(descriptor, request.data(), request.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(request.size()));
    if (ending == Ending::kClosed) {
        shutdown(descriptor, SHUT_WR);
    }
    std::string answer;
    char buffer[1000];
    for (ssize_t size = 0; (size = recv(descriptor, buffer, sizeof buffer, 0)) > 0;) {
        answer.append(buffer, static_cast<std::size_t>(size));
    }
    close(descriptor);
    return answer;
}

std::string Post(const std::string& body) {
    return "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Type: text/xml; charset=utf-8\r\n"
           "Connection: close\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::string Envelope(const std::string& body) {
    return "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\" "
           "xmlns:q=\"urn:quavera:v2\"><e:Body>" +
           body + "</e:Body></e:Envelope>";
}

void ExpectAnswers(const Server& server) {
    const SoapContext client;
    EXPECT_EQ(Operations()[0].call(client.get(), Endpoint(server.port()), "Tra.1"), "Tra.1")
        << client.Fault();
}

TEST(SoapService, EveryOperationIsAnswered) {
    const std::vector<Operation> operations = Operations();
    ASSERT_EQ(operations.size(), 12U);
    const Server server(static_cast<int>(operations.size()));
    for (const Operation& operation : operations) {
        const SoapContext client;
        const std::string id = std::string(operation.name) + " äЖ漢🎵 <&>";
        EXPECT_EQ(operation.call(client.get(), Endpoint(server.port()), id), id)
            << operation.name << ": " << client.Fault();
    }
}

TEST(SoapService, OneClientMayAskAgain) {
    const Server server(3);
    const SoapContext client;
    for (const char* id : {"1", "2", "3"}) {
        EXPECT_EQ(Operations()[0].call(client.get(), Endpoint(server.port()), id), id);
    }
}

TEST(SoapService, UnknownIdentifierIsAFault) {
    const std::vector<Operation> operations = Operations();
    const Server server(static_cast<int>(operations.size()));
    for (const Operation& operation : operations) {
        const SoapContext client;
        EXPECT_EQ(operation.call(client.get(), Endpoint(server.port()), kUnknown), std::nullopt)
            << operation.name;
        ASSERT_NE(client->fault, nullptr) << operation.name;
        EXPECT_STREQ(*soap_faultstring(client.get()), kNoSuchRecord) << operation.name;
        EXPECT_STREQ(*soap_faultcode(client.get()), "SOAP-ENV:Client") << operation.name;
    }
}

TEST(SoapService, NestedRecordsAndListsArrive) {
    const Server server(1);
    const SoapContext client;
    Quavera2__AlbumMetadata album;
    ASSERT_EQ(soap_call_Quavera2__getAlbum(client.get(), Endpoint(server.port()).c_str(), nullptr,
                                           "Alb.1", album),
              SOAP_OK)
        << client.Fault();
    ASSERT_NE(album.tracks, nullptr);
    ASSERT_EQ(album.tracks->count, 2);
    EXPECT_EQ(*album.tracks->items[0]->displayArtistName, "Ансамбль «Заря»");
    EXPECT_EQ(*album.tracks->items[0]->trackIndex, 11);
    EXPECT_EQ(*album.tracks->items[1]->name, "Große Fuge");
    EXPECT_EQ(album.tracks->items[1]->trackId, nullptr);
    ASSERT_EQ(album.displayableAlbumTypes->count, 2);
    EXPECT_EQ(album.displayableAlbumTypes->items[1], "ライブ");
    EXPECT_EQ(album.copyright, nullptr);
}

TEST(SoapService, AnswerIsTheRecordElementInTheBody) {
    const Server server(1);
    const std::string answer =
        Exchange(server.port(), Post(Envelope("<q:getStation><id>Sta.1</id></q:getStation>")));
    EXPECT_NE(answer.find("200 OK"), std::string::npos) << answer;
    const std::size_t body = answer.find("<SOAP-ENV:Body>");
    ASSERT_NE(body, std::string::npos) << answer;
    EXPECT_EQ(answer.substr(body),
              "<SOAP-ENV:Body><Quavera2:StationMetadata>"
              "<freeStation>false</freeStation><stationId>Sta.1</stationId>"
              "</Quavera2:StationMetadata></SOAP-ENV:Body>"
              "</SOAP-ENV:Envelope>\r\n");
}

TEST(SoapService, MalformedRequestIsAFaultAndTheServerGoesOn) {
    const std::vector<std::string> bodies = {
        "", Envelope(""), Envelope("<q:getNothing><id>1</id></q:getNothing>"),
        Envelope("<getTrack xmlns=\"urn:other\"><id>1</id></getTrack>")};
    const Server server(static_cast<int>(bodies.size()) + 1);
    for (const std::string& body : bodies) {
        const std::string answer = Exchange(server.port(), Post(body));
        EXPECT_NE(answer.find("<SOAP-ENV:Fault>"), std::string::npos) << body << "\n" << answer;
        EXPECT_EQ(answer.find("200 OK"), std::string::npos) << body << "\n" << answer;
    }
    ExpectAnswers(server);
}

// gSOAP does not answer what is no SOAP. Where a document is cut it reads on until the client gives
// up, and then there is nobody left to send a fault to.
TEST(SoapService, UnansweredRequestLeavesTheServerGoing) {
    const std::vector<std::string> requests = {
        "",
        "GET",
        "POST / HTTP/1.1\r\n",
        Post("no XML"),
        Post("<cut"),
        Post("<html><body/></html>"),
        Post("<e:Envelope xmlns:e=\"urn:other\"><e:Body/></e:Envelope>"),
        Post(Envelope("<q:getTrack><id>1</id>"))};
    const Server server(static_cast<int>(requests.size()) + 1);
    for (const std::string& request : requests) {
        Exchange(server.port(), request, Ending::kClosed);
    }
    ExpectAnswers(server);
}

TEST(SoapService, CallWithoutAServerFails) {
    // Bound, so that nobody else takes the port, but not listening.
    const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(0);
    ASSERT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    const SoapContext client;
    EXPECT_EQ(Operations()[0].call(client.get(), Endpoint(PortOf(descriptor)), "1"), std::nullopt);
    EXPECT_EQ(client->error, SOAP_TCP_ERROR);
    close(descriptor);
}

}  // namespace
