#ifndef QUAVERA_PLATFORM_EXPORT_H_
#define QUAVERA_PLATFORM_EXPORT_H_

/// @file
/// What libzqshared exports.

/// Marks what libzqshared exports; everything else stays inside the library.
#define ZQ_API __attribute__((visibility("default")))

#endif  // QUAVERA_PLATFORM_EXPORT_H_
