#ifndef QUAVERA_TESTS_RECORDS_RECORDING_PLATFORM_H_
#define QUAVERA_TESTS_RECORDS_RECORDING_PLATFORM_H_

#include <string>

#include "platform/zqshared.h"

/// A platform library that writes down how it is used. The library's own sources are compiled
/// against its bare header and linked with it in place of the bundled one.
///
/// Nodes are numbered from 1 in the order of their creation, those that `AddChild` makes included;
/// numbering begins anew when none is left. Beside the record of calls there are differences that
/// show what comes from the platform: a true flag's text is "yes", and `zq::ToString` names the
/// type that it was called with ("int 5").
namespace RecordingPlatform {

/// The calls since the last time, one on a line: `2.AddChild("Name", C-string "text")`.
std::string TakeCalls();

/// The number of nodes not destroyed yet.
int LiveNodes();

/// The number of texts that the codec has encoded or decoded.
int CodecCalls();

}  // namespace RecordingPlatform

#endif  // QUAVERA_TESTS_RECORDS_RECORDING_PLATFORM_H_
