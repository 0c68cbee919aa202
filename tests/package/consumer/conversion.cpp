// Uses libquavera alone, which has to find the platform library by itself.

#include "common/QuaveraCommon.h"

int main() {
    return convertFromUtf8("Straße") == L"Straße" ? 0 : 1;
}
