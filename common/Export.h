#ifndef QUAVERA_COMMON_EXPORT_H_
#define QUAVERA_COMMON_EXPORT_H_

/// @file
/// What libquavera exports.

/// Marks what libquavera exports; everything else stays inside the library.
#define QUAVERA_API __attribute__((visibility("default")))

#endif  // QUAVERA_COMMON_EXPORT_H_
