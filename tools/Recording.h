#ifndef QUAVERA_TOOLS_RECORDING_H_
#define QUAVERA_TOOLS_RECORDING_H_

#include <string>
#include <string_view>

#include "tools/Result.h"

namespace tool {

/// Writes an answer to where a catalogue of that folder has it,
/// `KIND/ID.xml`, the identifier being one that makes a file's name there; folders that are
/// missing are made. Whoever reads there meanwhile finds the document of before or this one, whole.
Result<Done> RecordAnswer(const std::string& folder, std::string_view kind, const std::string& id,
                          const std::string& answer);

}  // namespace tool

#endif  // QUAVERA_TOOLS_RECORDING_H_
