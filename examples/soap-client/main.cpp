// Asks the service for albums and hands each on as the text of its tree:
//
//     soap-client ENDPOINT ID... | tree-receiver
//
// Exit 1 if the service does not have one of them, or cannot be asked.

#include <sys/socket.h>

#include <iostream>
#include <string>

#include "common/SocketHelpers.h"
#include "records/DataAlbum.h"
#include "records/RecordText.h"
#include "soap/QuaveraH.h"

namespace {

constexpr int kSecondsForAll = 60;
constexpr int kMostBytes = 4 * 1024 * 1024;

class Client {
 public:
    explicit Client(const char* endpoint) : endpoint_(endpoint) {
        SetSoapTimeouts(&soap_);                  // for silence
        soap_.transfer_timeout = kSecondsForAll;  // for a service that sends byte by byte
        soap_.recv_maxlength = kMostBytes;
        soap_.socket_flags = MSG_NOSIGNAL;  // a service that hangs up is a failure, not our end
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { Forget(); }

    /// Prints the album's tree; false, with a message on standard error, if there is none.
    bool Print(const std::string& id) {
        Quavera::Quavera2__AlbumMetadata album;
        const int status =
            Quavera::soap_call_Quavera2__getAlbum(&soap_, endpoint_, nullptr, id, album);
        if (status == SOAP_OK) {
            // A zero byte ends a tree: the one byte that its text never has.
            std::cout << quavera::WriteRecord<DataAlbum>(&album) << '\0' << std::flush;
        } else {
            soap_set_fault(&soap_);  // words for failures that came without
            const char* const reason = soap_fault_string(&soap_);
            std::cerr << "soap-client: " << endpoint_ << ": " << id << ": "
                      << (reason != nullptr ? reason : "no reason given") << '\n';
        }
        Forget();
        return status == SOAP_OK && std::cout.good();
    }

 private:
    /// Releases what gSOAP has read: the album's parts belong to the context.
    void Forget() {
        soap_destroy(&soap_);
        soap_end(&soap_);
    }

    const char* endpoint_;
    struct soap soap_ {
        SOAP_C_UTFSTRING  // the library's texts are UTF-8
    };
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: soap-client ENDPOINT ID...\n";
        return 2;
    }
    const std::string endpoint = argv[1];
    if (endpoint.rfind("http://", 0) != 0) {
        std::cerr << "soap-client: \"" << endpoint << "\" is no http:// address\n";
        return 2;
    }
    Client client(argv[1]);
    int status = 0;
    for (int at = 2; at < argc; ++at) {
        status = client.Print(argv[at]) ? status : 1;
    }
    return status;
}
