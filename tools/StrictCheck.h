#ifndef QUAVERA_TOOLS_STRICT_CHECK_H_
#define QUAVERA_TOOLS_STRICT_CHECK_H_

#include <string>

#include "tools/RecordClasses.h"
#include "tools/Result.h"

namespace tool {

// What records leave aside, on purpose, is a failure here: an element that a record does not have,
// and a value that is not of its type. The message has its place, what was expected and, of names,
// the nearest. What is no document of a known record is left to those who read it.

/// Of a SOAP response, by the types of the service's description, whatever class is chosen.
Result<Done> CheckSoap(const std::string& soap, const std::string& where,
                       const RecordClass* chosen);

/// Of an element tree, or of several that make a list, by the elements of the record class: the
/// chosen one, or that of the root.
Result<Done> CheckTrees(const std::string& xml, const std::string& where,
                        const RecordClass* chosen);

}  // namespace tool

#endif  // QUAVERA_TOOLS_STRICT_CHECK_H_
