#ifndef QUAVERA_TOOLS_COMMANDS_H_
#define QUAVERA_TOOLS_COMMANDS_H_

#include <string>

#include "tools/RecordClasses.h"
#include "tools/Result.h"
#include "tools/Service.h"

namespace tool {

/// The forms in which a record can be printed.
enum class Form { kTree, kIndentedTree, kText };

// What a command has to print comes as a whole: one that fails has printed nothing.

/// What a SOAP response holds, as an element tree or as log text by way of the tree's text form.
Result<std::string> PrintSoap(const std::string& soap, const std::string& where,
                              const RecordClass* chosen, Form form);

/// The log text of the record whose element tree is `xml`.
Result<std::string> PrintText(const std::string& xml, const std::string& where,
                              const RecordClass* chosen);

/// What a live service answers when it is asked for a record of the class.
Result<std::string> Fetch(const Service& service, const RecordClass& record, const std::string& id,
                          Form form);

/// Serves from a catalogue until the process is told to end.
Result<Done> Serve(const std::string& host, int port, const std::string& folder);

/// A record's whole way on this machine: a stand-in service, a SOAP client that fetches a record
/// and prints its tree, and a second process that is handed the tree as text, fills the record
/// from it and prints its log text.
Result<Done> Demo();

}  // namespace tool

#endif  // QUAVERA_TOOLS_COMMANDS_H_
