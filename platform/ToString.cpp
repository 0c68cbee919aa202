#include "platform/ToString.h"

#include "platform/Decimal.h"

namespace zq {

std::string ToString(bool value) {
    return value ? TRUE_STRING : "false";
}

std::string ToString(int value) {
    return std::string(Decimal(value).View());
}

std::string ToString(unsigned int value) {
    return std::string(Decimal(value).View());
}

std::string ToString(unsigned long value) {
    return std::string(Decimal(value).View());
}

}  // namespace zq
