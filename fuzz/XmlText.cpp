// Any text, read as XML.

#include "fuzz/Input.h"
#include "fuzz/Target.h"
#include "fuzz/XmlRules.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::CheckXmlText(fuzz::AsText(data, size));
    return 0;
}
