#ifndef QUAVERA_TOOLS_PRINTING_H_
#define QUAVERA_TOOLS_PRINTING_H_

#include <string>

#include "tools/RecordClasses.h"
#include "tools/Result.h"

namespace tool {

/// The forms in which a record can be printed.
enum class Form { kTree, kIndentedTree, kText };

// What is printed comes as a whole: what fails has printed nothing.

/// What a SOAP response holds, as an element tree or as log text by way of the tree's text form.
Result<std::string> PrintSoap(const std::string& soap, const std::string& where,
                              const RecordClass* chosen, Form form);

/// What a service has answered when it was asked for a record of the class.
Result<std::string> PrintAnswer(const std::string& soap, const std::string& where,
                                const RecordClass& asked, Form form);

/// The log text of the record whose element tree is `xml`.
Result<std::string> PrintText(const std::string& xml, const std::string& where,
                              const RecordClass* chosen);

}  // namespace tool

#endif  // QUAVERA_TOOLS_PRINTING_H_
