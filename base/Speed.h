#ifndef QUAVERA_BASE_SPEED_H_
#define QUAVERA_BASE_SPEED_H_

/// Ahead of an inline function that has to be inlined where a source is optimised for speed, and
/// where it is for size has to be one: left to itself, the compiler does so here and not there, by
/// the order in which it comes to them.
#ifdef __OPTIMIZE_SIZE__
#define QUAVERA_INLINE_FOR_SPEED [[gnu::noinline]]
#else
#define QUAVERA_INLINE_FOR_SPEED [[gnu::always_inline]]
#endif

#endif  // QUAVERA_BASE_SPEED_H_
