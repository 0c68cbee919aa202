// A program to look at with gdb: what a user of the platform library has in hand, at one place.

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/zqshared.h"

namespace {

/// Another maker's node.
class ForeignNode final : public ZQXML::INode {
 public:
    std::string GetName() override { return "Foreign"; }
    std::string GetValue() override { return {}; }
    int GetValueInt() override { return number_; }
    INode* FindChild(const std::string& /*name*/) override { return nullptr; }
    void AppendChild(INode* /*child*/) override {}
    void AddChild(const std::string& /*name*/, const char* /*text*/) override {}
    void AddChild(const std::string& /*name*/, const std::string& /*text*/) override {}
    void AddChild(const std::string& /*name*/, int /*value*/) override {}
    void AddChild(const std::string& /*name*/, unsigned long /*value*/) override {}
    void AddChild(const std::string& /*name*/, bool /*value*/) override {}
    void AddChildEncoded(const std::string& /*name*/, const std::string& /*text*/) override {}
    std::string GetValueDecoded() override { return {}; }
    ZQXML::INodeList* GetChildren() override { return nullptr; }
    void Initialize(const std::string& /*name*/, const std::string& /*text*/) override {}
    void Release() override {}

 private:
    int number_ = 17;
};

/// Something that an auto_com may hold, too.
struct Counter {
    void Release() {}
    int count = 3;
};

zq::auto_com<ZQXML::INode> Album() {
    auto album = ZQXML::CreateXmlNode();
    album->Initialize("Album", "");
    album->AddText("Id", "Alb.40013100");
    album->AddEncoded("Title", "D\xC3\xA9j\xC3\xA0 \"vu\"");
    album->AddNumber("Year", -1987);
    auto tracks = album->CreateNode("Tracks");
    for (const char* const title : {"One", "Two"}) {
        auto track = tracks->CreateNode("Track");
        track->AddText("Name", title);
        tracks->AppendChild(track.get());
    }
    album->AppendChild(tracks.get());
    return album;
}

void AddTexts(ZQXML::INode* node) {
    node->AddChildEncoded("Encoded", "RMOpasOg\nIQ==");
    node->AddChildEncoded("Malformed", "RMOpa*");
    node->AddText("Bytes", "\xFF\x01 \xC3\xA9\xE2\x80\xAE\n");
    node->AddText("Zero", std::string_view("a\0b", 3));
    node->AddEncoded("None", "");
    node->AddText("Long", std::string(1000, 'x'));
    node->AddEncoded("LongBytes", std::string(1000, 'y'));
    std::string base64;
    for (int i = 0; i < 1000; ++i) {
        base64 += "w6nDqcOp\n";
    }
    node->AddChildEncoded("LongBase64", base64);
    node->AddText(std::string(1000, 'n'), "");
}

/// Where gdb stops.
[[gnu::noinline]] void Stop(const ZQXML::INode* node) {
    asm volatile("" : : "r"(node) : "memory");
}

void LookAround() {
    const zq::auto_com<ZQXML::INode> empty;
    const zq::auto_com<ZQXML::INode> fresh = ZQXML::CreateXmlNode();
    const zq::auto_com<ZQXML::INode> album = Album();
    ZQXML::INode* const title = album->FindChild("Title");
    [[maybe_unused]] ZQXML::INode* const tracks = album->FindChild("Tracks");
    [[maybe_unused]] ZQXML::INodeList* const emptyList = title->GetChildren();
    [[maybe_unused]] const ZQXML::INode& year = *album->FindChild("Year");
    [[maybe_unused]] const zq::auto_com<ZQXML::INode>& albumReference = album;
    [[maybe_unused]] ZQXML::INode* const& titleReference = title;
    [[maybe_unused]] const ZQXML::NodeView titleView = title->View();
    [[maybe_unused]] const ZQXML::NodeView yearView = album->FindChild("Year")->View();

    ZQXML::INodeList* const list = album->GetChildren();
    list->First();
    list->Next();

    const zq::auto_com<ZQXML::INode> texts = ZQXML::CreateXmlNode();
    texts->Initialize("Texts", "with a text of its own");
    AddTexts(texts.get());

    const zq::auto_com<ZQXML::INode> wide = ZQXML::CreateXmlNode();
    wide->Initialize("Wide", "");
    for (int i = 0; i < 10001; ++i) {
        wide->AddNumber("Item", i);
    }

    const zq::auto_com<ZQXML::INode> deep = ZQXML::CreateXmlNode();
    deep->Initialize("Deep", "");
    [[maybe_unused]] ZQXML::INode* deepest = deep.get();
    for (int i = 0; i < 100; ++i) {
        deepest->AddText("Level", "");
        deepest = deepest->FindChild("Level");
    }

    ForeignNode foreignNode;
    [[maybe_unused]] const ZQXML::INode* const foreign = &foreignNode;
    const zq::auto_com<ZQXML::INode> foreignOwner(&foreignNode);
    [[maybe_unused]] const ZQXML::NodeView foreignView = foreignNode.View();
    Counter counter;
    const zq::auto_com<Counter> counterOwner(&counter);
    const zq::StackTrace trace;

    ZQXML::NodeView garbageView;
    std::memset(static_cast<void*>(&garbageView), 0xA5, sizeof garbageView);
    [[maybe_unused]] const ZQXML::INode* const nowhere = garbageView.node;
    [[maybe_unused]] const zq::auto_com<ZQXML::INode>* const unowned = nullptr;

    [[maybe_unused]] const ZQXML::INode* gone = nullptr;
    {
        const zq::auto_com<ZQXML::INode> owner = ZQXML::CreateXmlNode();
        gone = owner.get();
    }
    Stop(album.get());
}

}  // namespace

int main() {
    LookAround();
    return EXIT_SUCCESS;
}
