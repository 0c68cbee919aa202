#ifndef QUAVERA_PLATFORM_ZQSHARED_H_
#define QUAVERA_PLATFORM_ZQSHARED_H_

/// @file
/// The whole platform interface in one header: the XML node tree and its text form, the owning
/// pointer, the base64 codec, decimal texts and diagnostics.

/// @namespace zq
/// The platform library's helpers.

#include "platform/AutoCom.h"
#include "platform/Base64Encoder.h"
#include "platform/Diagnostics.h"
#include "platform/ToString.h"
#include "platform/XmlNode.h"
#include "platform/XmlText.h"

#endif  // QUAVERA_PLATFORM_ZQSHARED_H_
