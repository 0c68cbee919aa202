#ifndef QUAVERA_PLATFORM_XML_TEXT_H_
#define QUAVERA_PLATFORM_XML_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/AutoCom.h"
#include "platform/Export.h"
#include "platform/XmlNode.h"

/// @file
/// Element trees as XML 1.0 text in UTF-8.
///
/// An element's name and text become an XML element with character data; the mark of encoded text
/// is the attribute `encoding="base64"`. `ParseXml(WriteXml(n))` equals `n` in names, texts, order
/// and marks, as long as XML 1.0 can carry names and texts and the limits of `ParseXml` are kept,
/// with one exception: a text of nothing but white space in an element that has children is dropped
/// on reading. Failed allocations throw `std::bad_alloc`, and nothing else does.

namespace ZQXML {

/// Elements may be nested this deep in a text that `ParseXml` reads.
inline constexpr std::size_t kMaxXmlDepth = 10000;
/// The longest text that `ParseXml` reads, in bytes (256 MiB).
inline constexpr std::size_t kMaxXmlSize = std::size_t{256} * 1024 * 1024;

/// The subtree of `node` as XML text, without an XML declaration and without a final line break;
/// empty for a null `node`. With `indent`, elements stand on lines of their own, two blanks deeper
/// for each level, but for a first child behind a text: so no text that is read back is changed.
///
/// The result is always well-formed. What XML 1.0 cannot carry (characters below U+0020 other than
/// tab, line feed and carriage return, U+FFFE, U+FFFF, and each byte that is no UTF-8) is written
/// as U+FFFD; in a name, what cannot stand there is written as `_`, and so is an empty name. `node`
/// is borrowed for the call and may be of any implementation; its child lists are walked.
ZQ_API std::string WriteXml(INode* node, bool indent = false);

/// The tree of an XML text, whose root's only reference the result holds; an empty pointer for a
/// text that is not accepted, with the reason and its place ("line 3, column 7: mismatched tag") in
/// `*error` where `error` is not null. `*error` is written to in that case only; `text` is borrowed
/// for the call.
///
/// Accepted is well-formed XML 1.0 in UTF-8, up to `kMaxXmlSize` bytes and `kMaxXmlDepth` levels,
/// without a document type declaration; a byte order mark ahead of it is skipped. An element's text
/// is its character data ahead of its first child. Ahead of a child, white space alone is dropped,
/// and so are all character data after one, comments, processing instructions and all attributes
/// but the mark. Names are those of XML 1.0 up to its fourth edition, prefixes a part of them.
/// Lines and columns count from 1, columns in characters.
///
/// Fastest are texts as `WriteXml` writes them, as long as their names are ASCII.
ZQ_API zq::auto_com<INode> ParseXml(std::string_view text, std::string* error = nullptr);

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_XML_TEXT_H_
