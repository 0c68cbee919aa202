#ifndef QUAVERA_BENCH_PEERS_TREE_PEER_H_
#define QUAVERA_BENCH_PEERS_TREE_PEER_H_

#include <optional>
#include <string>

#include "bench/peers/PeerText.h"
#include "bench/peers/TreeReader.h"
#include "bench/peers/TreeWriter.h"
#include "bench/shared/Contender.h"
#include "records/DataAlbum.h"

// An album's elements written and read with another library's tree, in the way of a program that is
// made for speed: texts are borrowed where the tree lends them, buffers are used again.
//
// `Tree` is what differs:
//
//   using Element = ...;  // a handle, false where there is none
//   Element Root(const char* name);                          // makes the document's root
//   Element Root();                                          // finds it
//   Element Add(Element parent, const char* name);           // an element without text
//   void Add(Element, const char* name, std::string_view);   // with text, zero-terminated
//   void AddEncoded(Element, const char* name, std::string_view);  // and with the mark
//   static Element First(Element), Next(Element);            // child elements
//   static const char* Name(Element), * Text(Element);       // zero-terminated

namespace bench {

/// A contender by a tree, which is made anew for each album.
template <class Tree, NewTracks kNewTracks = NewTracks::kConstructed>
class TreePeer final : public Contender {
 public:
    void Write(SoapAlbum* soap) override { TreeWriter<Tree>(tree_.emplace(), codec_).Write(*soap); }
    void Read() override {
        TreeReader<Tree, kNewTracks>(codec_).Read(tree_->Root(), record_.emplace());
    }
    void Free() override { tree_.reset(); }
    void Drop() override { record_.reset(); }
    void Save() override { saved_ = tree_->Save(); }
    void Parse() override { tree_.emplace().Parse(saved_); }

    std::string Text() override { return record_->ToString(); }
    std::string Unprinted() const override { return UnprintedOf(*record_); }
    const std::string* Saved() const override { return &saved_; }

 private:
    PeerText codec_;
    std::optional<Tree> tree_;
    std::string saved_;
    std::optional<DataAlbum> record_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_PEERS_TREE_PEER_H_
