#ifndef QUAVERA_TOOLS_XML_NAMES_H_
#define QUAVERA_TOOLS_XML_NAMES_H_

#include <expat.h>

#include <string_view>

// Names in SOAP documents and in the service's description, where prefixes tell nothing.

namespace tool {

inline std::string_view WithoutPrefix(std::string_view name) {
    return name.substr(name.rfind(':') + 1);
}

inline bool IsAnyValue(std::string_view /*value*/) {
    return true;
}

inline bool IsTrueValue(std::string_view value) {
    return value == "true" || value == "1";
}

/// The value of the first attribute of that name, whatever its prefix, that `isWanted`; null if
/// there is none. `attributes` are as expat hands them over.
inline const XML_Char* FindAttribute(const XML_Char** attributes, std::string_view local,
                                     bool (*isWanted)(std::string_view value) = IsAnyValue) {
    for (; *attributes != nullptr; attributes += 2) {
        if (WithoutPrefix(attributes[0]) == local && isWanted(attributes[1])) {
            return attributes[1];
        }
    }
    return nullptr;
}

}  // namespace tool

#endif  // QUAVERA_TOOLS_XML_NAMES_H_
