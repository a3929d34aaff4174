/*
 * Checks, while the caller is compiled, that its compiler lays a record out as the driver process reads it.
 */
#ifndef QUILLON_RECORD_H
#define QUILLON_RECORD_H

#include <stddef.h>

/*
 * At file scope, after the record's declaration. C99 has no static assertion, and what its libraries bring under that
 * name declares a function: there, an array type of an impossible size stops the compiler.
 */
#if defined(__cplusplus)
#define QUILLON_STATIC_ASSERT(condition, message) static_assert(condition, message)
#elif __STDC_VERSION__ >= 201112L
#define QUILLON_STATIC_ASSERT(condition, message) _Static_assert(condition, message)
#else
#define QUILLON_STATIC_ASSERT(condition, message) \
    typedef char QUILLON_UNIQUE_NAME(quillon_static_assert_, __COUNTER__)[(condition) ? 1 : -1]
#define QUILLON_UNIQUE_NAME(prefix, number) QUILLON_JOINED(prefix, number)
#define QUILLON_JOINED(prefix, number) prefix##number
#endif

#define QUILLON_RECORD_SIZE(record, size) \
    QUILLON_STATIC_ASSERT(sizeof(record) == (size), #record " is not " #size " bytes")
#define QUILLON_FIELD_OFFSET(record, field, offset) \
    QUILLON_STATIC_ASSERT(offsetof(record, field) == (offset), #record "." #field " is not at byte " #offset)

#endif
