#ifndef QUAVERA_TOOLS_SOAP_READER_H_
#define QUAVERA_TOOLS_SOAP_READER_H_

#include <string>

#include "tools/Result.h"

namespace tool {

enum class SoapVersion { k11, k12 };

/// What a SOAP text, a whole envelope or a bare record element, holds.
struct SoapMessage {
    /// The envelope's; 1.1 where there is none, or one without a namespace.
    SoapVersion version = SoapVersion::k11;
    /// The name without prefix of the record element: the first element in the body, or the root.
    /// Empty where the envelope holds none.
    std::string recordElement;
    /// The record element, written anew.
    std::string record;
};

/// Reads a SOAP text, which messages call `where`, in linear time, and writes its record element in
/// the form that gSOAP reads right and in linear time:
///
/// - gSOAP keeps lists of all namespaces and names of attributes, which take long to search: of
///   attributes only those stay that mean something within a record, "nil" and "type", and these
///   under one name each.
/// - Asked to know members by name alone, it refuses prefixed elements that it has no member for:
///   names lose their prefixes.
/// - Of a numeric character reference it takes no more than seven characters and reads the rest as
///   text: references are resolved.
/// - It reads on over mismatched tags, unknown entities and cut texts. They are failures, with
/// their
///   place; so are an envelope that is none of SOAP, and header entries that have to be understood.
Result<SoapMessage> ReadSoap(const std::string& text, const std::string& where);

}  // namespace tool

#endif  // QUAVERA_TOOLS_SOAP_READER_H_
