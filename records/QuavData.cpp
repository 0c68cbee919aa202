#include "records/QuavData.h"

QuavData::~QuavData() = default;
