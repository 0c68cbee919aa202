#ifndef QUAVERA_TOOLS_PRINTING_H_
#define QUAVERA_TOOLS_PRINTING_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/Json.h"
#include "tools/RecordClasses.h"
#include "tools/Result.h"

namespace tool {

/// The forms in which a document can be printed.
enum class Form { kTree, kIndentedTree, kText, kJson };

/// What a document holds: a record, or a list of them.
struct Records {
    const RecordClass* record = nullptr;
    bool isList = false;  // it may hold any number; else it holds one
    Trees trees;          // of each record
    bool isSoap = false;  // it was a SOAP response, whose root tells its class for sure
};

// Without a chosen class, it is found by the name of the root.

/// Of a SOAP response.
Result<Records> ReadSoapRecords(const std::string& soap, const std::string& where,
                                const RecordClass* chosen);

/// Of the answer to a request for a record of the class.
Result<Records> ReadAnswer(const std::string& soap, const std::string& where,
                           const RecordClass& asked);

/// Of an element tree, or of several one after the other, which a list of records makes.
Result<Records> ReadTrees(const std::string& xml, const std::string& where,
                          const RecordClass* chosen);

/// Of the text of such a list, that of each tree: it begins with a line.
std::vector<std::string_view> SplitAtRoots(std::string_view text, std::string_view name);

/// Of either, with the trees of a SOAP response by way of their text form, as receivers have them.
Result<Records> ReadDocument(const std::string& text, const std::string& where,
                             const RecordClass* chosen);

/// What is printed of a document, to the last line break.
std::string Printed(const Records& records, Form form);

/// The JSON of a document: an object, or of a list an array of them.
Json JsonOf(const Records& records);

// Both in one. What is printed comes as a whole: what fails has printed nothing.
Result<std::string> PrintSoap(const std::string& soap, const std::string& where,
                              const RecordClass* chosen, Form form);
Result<std::string> PrintAnswer(const std::string& soap, const std::string& where,
                                const RecordClass& asked, Form form);
Result<std::string> PrintText(const std::string& xml, const std::string& where,
                              const RecordClass* chosen, Form form = Form::kText);

}  // namespace tool

#endif  // QUAVERA_TOOLS_PRINTING_H_
