#ifndef QUAVERA_TOOLS_SOAP_REWRITER_H_
#define QUAVERA_TOOLS_SOAP_REWRITER_H_

#include <string>

namespace tool {

/// Rewrites a document, which has to be well-formed, so that gSOAP reads it right and in linear
/// time. Takes linear time itself.
///
/// - Of a numeric character reference gSOAP takes no more than seven characters and reads the rest
///   as text: references are resolved.
/// - Asked to know members by name alone, it refuses prefixed elements that it has no member for:
///   within the record, names lose their prefixes.
/// - It keeps a list of all names of attributes, which takes long to search: attributes that mean
///   nothing in SOAP are left out.
/// - Comments and processing instructions are left out too; CDATA sections stay.
std::string RewriteForGsoap(const std::string& xml);

}  // namespace tool

#endif  // QUAVERA_TOOLS_SOAP_REWRITER_H_
