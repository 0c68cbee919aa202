// Trees that are written, and their text with a few changes: what is nearly the form that we write,
// which has a reader of its own.

#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "fuzz/Target.h"
#include "fuzz/Trees.h"
#include "fuzz/XmlRules.h"

namespace {

using std::string_literals::operator""s;

const std::vector<std::string> kNames = {"A",  "Ab",       "Abcdefgh", "Abcdefghi", "B.c-d_1",
                                         "a:", "\xC3\xA9", "1",        "",          "a b"};

/// What a text may hold at any place, or nearly hold.
const std::vector<std::string> kPieces = {
    "<",
    ">",
    "&",
    "/",
    "=",
    "\"",
    " ",
    "\n",
    "\r",
    "\t",
    "\0"s,
    "]]>",
    "&amp;",
    "&lt;",
    "&gt;",
    "&#13;",
    "&#x41;",
    "&#0;",
    "<A>",
    "</A>",
    "<A/>",
    "<A />",
    "</A >",
    "<Ab>1</Ab>",
    "<!-- -->",
    "<?p?>",
    "<![CDATA[<]]>",
    " encoding=\"base64\"",
    " encoding='base64'",
    "Zg==",
    "Zm9v",
    "\xC3\xA9",
    "\xC3",
    "\xEF\xBF\xBE",
    "\xEF\xBB\xBF",
};

struct Change {
    std::size_t kind;
    std::size_t place;
    std::size_t count;
    std::string piece;
};

std::vector<Change> TakeChanges(fuzz::Input* input) {
    std::vector<Change> changes;
    for (std::size_t left = input->Below(4); left > 0; --left) {
        const std::size_t kind = input->Below(4);
        const std::size_t place = input->Byte() * 256 + input->Byte();
        changes.push_back({kind, place, 1 + input->Below(8), input->Pick(kPieces)});
    }
    return changes;
}

void Apply(const Change& change, std::string* text) {
    const std::size_t at = change.place % (text->size() + 1);
    switch (change.kind) {
        case 0:
            text->insert(at, change.piece);
            break;
        case 1:
            text->erase(at, change.count);
            break;
        case 2:
            text->replace(at, change.count, change.piece);
            break;
        default:
            text->insert(at, text->substr(at, change.count));
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::vector<Change> changes = TakeChanges(&input);
    const fuzz::Tree tree = fuzz::TreeMaker(&input, kNames).Make();
    fuzz::CheckWriting(tree.get());
    std::string text = ZQXML::WriteXml(tree.get());
    for (const Change& change : changes) {
        Apply(change, &text);
        fuzz::CheckXmlText(fuzz::Block(text).View());
    }
    return 0;
}
