#ifndef QUAVERA_TOOLS_COMMANDS_H_
#define QUAVERA_TOOLS_COMMANDS_H_

#include <optional>
#include <string>

#include "tools/Files.h"
#include "tools/RecordClasses.h"
#include "tools/Service.h"

namespace tool {

/// What a command has to print, or nothing with a reason: one that fails has printed nothing.
using Output = std::optional<std::string>;

/// The forms in which a record can be printed.
enum class Form { kTree, kIndentedTree, kText };

/// What a SOAP response holds, as an element tree or as log text by way of the tree's text form.
Output PrintSoap(const std::string& soap, const std::string& where, const RecordClass* chosen,
                 Form form, Failure* failure);

/// The log text of the record whose element tree is `xml`.
Output PrintText(const std::string& xml, const std::string& where, const RecordClass* chosen,
                 Failure* failure);

/// What a live service answers.
Output Fetch(const Operation& operation, const std::string& endpoint, const std::string& id,
             Form form, Failure* failure);

/// Serves from a catalogue until the process is told to end. False with a reason.
bool Serve(const std::string& host, int port, const std::string& folder, Failure* failure);

/// A record's whole way on this machine: a stand-in service, a SOAP client that fetches a record
/// and prints its tree, and a second process that is handed the tree as text, fills the record
/// from it and prints its log text. False with a reason.
bool Demo(Failure* failure);

}  // namespace tool

#endif  // QUAVERA_TOOLS_COMMANDS_H_
