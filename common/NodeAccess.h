#ifndef QUAVERA_COMMON_NODE_ACCESS_H_
#define QUAVERA_COMMON_NODE_ACCESS_H_

/// How the records reach nodes. Every platform library has the 15 operations of a node and the two
/// of a list; the bundled one has more, which save work. The names below, in namespace `quavera`,
/// are all that is used beside the 15. The functions are static members of `Nodes`.
///
/// | name                            | what it is                                                |
/// | ------------------------------- | --------------------------------------------------------- |
/// | `NodeView`, `TextForm`          | what is seen of a node without a copy                     |
/// | `ChildrenOf(node)`              | the list of a node's children; null may stand for none    |
/// | `ViewFirst(list, views, room)`, | the next children of a walk, at least one as long as      |
/// | `ViewNext(list, views, room)`   | there is any, and their number; an unseen one comes alone |
/// | `NumberOf(view)`                | what `GetValueInt` tells of the node                      |
/// | `CountHint(list)`               | about how many there are, or 0; no walk is disturbed      |
/// | `AddCString(node, name, text)`  | adds a last child in the C-string form                    |
/// | `AddText(node, name, text)`     | in the string form                                        |
/// | `AddNumber(node, name, value)`  | in the int form                                           |
/// | `AddEncoded(node, name, bytes)` | with the base64 form of the bytes, marked as encoded      |
/// | `NewChild(parent, name)`        | a new element without text, to be appended to `parent`    |
/// | `AppendDecimal(value, out)`     | appends the platform's decimal text of a number           |
///
/// There are two implementations, common/bundled/PlatformNodes.h and
/// common/external/PlatformNodes.h. The build puts the folder of one of them into the include path.

#include "PlatformNodes.h"

#endif  // QUAVERA_COMMON_NODE_ACCESS_H_
