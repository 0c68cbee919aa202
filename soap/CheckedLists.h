#ifndef QUAVERA_SOAP_CHECKED_LISTS_H_
#define QUAVERA_SOAP_CHECKED_LISTS_H_

#include "soap/QuaveraH.h"

// The generated readers of lists lose failed allocations of the gSOAP runtime, and hand out a
// list that counts items but has none, or one whose items went into the list around it. The build
// puts this header ahead of them, so that they call the functions below instead: then reading ends
// with SOAP_EOM.

namespace quavera {

/// Of texts. Without a block of its own the runtime would put the item into that of the list of
/// records around it. (No list of records is within another one.)
template <class Item>
struct Block : soap_block<Item> {
    static Item* push(struct soap* context, soap_blist* block) {
        if (block == nullptr) {
            context->error = SOAP_EOM;
            return nullptr;
        }
        return soap_block<Item>::push(context, block);
    }
};

/// Ahead of the end of a list stands the allocation of its items.
inline int EndElement(struct soap* context, const char* tag) {
    return context->error == SOAP_EOM ? SOAP_EOM : soap_element_end_in(context, tag);
}

}  // namespace quavera

#define soap_block quavera::Block
#define soap_element_end_in quavera::EndElement

#endif  // QUAVERA_SOAP_CHECKED_LISTS_H_
