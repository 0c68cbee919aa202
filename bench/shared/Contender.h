#ifndef QUAVERA_BENCH_SHARED_CONTENDER_H_
#define QUAVERA_BENCH_SHARED_CONTENDER_H_

#include <memory>
#include <string>
#include <vector>

#include "bench/shared/Album.h"

namespace bench {

/// One way to bring an album from its SOAP record into a record of the library by way of a tree.
/// It holds at most one tree, one text and one record at a time. A step that it does not have does
/// nothing.
class Contender {
 public:
    Contender() = default;
    Contender(const Contender&) = delete;
    Contender& operator=(const Contender&) = delete;
    virtual ~Contender() = default;

    /// From SOAP record to tree. The SOAP record stays in use until the tree is read.
    virtual void Write(SoapAlbum* soap) = 0;
    /// From tree to a fresh record.
    virtual void Read() = 0;
    /// Releases the tree.
    virtual void Free() = 0;
    /// Destroys the record.
    virtual void Drop() = 0;
    /// From tree to XML text.
    virtual void Save() {}
    /// From XML text to tree.
    virtual void Parse() {}

    /// The members that its album is to have.
    virtual Members Wanted() const { return Members::kRead; }

    /// The record's log text.
    virtual std::string Text() = 0;
    /// The fields that the log text lacks.
    virtual std::string Unprinted() const = 0;
    /// The XML text that `Save` made; null where there is none.
    virtual const std::string* Saved() const { return nullptr; }
};

/// `Contender::Unprinted` of any record with tracks.
template <class Record>
std::string UnprintedOf(const Record& record) {
    std::string text;
    for (const auto& track : record.tracks) {
        text += track.genreId + ' ' + std::to_string(track.rightFlags) + '\n';
    }
    return text;
}

/// The names of the contenders that this build has, ours first.
std::vector<std::string> ContenderNames();

/// A contender by its name; null for an unknown one.
std::unique_ptr<Contender> MakeContender(const std::string& name);

// One source file each.
std::unique_ptr<Contender> MakeOurs();
std::unique_ptr<Contender> MakeFloor();
std::unique_ptr<Contender> MakeFloorBare();
std::unique_ptr<Contender> MakeFloorText();
std::unique_ptr<Contender> MakePugixml();
std::unique_ptr<Contender> MakePugixmlLean();
std::unique_ptr<Contender> MakeLibxml2();
std::unique_ptr<Contender> MakeTinyxml2();
std::unique_ptr<Contender> MakeProtobuf();
std::unique_ptr<Contender> MakeProtobufArena();
std::unique_ptr<Contender> MakeProtobufKept();
std::unique_ptr<Contender> MakeFlatbuffers();
std::unique_ptr<Contender> MakeGsoapText();
std::unique_ptr<Contender> MakeGsoapTextFull();

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_CONTENDER_H_
