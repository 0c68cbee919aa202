#ifndef QUAVERA_TOOLS_WIRE_TRACE_H_
#define QUAVERA_TOOLS_WIRE_TRACE_H_

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

/// Shows an exchange on standard error as it goes over the wire, line by line: facts of the
/// connection after "* ", what is sent after "> ", what is received after "< ".
///
/// What would have an effect on a terminal is shown as its code, the credentials of the request are
/// not shown wherever they turn up, and of each part no more than its beginning is, with a note of
/// what is left out.
class WireTrace {
 public:
    enum Part { kFacts, kRequestHead, kRequestBody, kAnswerHead, kAnswerBody };

    /// The next bytes of a part.
    void Take(Part part, std::string_view bytes);

    /// The exchange is over; another may begin.
    void End();

 private:
    static constexpr std::size_t kParts = kAnswerBody + 1;

    void ShowLine();
    void Hide(std::string* line);

    Part part_ = kFacts;
    std::string line_;  // of that part, as far as it has come
    std::string secret_;
    std::array<std::size_t, kParts> taken_ = {};  // bytes
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_WIRE_TRACE_H_
