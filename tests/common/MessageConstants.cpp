#include "tests/common/MessageConstants.h"

Constants ConstantsElsewhere() {
    return OwnConstants();
}
