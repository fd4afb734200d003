/*
 * Compile-time proof of record layouts and of the numbers behind names, for C
 * and C++ of any standard. Use the macros inside extern "C" only.
 */
#ifndef SWITCH_LAYOUT_H
#define SWITCH_LAYOUT_H

#include <stddef.h>
#include <stdint.h>

#if defined(__cplusplus) && __cplusplus >= 201103L
#include <type_traits>
#define CONTRACT_ASSERT(condition) static_assert(condition, #condition)
#define CONTRACT_HAS_TYPE(record, field, type)                                                     \
    std::is_same<decltype(((record*)0)->field), type>::value
#else
#define CONTRACT_HAS_TYPE(record, field, type) (sizeof(((record*)0)->field) == sizeof(type))
#if !defined(__cplusplus) && defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define CONTRACT_ASSERT(condition) _Static_assert(condition, #condition)
#else
/* An array of -1 elements does not compile. Repeating the declaration is fine. */
#define CONTRACT_ASSERT(condition) extern char contract_holds[(condition) ? 1 : -1]
#endif
#endif

/* The size of a record, in bytes. */
#define CONTRACT_SIZE(record, size) CONTRACT_ASSERT(sizeof(record) == (size))

/* The offset of a field, in bytes, and its type; before C++11 the type's size only. */
#define CONTRACT_FIELD(record, field, type, offset)                                                \
    CONTRACT_ASSERT(offsetof(record, field) == (offset) && CONTRACT_HAS_TYPE(record, field, type))

#endif
