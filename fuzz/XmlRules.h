#ifndef QUAVERA_FUZZ_XML_RULES_H_
#define QUAVERA_FUZZ_XML_RULES_H_

#include <string_view>

#include "platform/zqshared.h"

namespace fuzz {

/// What holds for every text: `ParseXml` takes it if expat does, and nothing speaks against it that
/// is documented; the trees are the same; a refusal has the place that expat says; and the tree
/// that is read stays the same when it is written and read again, indented or not.
void CheckXmlText(std::string_view text);

/// What holds for every tree: `WriteXml` writes what a naive writer does, indented or not, and for
/// the texts that it writes, what holds for all texts does.
void CheckWriting(ZQXML::INode* tree);

}  // namespace fuzz

#endif  // QUAVERA_FUZZ_XML_RULES_H_
