#ifndef QUAVERA_TOOLS_RECORDING_H_
#define QUAVERA_TOOLS_RECORDING_H_

#include <string>
#include <string_view>

#include "tools/Result.h"

namespace tool {

/// Whether a catalogue can have a document of that identifier: it makes a plain file name, none
/// that is hidden, leads to another folder or is too long. An empty one can: it is the default.
bool CanBeRecorded(const std::string& id);

/// Writes an answer to where a catalogue of that folder has it, `KIND/ID.xml`; folders that are
/// missing are made. Whoever reads there meanwhile finds the document of before or this one, whole.
Result<Done> RecordAnswer(const std::string& folder, std::string_view kind, const std::string& id,
                          const std::string& answer);

}  // namespace tool

#endif  // QUAVERA_TOOLS_RECORDING_H_
