#ifndef QUAVERA_TOOLS_ENVELOPE_WALK_H_
#define QUAVERA_TOOLS_ENVELOPE_WALK_H_

#include <cstddef>
#include <string_view>

namespace tool {

/// Finds the record element in the elements of a SOAP text as they begin and end: the first one in
/// the envelope's body, or the root where there is no envelope. Of several bodies the first one
/// counts.
class EnvelopeWalk {
 public:
    /// What an element is.
    enum class Role { kEnvelope, kHeaderEntry, kRecord, kWithinRecord, kOther };

    /// An element begins, of that name without its prefix.
    Role Start(std::string_view local) {
        const std::size_t level = depth_++;
        if (isInRecord_) {
            return Role::kWithinRecord;
        }
        if (level == 0 && local == "Envelope") {
            hasEnvelope_ = true;
            return Role::kEnvelope;
        }
        if (level == 1) {
            OpenPart(local);
        } else if (level == 2 && part_ == Part::kHeader) {
            return Role::kHeaderEntry;
        } else if (level == 0 || (level == 2 && part_ == Part::kBody && !hasRecord_)) {
            hasRecord_ = isInRecord_ = true;
            return Role::kRecord;
        }
        return Role::kOther;
    }

    /// An element ends. Whether it is the record element, or is within it.
    bool End() {
        --depth_;
        const bool wasInRecord = isInRecord_;
        isInRecord_ = isInRecord_ && depth_ > (hasEnvelope_ ? 2U : 0U);
        return wasInRecord;
    }

    /// Whether the record element has begun and not ended.
    bool IsInRecord() const { return isInRecord_; }

 private:
    enum class Part { kHeader, kBody, kOther };

    void OpenPart(std::string_view local) {
        if (local == "Header") {
            part_ = Part::kHeader;
        } else {
            part_ = local == "Body" && !hasBody_ ? Part::kBody : Part::kOther;
            hasBody_ = hasBody_ || local == "Body";
        }
    }

    std::size_t depth_ = 0;  // the number of open elements
    bool hasEnvelope_ = false;
    bool hasBody_ = false;
    Part part_ = Part::kOther;
    bool hasRecord_ = false;
    bool isInRecord_ = false;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_ENVELOPE_WALK_H_
