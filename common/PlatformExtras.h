#ifndef QUAVERA_COMMON_PLATFORM_EXTRAS_H_
#define QUAVERA_COMMON_PLATFORM_EXTRAS_H_

#include <string>
#include <string_view>

#include "platform/zqshared.h"

/// What our own platform library offers beyond the interface that every platform has, for saving
/// work only. This is the one place that knows of it: built against another platform
/// (QUAVERA_EXTERNAL_PLATFORM), the same functions make do with the common interface.

/// The name of `node`, valid until the node or `storage` changes.
inline std::string_view NameOf(ZQXML::INode* node, std::string& storage) {
#ifdef QUAVERA_EXTERNAL_PLATFORM
    return storage = node->GetName();
#else
    return node->NameView(storage);
#endif
}

/// A new node that is meant to be appended below `parent`.
inline zq::auto_com<ZQXML::INode> CreateNodeFor(ZQXML::INode* parent) {
#ifdef QUAVERA_EXTERNAL_PLATFORM
    static_cast<void>(parent);
    return ZQXML::CreateXmlNode();
#else
    return parent->CreateNode();
#endif
}

#endif  // QUAVERA_COMMON_PLATFORM_EXTRAS_H_
